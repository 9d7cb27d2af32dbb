#pragma once

#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "host/picture/glyphs.h"
#include "host/picture/path.h"
#include "launch/picture_library.h"
#include "platform/dxf/result.h"

namespace kovra::host {

using launch::Ground;
using launch::PictureForm;

/// What pictures are drawn on. Later things cover earlier ones.
class Canvas {
 public:
  virtual ~Canvas() = default;
  virtual void stroke(const Path& path, Rgb color, double width = 1) = 0;
  /// Where outlines overlap or lie in one another, an odd number of them fills.
  virtual void fill(const Path& path, Rgb color) = 0;
  /// Characters of one line; the matrix leads from their coordinates (see Glyph) to the picture.
  /// `text` is what they say, for people and programs that read the file.
  virtual void glyphs(std::wstring_view text, std::span<const PlacedGlyph> glyphs,
                      const Affine& matrix, Rgb color) = 0;
  /// Outside of the box nothing is drawn until endClip().
  virtual void beginClip(const Bounds& box) = 0;
  virtual void endClip() = 0;
  /// The picture as the bytes of its file. Nothing may be drawn afterwards.
  virtual Result<std::string> finish() = 0;
};

/// A canvas of this size in pixels, filled with the ground's color. Sides are at most 32,000 pixels
/// in a PNG.
std::unique_ptr<Canvas> makeCanvas(PictureForm form, int width, int height, Rgb ground);

/// Writes the bytes as a whole or not at all.
Result<void> writePicture(const std::filesystem::path& file, Canvas& canvas);

}  // namespace kovra::host
