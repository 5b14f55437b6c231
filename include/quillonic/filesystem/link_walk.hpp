/// Finding the links below a folder.
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

/// Calls the block with each symbolic link and alias file below a folder and with the location one step away,
/// which need not exist. The link has the caller's spelling of `inDirectory`, the target none of the links in
/// its folders. The walk enters no folder through a link, except that `inDirectory` may be one, and whatever
/// is moved or swapped meanwhile; it enters volumes mounted below. The items of a folder come in the byte
/// order of their names, then its folders in that order. Paths may be longer than the system takes.
///
/// A link that cannot be read, one whose target names no location, an alias file whose target is not found
/// and a folder that cannot be read are logged and skipped. False when a folder, `inDirectory` included, or a
/// file that may be an alias could not be read, so that links may have been missed; else true, also after a
/// stop. Where alias files refer to, each folder is read once: what is made there during the walk may count
/// as missing.
QUILLONIC_EXPORT bool enumerateLinkFileDereferencePairs(const std::filesystem::path& inDirectory,
                                                        LinkPairBlock didFindPair);

/// Also asks `shouldStop` before each item, so that a walk that finds no link can be stopped too.
QUILLONIC_EXPORT bool enumerateLinkFileDereferencePairs(const std::filesystem::path& inDirectory,
                                                        LinkPairBlock didFindPair,
                                                        FunctionRef<bool()> shouldStop);

}  // namespace quillonic
