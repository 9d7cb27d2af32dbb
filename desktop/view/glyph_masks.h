// Letters as small pictures, ready to be laid over an image.
#pragma once
#include <QImage>
#include <QPainterPath>
#include <QTransform>
#include <cstdint>
#include <map>
#include <unordered_map>
#include <vector>

#include "platform/arx/geometry/text_metrics.h"

namespace kovra::desktop {

/// Where letters of a line need room that the cell doesn't have: below the base line, as "g" does,
/// and above the text height, as capitals with accents do. All letters of such a line are made
/// lower.
struct LineRoom {
  bool below = false;
  bool above = false;
};

/// How much of a pixel a letter covers, pixel by pixel.
struct GlyphMask {
  int left = 0;  ///< of its first pixel from the pixel of the origin
  int top = 0;
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> cover;
};

/// The outlines of the machine's fonts, made to fit the cells that the text metrics give: a text
/// is as wide as the drawing says with whatever fonts.
class GlyphMasks {
 public:
  GlyphMasks();

  LineRoom roomFor(const arx::TextCharacter& character);
  /// In text heights: x from 0 to the advance, y up from 0 at the base line to 1.
  const QPainterPath& outline(const arx::TextCharacter& character, LineRoom room);
  /// The same as pixels. `toPixels` leads from text heights to pixels; its shift counts as the
  /// place within a pixel, in quarters. Until the next call.
  const GlyphMask& mask(const arx::TextCharacter& character, LineRoom room,
                        const QTransform& toPixels);

 private:
  struct Ink {
    QPainterPath path;
    LineRoom room;
  };
  struct Key {
    std::uint64_t character;  ///< with its room, and the place within a pixel
    std::int64_t across;      ///< of the matrix, in parts of a pixel
    std::int64_t along;
    bool operator==(const Key&) const = default;
  };
  struct KeyHash {
    std::size_t operator()(const Key& key) const;
  };
  const Ink& ink(wchar_t character, bool full);

  QTransform half_;  ///< from the font's coordinates to the cell's
  QTransform full_;
  double below_ = 0;  ///< how far letters reach below the base line, and above the text height
  double above_ = 0;
  std::map<std::pair<wchar_t, bool>, Ink> inks_;
  std::map<std::uint64_t, QPainterPath> outlines_;
  std::unordered_map<Key, GlyphMask, KeyHash> masks_;
};

}  // namespace kovra::desktop
