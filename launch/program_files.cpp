#include "launch/program_files.h"

namespace kovra::launch {

Result<std::filesystem::path> findProgramFile(const std::string& name) {
  std::error_code failure;
  const auto folder = std::filesystem::read_symlink("/proc/self/exe", failure).parent_path();
  for (const auto& place : {folder, folder.parent_path() / "lib" / "kovra"}) {
    if (std::filesystem::exists(place / name, failure)) return place / name;
  }
  return Error{ErrorKind::kNotFound, name + " is missing beside the program"};
}

bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
  std::error_code failure;
  return std::filesystem::equivalent(a, b, failure) && !failure;
}

}  // namespace kovra::launch
