/// Finds the links below a folder.
///
///     enumerateLinkFileDereferencePairs("/card", [&](const path& link, const path& target, bool&) { ... });
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/function_ref.hpp>

#include <filesystem>

namespace quillonic {

/// Receives a link and its target. Setting `stop` ends the walk after the call.
using LinkPairBlock =
    FunctionRef<void(const std::filesystem::path& link, const std::filesystem::path& target, bool& stop)>;

/// Calls the block with each symbolic link and alias file below a folder, and the location one step away,
/// which need not exist. The link is absolute, with the links in its folders followed, except that
/// `inDirectory` may be a link itself: callers that compare links with paths of their own must pass a
/// canonical path. The target has no links in its folders. The walk enters no folder through another link,
/// even if folders are moved or swapped meanwhile: a folder that was moved keeps its first spelling in links
/// and targets, and a link whose target would have to be searched for in what has taken its place counts as
/// unread. It enters volumes mounted below. The items of a folder come in byte order of their names, then its
/// folders in that order. Paths may be longer than the system's limit.
///
/// Unreadable links and folders, links whose target names no location, and alias files whose target is not
/// found are logged and skipped. False when a folder, including `inDirectory`, a link or a file that may be
/// an alias could not be read, so that links may be missing; else true, even after a stop. The folders that
/// alias files refer to are read once: what is created there during the walk may count as missing.
QUILLONIC_EXPORT bool enumerateLinkFileDereferencePairs(const std::filesystem::path& inDirectory,
                                                        LinkPairBlock didFindPair);

/// Also asks `shouldStop` before each item, so that a walk that finds no links can be stopped too.
QUILLONIC_EXPORT bool enumerateLinkFileDereferencePairs(const std::filesystem::path& inDirectory,
                                                        LinkPairBlock didFindPair,
                                                        FunctionRef<bool()> shouldStop);

}  // namespace quillonic
