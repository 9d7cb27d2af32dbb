#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/dxf/large_memory.h"
#include "platform/dxf/result.h"

namespace kovra::dxf {

/// Tells whether a file on disk is still the one that was read.
struct FileStamp {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::int64_t size = 0;
  std::int64_t seconds = 0;  ///< of the last modification
  std::int64_t nanoseconds = 0;
  bool operator==(const FileStamp&) const = default;
};

/// The stamp of what `path` leads to; kNotFound or kNotReadable.
Result<FileStamp> stampOf(const std::string& path);

/// The bytes of a whole file in memory of our own. Not mapped from the file: another program that
/// cuts the file short must not kill this one.
class FileBytes {
 public:
  static Result<FileBytes> read(const std::string& path, FileStamp& stamp);
  static Result<FileBytes> copy(std::string_view bytes);

  std::string_view view() const { return {memory_.data(), size_}; }

 private:
  LargeMemory memory_;
  std::size_t size_ = 0;
};

/// The system's words for an errno value.
std::string systemMessage(int error);

}  // namespace kovra::dxf
