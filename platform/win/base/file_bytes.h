#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace kovra::win {

/// All bytes of a file; nothing when it can't be read.
std::optional<std::string> readFileBytes(const std::filesystem::path& file);

}  // namespace kovra::win
