#include "host/program_files.h"

namespace kovra::host {
namespace {

constexpr const char* kModuleName = "kovra_text.so";

}  // namespace

Result<ProgramFiles> findProgramFiles() {
  std::error_code failure;
  const auto folder = std::filesystem::read_symlink("/proc/self/exe", failure).parent_path();
  for (const auto& place : {folder, folder.parent_path() / "lib" / "kovra"}) {
    if (std::filesystem::exists(place / kModuleName, failure)) {
      return ProgramFiles{place / kModuleName, place};
    }
  }
  return Error{ErrorKind::kNotFound, std::string(kModuleName) + " is missing beside the program"};
}

bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
  std::error_code failure;
  return std::filesystem::equivalent(a, b, failure) && !failure;
}

}  // namespace kovra::host
