#include "platform/dxf/dialect.h"

#include <cstdint>

#include "platform/dxf/values.h"

namespace kovra::dxf {

int releaseNumber(const std::string& acadver) {
  const std::string_view name = trimmed(acadver);
  std::int64_t number = 0;
  if (name.substr(0, 2) != "AC" || !parseInteger(name.substr(2), number)) return kR12;
  return number > kR12 && number <= 9999 ? static_cast<int>(number) : kR12;
}

}  // namespace kovra::dxf
