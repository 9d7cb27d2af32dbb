#pragma once

#include <filesystem>
#include <string>

#include "platform/dxf/result.h"

namespace kovra::launch {

/// A file of the installed program, of this name. Looks beside the program, then in ../lib/kovra;
/// kNotFound when it is in neither place.
Result<std::filesystem::path> findProgramFile(const std::string& name);

/// Whether both names lead to the same existing file: through links, relative parts, hard links.
bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b);

}  // namespace kovra::launch
