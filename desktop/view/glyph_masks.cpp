#include "desktop/view/glyph_masks.h"

#include <QChar>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace kovra::desktop {
namespace {

constexpr int kFontSize = 100;
/// How much of its cell a full-width character takes.
constexpr double kFullWidthInk = 0.92;
constexpr double kFullWidthHeight = 0.96;
/// Letters of more sizes and turns than this aren't kept.
constexpr std::size_t kMostMasks = 40000;

QFont drawingFont() {
  QFont font;
  font.setFamilies({QStringLiteral("DejaVu Sans Mono"), QStringLiteral("VL Gothic"),
                    QStringLiteral("Noto Sans Mono CJK JP"), QStringLiteral("monospace")});
  font.setPixelSize(kFontSize);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

QPainterPath outlineOf(const QString& text) {
  QPainterPath path;
  path.addText(0, 0, drawingFont(), text);
  path.setFillRule(Qt::WindingFill);
  return path;
}

bool isDrawable(wchar_t c) {
  return c > L' ' && c != 0x3000 && !(c >= 0x7f && c <= 0xa0);
}

bool isFull(const arx::TextCharacter& character) {
  return character.advance > 1;
}

/// Brings ink that reaches out of [0, room] inside: moved if that is enough, else made smaller.
std::pair<double, double> fitAxis(double from, double to, double room) {
  const double scale = to - from > room ? room / (to - from) : 1;
  double shift = 0;
  if (from * scale < 0) shift = -from * scale;
  if (to * scale + shift > room) shift = room - to * scale;
  return {scale, shift};
}

GlyphMask render(const QPainterPath& path, const QTransform& toPixels) {
  GlyphMask mask;
  const QPainterPath placed = toPixels.map(path);
  const QRect box = placed.boundingRect().toAlignedRect().adjusted(-1, -1, 1, 1);
  if (path.isEmpty()) return mask;
  QImage image(box.size(), QImage::Format_Alpha8);
  image.fill(0);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(-box.topLeft());
  painter.fillPath(placed, Qt::black);
  painter.end();
  mask.left = box.left();
  mask.top = box.top();
  mask.width = box.width();
  mask.height = box.height();
  for (int y = 0; y < box.height(); ++y) {
    const uchar* line = image.constScanLine(y);
    mask.cover.insert(mask.cover.end(), line, line + box.width());
  }
  return mask;
}

}  // namespace

/// A half-width cell is as wide as the font's own advance and as high as its capital letters; a
/// full-width one is filled by the ink of a character that fills its square.
GlyphMasks::GlyphMasks() {
  const double capital = -outlineOf(QStringLiteral("H")).boundingRect().top();
  const double across = QFontMetricsF(drawingFont()).horizontalAdvance(QLatin1Char('0'));
  if (capital > 0 && across > 0)
    half_ = QTransform::fromScale(arx::kHalfWidthAdvance / across, -1 / capital);
  const QRectF tall =
      half_.map(outlineOf(QString::fromUtf8("gjpqy\xc3\x85\xc3\x9c"))).boundingRect();
  below_ = std::max(0.0, -tall.top());
  above_ = std::max(0.0, tall.bottom() - 1);
  const QRectF square = outlineOf(QString::fromUtf8("\xe5\x9b\xbd")).boundingRect();
  if (square.isEmpty()) return;
  const double sx = arx::kFullWidthAdvance * kFullWidthInk / square.width();
  const double sy = -kFullWidthHeight / square.height();
  full_ = QTransform(sx, 0, 0, sy, arx::kFullWidthAdvance / 2 - sx * square.center().x(),
                     0.5 - sy * square.center().y());
}

const GlyphMasks::Ink& GlyphMasks::ink(wchar_t character, bool full) {
  constexpr double kSlight = 0.05;  // round letters reach a little beyond flat ones
  const auto [place, isNew] = inks_.try_emplace({character, full});
  Ink& ink = place->second;
  if (!isNew || !isDrawable(character)) return ink;
  const auto code = static_cast<char32_t>(character);
  ink.path = (full ? full_ : half_).map(outlineOf(QString::fromUcs4(&code, 1)));
  if (full || ink.path.isEmpty() || !QChar::isLetter(code)) return ink;
  const QRectF box = ink.path.boundingRect();
  ink.room = {box.top() < -kSlight, box.bottom() > 1 + kSlight};
  return ink;
}

LineRoom GlyphMasks::roomFor(const arx::TextCharacter& character) {
  return ink(character.character, isFull(character)).room;
}

const QPainterPath& GlyphMasks::outline(const arx::TextCharacter& character, LineRoom room) {
  const bool full = isFull(character);
  if (full) room = {};
  const auto key = static_cast<std::uint64_t>(character.character) << 3U |
                   static_cast<std::uint64_t>(full) << 2U |
                   static_cast<std::uint64_t>(room.below) << 1U |
                   static_cast<std::uint64_t>(room.above);
  const auto [place, isNew] = outlines_.try_emplace(key);
  if (!isNew) return place->second;
  const double below = room.below ? below_ : 0;
  const double scale = 1 / (1 + below + (room.above ? above_ : 0));
  const QPainterPath lifted =
      QTransform(1, 0, 0, scale, 0, below * scale).map(ink(character.character, full).path);
  if (lifted.isEmpty()) return place->second;
  const QRectF box = lifted.boundingRect();
  const auto [across, right] =
      fitAxis(box.left(), box.right(), full ? arx::kFullWidthAdvance : arx::kHalfWidthAdvance);
  const auto [along, up] = fitAxis(box.top(), box.bottom(), 1);
  place->second = QTransform(across, 0, 0, along, right, up).map(lifted);
  return place->second;
}

std::size_t GlyphMasks::KeyHash::operator()(const Key& key) const {
  constexpr std::uint64_t kMix = 0x9E3779B97F4A7C15U;
  std::uint64_t hash = key.character * kMix;
  hash = (hash ^ static_cast<std::uint64_t>(key.across)) * kMix;
  hash = (hash ^ static_cast<std::uint64_t>(key.along)) * kMix;
  return hash ^ hash >> 29U;
}

const GlyphMask& GlyphMasks::mask(const arx::TextCharacter& character, LineRoom room,
                                  const QTransform& toPixels) {
  const auto part = [](double value) { return std::llround(value * 16); };
  const auto pair = [&](double a, double b) { return part(a) * 0x100000000 + part(b); };
  const auto quarter = [](double value) {
    return static_cast<std::uint64_t>(std::llround(value * 4)) & 3U;
  };
  const Key key{static_cast<std::uint64_t>(character.character) << 8U |
                    static_cast<std::uint64_t>(isFull(character)) << 6U |
                    static_cast<std::uint64_t>(room.below) << 5U |
                    static_cast<std::uint64_t>(room.above) << 4U | quarter(toPixels.dx()) << 2U |
                    quarter(toPixels.dy()),
                pair(toPixels.m11(), toPixels.m12()), pair(toPixels.m21(), toPixels.m22())};
  if (const auto known = masks_.find(key); known != masks_.end()) return known->second;
  if (masks_.size() >= kMostMasks) masks_.clear();
  return masks_[key] = render(outline(character, room), toPixels);
}

}  // namespace kovra::desktop
