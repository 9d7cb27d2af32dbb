#include "desktop/frame/icons.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QStringList>

namespace kovra::desktop {
namespace {

constexpr double kUnits = 24;  // of an icon's side

/// Lines of an icon: M and L as in SVG paths, Z closes, C x y r is a circle. `accent` is drawn in
/// the accent color, over the lines.
struct Drawing {
  Icon icon;
  const char* lines;
  const char* accent;
};

// The letter A of most icons here, in its usual place.
#define KOVRA_LETTER "M3 19 L8 5 L13 19 M5 14 L11 14"

constexpr Drawing kDrawings[] = {
    {Icon::kNone, "", ""},
    {Icon::kProgram, "M3 3 L21 3 L21 21 L3 21 Z", "M7 18 L12 6 L17 18 M9 14 L15 14"},
    {Icon::kNew, "M6 2 L14 2 L19 7 L19 22 L6 22 Z M14 2 L14 7 L19 7", ""},
    {Icon::kOpen, "M3 20 L3 5 L9 5 L11 8 L20 8 L20 11 M3 20 L7 11 L23 11 L19 20 Z", ""},
    {Icon::kSave, "M4 4 L17 4 L20 7 L20 20 L4 20 Z M8 4 L8 9 L15 9 L15 4",
     "M8 20 L8 14 L16 14 L16 20"},
    {Icon::kPlot, "M7 9 L7 3 L17 3 L17 9 M7 17 L3 17 L3 9 L21 9 L21 17 L17 17",
     "M7 14 L17 14 L17 21 L7 21 Z"},
    {Icon::kUndo, "M8 4 L3 9 L8 14", "M3 9 L15 9 L19 11 L21 15 L19 19 L15 20 L9 20"},
    {Icon::kRedo, "M16 4 L21 9 L16 14", "M21 9 L9 9 L5 11 L3 15 L5 19 L9 20 L15 20"},
    {Icon::kErase, "M9 20 L3 14 L14 3 L21 10 L11 20 L9 20 L21 20", "M8 9 L15 16"},
    {Icon::kExtents, "M3 8 L3 3 L8 3 M16 3 L21 3 L21 8 M21 16 L21 21 L16 21 M8 21 L3 21 L3 16",
     "M8 8 L16 8 L16 16 L8 16 Z"},
    {Icon::kZoomIn, "C10 10 7 M15 15 L21 21", "M7 10 L13 10 M10 7 L10 13"},
    {Icon::kZoomOut, "C10 10 7 M15 15 L21 21", "M7 10 L13 10"},
    {Icon::kText, "M6 20 L12 4 L18 20 M8 15 L16 15", ""},
    {Icon::kTextResize, KOVRA_LETTER, "M18 4 L18 20 M15 7 L18 4 L21 7 M15 17 L18 20 L21 17"},
    {Icon::kTextProperties, KOVRA_LETTER, "M15 7 L22 7 M15 12 L22 12 M15 17 L22 17"},
    {Icon::kTextCountUp, "M4 9 L7 6 L7 18 M4 18 L10 18", "M13 8 L16 6 L19 8 L19 11 L13 18 L20 18"},
    {Icon::kAttrCopy, "M2 5 L11 5 L11 19 L2 19 Z M4 9 L9 9 M4 13 L9 13",
     "M13 12 L21 12 M18 8 L22 12 L18 16"},
    {Icon::kAttrCopyAll, "M2 8 L9 8 L9 20 L2 20 Z M5 8 L5 4 L12 4 L12 16 L9 16",
     "M14 12 L21 12 M18 8 L22 12 L18 16"},
    {Icon::kAttrCopyLine, "M2 4 L22 4 L22 20 L2 20 Z", "M5 9 L9 12 L5 15 M11 16 L18 16"},
    {Icon::kTextSets, KOVRA_LETTER, "M14 20 L15 16 L20 8 L23 10 L18 18 Z"},
    {Icon::kTextAlign, "M4 2 L4 22", "M8 6 L21 6 M8 12 L17 12 M8 18 L21 18"},
    {Icon::kOptions, "M3 7 L21 7 M3 17 L21 17", "C9 7 3 C15 17 3"},
    {Icon::kHelp, "C12 12 10",
     "M9 9 L10 7 L12 6 L14 7 L15 9 L14 11 L12 12.5 L12 14.5 M12 17 L12 18"},
    {Icon::kLocked, "M8 11 L8 7 L10 4 L14 4 L16 7 L16 11", "M5 11 L19 11 L19 21 L5 21 Z"},
};
#undef KOVRA_LETTER

QPainterPath pathOf(const char* lines) {
  QPainterPath path;
  const QStringList words = QString::fromLatin1(lines).split(QLatin1Char(' '), Qt::SkipEmptyParts);
  for (qsizetype i = 0; i < words.size(); ++i) {
    const QChar step = words[i][0];
    const auto number = [&](qsizetype at) {
      return (at == i ? words[at].mid(1) : words[at]).toDouble();
    };
    if (step == QLatin1Char('Z')) {
      path.closeSubpath();
    } else if (step == QLatin1Char('C')) {
      path.addEllipse(QPointF(number(i), number(i + 1)), number(i + 2), number(i + 2));
      i += 2;
    } else {
      const QPointF point(number(i), number(i + 1));
      step == QLatin1Char('M') ? path.moveTo(point) : path.lineTo(point);
      i += 1;
    }
  }
  return path;
}

QPixmap draw(const Drawing& drawing, int side) {
  QPixmap pixmap(side, side);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(side / kUnits, side / kUnits);
  const auto stroke = [&painter](const char* lines, const QColor& color) {
    painter.setPen(QPen(color, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(pathOf(lines));
  };
  const QPalette palette = QGuiApplication::palette();
  const bool dark = palette.color(QPalette::Window).lightness() < 128;
  stroke(drawing.lines, palette.color(QPalette::WindowText));
  stroke(drawing.accent, dark ? QColor(0x6c, 0xb2, 0xff) : QColor(0x14, 0x60, 0xc8));
  return pixmap;
}

}  // namespace

QIcon drawnIcon(Icon icon) {
  QIcon drawn;
  for (const Drawing& drawing : kDrawings) {
    if (drawing.icon != icon || *drawing.lines == '\0') continue;
    for (const int side : {16, 24, 32, 48, 64}) drawn.addPixmap(draw(drawing, side));
  }
  return drawn;
}

}  // namespace kovra::desktop
