#pragma once

#include <set>

#include "host/picture/canvas.h"

namespace kovra::host {

/// Draws an SVG file. Characters are outlines, each defined once, so that the file looks the same
/// in every viewer.
class SvgCanvas : public Canvas {
 public:
  SvgCanvas(int width, int height, Rgb ground);
  void stroke(const Path& path, Rgb color, double width) override;
  void fill(const Path& path, Rgb color) override;
  void glyphs(std::wstring_view text, std::span<const PlacedGlyph> glyphs, const Affine& matrix,
              Rgb color) override;
  void beginClip(const Bounds& box) override;
  void endClip() override;
  Result<std::string> finish() override;

 private:
  void endStrokes();

  std::string out_;
  std::string strokes_;  ///< of one color and width, not written yet
  Rgb strokeColor_;
  double strokeWidth_ = 0;
  /// By name, so that equal pictures are equal files.
  struct ByName {
    bool operator()(const Glyph* a, const Glyph* b) const { return a->name < b->name; }
  };
  std::set<const Glyph*, ByName> used_;
  int clips_ = 0;
};

}  // namespace kovra::host
