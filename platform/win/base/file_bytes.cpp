#include "platform/win/base/file_bytes.h"

#include <fstream>
#include <sstream>
#include <utility>

namespace kovra::win {

std::optional<std::string> readFileBytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return std::nullopt;
  std::ostringstream bytes;
  bytes << in.rdbuf();
  if (in.bad()) return std::nullopt;
  return std::move(bytes).str();
}

}  // namespace kovra::win
