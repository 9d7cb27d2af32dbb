#include "host/picture/svg_canvas.h"

#include <array>
#include <charconv>
#include <cmath>

#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

/// Strokes of one color are joined to one element up to this length.
constexpr std::size_t kLongestPath = 32768;

/// A thousandth of a text height is enough.
constexpr int kGlyphDigits = 1;

void appendNumber(std::string& out, double value, int digits = 2) {
  std::array<char, 64> text;
  if (!(std::fabs(value) < 1e12)) value = 0;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                 std::chars_format::fixed, digits);
  std::string_view number(text.data(), static_cast<std::size_t>(end.ptr - text.data()));
  if (number.find('.') != std::string_view::npos) {
    number = number.substr(0, number.find_last_not_of('0') + 1);
    if (number.back() == '.') number.remove_suffix(1);
  }
  out += number == "-0" ? "0" : number;
}

void appendSpots(std::string& out, std::span<const Spot> spots, int digits) {
  bool first = true;
  for (const Spot spot : spots) {
    if (!first) out += ' ';
    first = false;
    appendNumber(out, spot.x, digits);
    out += ' ';
    appendNumber(out, spot.y, digits);
  }
}

void appendPath(std::string& out, const Path& path, int digits = 2) {
  path.forEach([&](Path::Step step, std::span<const Spot> spots) {
    static constexpr char kLetters[] = {'M', 'L', 'C', 'Z'};
    out += kLetters[static_cast<std::size_t>(step)];
    appendSpots(out, spots, digits);
  });
}

void appendColor(std::string& out, Rgb color) {
  static constexpr char kDigits[] = "0123456789abcdef";
  out += '#';
  for (const unsigned part : {color.red, color.green, color.blue}) {
    out += kDigits[part / 16];
    out += kDigits[part % 16];
  }
}

/// Text of an attribute; control characters can't stand in the file.
void appendText(std::string& out, std::wstring_view text) {
  for (const char c : win::toUtf8(text)) {
    switch (c) {
      case '<':
        out += "&lt;";
        break;
      case '&':
        out += "&amp;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c >= 0 && c < ' ' ? ' ' : c;
    }
  }
}

}  // namespace

SvgCanvas::SvgCanvas(int width, int height, Rgb ground) {
  const std::string w = std::to_string(width);
  const std::string h = std::to_string(height);
  out_ =
      "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
      "width=\"" +
      w + "\" height=\"" + h + "\" viewBox=\"0 0 " + w + ' ' + h +
      "\" fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n"
      "<rect width=\"" +
      w + "\" height=\"" + h + "\" fill=\"";
  appendColor(out_, ground);
  out_ += "\"/>\n";
}

void SvgCanvas::endStrokes() {
  if (strokes_.empty()) return;
  out_ += "<path stroke=\"";
  appendColor(out_, strokeColor_);
  if (strokeWidth_ != 1) {
    out_ += "\" stroke-width=\"";
    appendNumber(out_, strokeWidth_);
  }
  out_ += "\" d=\"" + strokes_ + "\"/>\n";
  strokes_.clear();
}

void SvgCanvas::stroke(const Path& path, Rgb color, double width) {
  const bool same = color == strokeColor_ && width == strokeWidth_;
  if (!same || strokes_.size() > kLongestPath) endStrokes();
  strokeColor_ = color;
  strokeWidth_ = width;
  appendPath(strokes_, path);
}

void SvgCanvas::fill(const Path& path, Rgb color) {
  if (path.isEmpty()) return;
  endStrokes();
  out_ += "<path fill-rule=\"evenodd\" fill=\"";
  appendColor(out_, color);
  out_ += "\" d=\"";
  appendPath(out_, path);
  out_ += "\"/>\n";
}

void SvgCanvas::glyphs(std::wstring_view text, std::span<const PlacedGlyph> glyphs,
                       const Affine& matrix, Rgb color) {
  endStrokes();
  out_ += "<g fill=\"";
  appendColor(out_, color);
  out_ += "\" aria-label=\"";
  appendText(out_, text);
  out_ += "\" transform=\"matrix(";
  bool first = true;
  for (const double part : {matrix.a, matrix.b, matrix.c, matrix.d, matrix.e, matrix.f}) {
    if (!first) out_ += ' ';
    first = false;
    appendNumber(out_, part, 5);
  }
  out_ += ")\">";
  for (const PlacedGlyph& placed : glyphs) {
    if (placed.glyph->outline.isEmpty()) continue;
    used_.insert(placed.glyph);
    out_ += "<use xlink:href=\"#" + placed.glyph->name;
    if (placed.x != 0) {
      out_ += "\" x=\"";
      appendNumber(out_, placed.x);
    }
    out_ += "\"/>";
  }
  out_ += "</g>\n";
}

void SvgCanvas::beginClip(const Bounds& box) {
  endStrokes();
  const std::string name = "clip" + std::to_string(++clips_);
  Path path;
  path.box(box.left, box.top, box.right, box.bottom);
  out_ += "<clipPath id=\"" + name + "\"><path d=\"";
  appendPath(out_, path);
  out_ += "\"/></clipPath>\n<g clip-path=\"url(#" + name + ")\">\n";
}

void SvgCanvas::endClip() {
  endStrokes();
  out_ += "</g>\n";
}

Result<std::string> SvgCanvas::finish() {
  endStrokes();
  if (!used_.empty()) out_ += "<defs>\n";
  for (const Glyph* glyph : used_) {
    out_ += "<path id=\"" + glyph->name + "\" d=\"";
    appendPath(out_, glyph->outline, kGlyphDigits);
    out_ += "\"/>\n";
  }
  if (!used_.empty()) out_ += "</defs>\n";
  out_ += "</svg>\n";
  return std::move(out_);
}

}  // namespace kovra::host
