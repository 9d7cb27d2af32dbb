#include "module/countup/char_width.h"

namespace kovra {
namespace {

// Full-width forms stand at this distance behind the half-width ones (Unicode block "Halfwidth and
// Fullwidth Forms").
constexpr unsigned long kDistance = 0xFEE0;

constexpr bool hasPartner(unsigned long c) {
  return c == L'.' || (c >= L'0' && c <= L'9') || (c >= L'a' && c <= L'z') ||
         (c >= L'A' && c <= L'Z');
}

constexpr wchar_t partner(wchar_t c) {
  const auto code = static_cast<unsigned long>(c);
  if (hasPartner(code)) return static_cast<wchar_t>(code + kDistance);
  if (code > kDistance && hasPartner(code - kDistance)) {
    return static_cast<wchar_t>(code - kDistance);
  }
  return c;
}

}  // namespace

bool FlipCharWidth(std::wstring& text) {
  bool changed = false;
  for (wchar_t& c : text) {
    const wchar_t flipped = partner(c);
    changed |= flipped != c;
    c = flipped;
  }
  return changed;
}

}  // namespace kovra
