// What the header gives to new entities.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace kovra::dxf {
class Structure;
}

namespace kovra::arx {

inline constexpr std::int64_t kColorByLayer = 256;

/// Whether entities can have this line type: one of the table, ByLayer, ByBlock or Continuous.
bool isLinetype(const dxf::Structure& structure, std::wstring_view name);

// Some programs write headers that name what no entity can have; then it is what a new drawing
// starts with.
/// A layer of the table, or a name that it may get; else 0.
std::wstring currentLayer(const dxf::Structure& structure);
/// The name of a text style, which the table may lack; Standard in place of none.
std::wstring currentTextStyle(const dxf::Structure& structure);
std::wstring currentLinetype(const dxf::Structure& structure);
/// 0 by block, 1 to 255, 256 by layer.
std::int64_t currentColor(const dxf::Structure& structure);

}  // namespace kovra::arx
