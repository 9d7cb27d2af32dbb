#include "desktop/frame/icons.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QStringList>

namespace kovra::desktop {
namespace {

constexpr double kUnits = 24;  // of an icon's side

struct Drawing {
  Icon icon;
  IconPaths paths;
};

constexpr Drawing kDrawings[] = {
    {Icon::kNone, {"", ""}},
    {Icon::kProgram, {"M3 3 L21 3 L21 21 L3 21 Z", "M7 18 L12 6 L17 18 M9 14 L15 14"}},
    {Icon::kNew, {"M6 2 L14 2 L19 7 L19 22 L6 22 Z M14 2 L14 7 L19 7", ""}},
    {Icon::kOpen, {"M3 20 L3 5 L9 5 L11 8 L20 8 L20 11 M3 20 L7 11 L23 11 L19 20 Z", ""}},
    {Icon::kSave,
     {"M4 4 L17 4 L20 7 L20 20 L4 20 Z M8 4 L8 9 L15 9 L15 4", "M8 20 L8 14 L16 14 L16 20"}},
    {Icon::kPlot,
     {"M7 9 L7 3 L17 3 L17 9 M7 17 L3 17 L3 9 L21 9 L21 17 L17 17", "M7 14 L17 14 L17 21 L7 21 Z"}},
    {Icon::kUndo, {"M8 4 L3 9 L8 14", "M3 9 L15 9 L19 11 L21 15 L19 19 L15 20 L9 20"}},
    {Icon::kRedo, {"M16 4 L21 9 L16 14", "M21 9 L9 9 L5 11 L3 15 L5 19 L9 20 L15 20"}},
    {Icon::kExtents,
     {"M3 8 L3 3 L8 3 M16 3 L21 3 L21 8 M21 16 L21 21 L16 21 M8 21 L3 21 L3 16",
      "M8 8 L16 8 L16 16 L8 16 Z"}},
    {Icon::kZoomIn, {"C10 10 7 M15 15 L21 21", "M7 10 L13 10 M10 7 L10 13"}},
    {Icon::kZoomOut, {"C10 10 7 M15 15 L21 21", "M7 10 L13 10"}},
    {Icon::kHelp,
     {"C12 12 10", "M9 9 L10 7 L12 6 L14 7 L15 9 L14 11 L12 12.5 L12 14.5 M12 17 L12 18"}},
    {Icon::kLocked, {"M8 11 L8 7 L10 4 L14 4 L16 7 L16 11", "M5 11 L19 11 L19 21 L5 21 Z"}},
};

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

QPixmap draw(const IconPaths& paths, int side) {
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
  stroke(paths.lines, palette.color(QPalette::WindowText));
  stroke(paths.accent, dark ? QColor(0x6c, 0xb2, 0xff) : QColor(0x14, 0x60, 0xc8));
  return pixmap;
}

}  // namespace

QIcon drawnIcon(const IconPaths& paths) {
  QIcon drawn;
  if (*paths.lines == '\0') return drawn;
  for (const int side : {16, 24, 32, 48, 64}) drawn.addPixmap(draw(paths, side));
  return drawn;
}

QIcon drawnIcon(Icon icon) {
  for (const Drawing& drawing : kDrawings)
    if (drawing.icon == icon) return drawnIcon(drawing.paths);
  return {};
}

}  // namespace kovra::desktop
