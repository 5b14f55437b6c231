/// How paths are encoded. Separate from `coding.hpp`, because including `<filesystem>` costs more than that.
///
///     encode(std::filesystem::path("/media/out.mov"));    // "/media/out.mov"
#pragma once

#include <quillonic/support/coding.hpp>

#include <filesystem>
#include <string>
#include <string_view>

namespace quillonic {

/// Encodes the bytes of the path unchanged.
template <> struct Coding<std::filesystem::path> {
  static CodedValue encode(const std::filesystem::path& value) { return value.native(); }
  static std::filesystem::path decode(const CodedValue& coded, std::string_view key) {
    return coded.require<std::string>(key);
  }
};

}  // namespace quillonic
