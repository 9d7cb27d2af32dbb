// Bits of group 70 of symbol table records.
#pragma once
#include <cstdint>

namespace kovra::arx {

inline constexpr std::int64_t kLayerFrozen = 1;
inline constexpr std::int64_t kLayerLocked = 4;
inline constexpr std::int64_t kStyleIsShape = 1;
inline constexpr std::int64_t kStyleVertical = 4;

}  // namespace kovra::arx
