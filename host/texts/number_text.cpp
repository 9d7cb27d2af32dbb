#include "host/texts/number_text.h"

#include <array>
#include <charconv>

namespace kovra::host {

std::string shortestNumber(double value) {
  if (value == 0) return "0";  // also for a zero with a sign
  std::array<char, 32> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  return {buffer.data(), result.ptr};
}

}  // namespace kovra::host
