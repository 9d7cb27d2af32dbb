#pragma once

#include <filesystem>

#include "platform/dxf/result.h"

namespace kovra::host {

/// Where the parts of the installed program lie.
struct ProgramFiles {
  std::filesystem::path module;     ///< the library with the commands
  std::filesystem::path resources;  ///< folder of the compiled resource files
};

/// Looks beside the program, then in ../lib/kovra. kNotFound when the module is in neither place.
Result<ProgramFiles> findProgramFiles();

/// Whether both names lead to the same existing file: through links, relative parts, hard links.
bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b);

}  // namespace kovra::host
