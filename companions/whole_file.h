#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace kovra::companions {

/// Reads a regular file as a whole. `bytes` is empty on failure; a missing file gives
/// std::errc::no_such_file_or_directory.
std::error_code readWholeFile(const std::filesystem::path& file, std::string& bytes);

/// Writes a file as a whole or not at all: a new file in the same folder, flushed to disk, takes
/// the old one's place with its mode. A symbolic link is followed. Refused when the old file may
/// not be written (isWritable), although the folder may.
std::error_code replaceWholeFile(const std::filesystem::path& file, std::string_view bytes);

/// The file exists, the user may write it, and its mode has a write permission at all: a file
/// marked read-only counts as that for the superuser, too.
bool isWritable(const std::filesystem::path& file);

}  // namespace kovra::companions
