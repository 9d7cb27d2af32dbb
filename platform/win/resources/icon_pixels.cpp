#include "platform/win/resources/icon_pixels.h"

#include "platform/win/resources/icons.h"
#include "platform/win/resources/resource_file.h"
#include "platform/win/resources/resources.h"

namespace kovra::win {
namespace {

/// The number of the image that the group names for a size, else of its first one; 0: none.
unsigned imageOf(const Icon& icon) {
  ByteReader group(findResource(icon.module, ResourceType::groupIcon, icon.id));
  group.skip(4);
  const unsigned count = group.u16();
  unsigned chosen = 0;
  for (unsigned i = 0; i < count && !group.failed(); ++i) {
    const bool fits = group.u8() == static_cast<unsigned>(icon.size);
    group.skip(11);
    const unsigned id = group.u16();
    if (fits || chosen == 0) chosen = id;
    if (fits) break;
  }
  return group.failed() ? 0 : chosen;
}

}  // namespace

// The form of a device-independent bitmap: a header of 40 bytes with twice the height (the mask
// counts), then blue, green, red and opacity, rows from the bottom.
IconPixels iconPixels(HICON handle) {
  constexpr unsigned kHeader = 40, kBits = 32, kLargest = 256;
  IconPixels image;
  const Icon* icon = findIcon(handle);
  if (icon == nullptr) return image;
  ByteReader bytes(findResource(icon->module, ResourceType::icon, imageOf(*icon)));
  const bool known = bytes.u32() == kHeader;
  const unsigned width = bytes.u32();
  const unsigned height = bytes.u32() / 2;
  bytes.skip(2);
  if (!known || bytes.u16() != kBits || width > kLargest || height > kLargest) return image;
  bytes.skip(kHeader - 16);
  std::vector<IconPixel> pixels(std::size_t{width} * height);
  for (unsigned row = height; row-- > 0;)
    for (unsigned column = 0; column < width; ++column) {
      IconPixel& pixel = pixels[std::size_t{row} * width + column];
      pixel.blue = static_cast<std::uint8_t>(bytes.u8());
      pixel.green = static_cast<std::uint8_t>(bytes.u8());
      pixel.red = static_cast<std::uint8_t>(bytes.u8());
      pixel.opacity = static_cast<std::uint8_t>(bytes.u8());
    }
  if (bytes.failed()) return image;
  image = {static_cast<int>(width), static_cast<int>(height), std::move(pixels)};
  return image;
}

}  // namespace kovra::win
