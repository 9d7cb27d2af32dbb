#include "desktop/frame/drawing_tabs.h"

#include <QMouseEvent>
#include <QScopedValueRollback>

#include "desktop/loop/input_queue.h"
#include "desktop/loop/texts.h"

namespace kovra::desktop {

using arx::host::DrawingId;
using arx::host::DrawingInfo;

DrawingTabs::DrawingTabs(QWidget* parent, Choose activate, Choose close)
    : QTabBar(parent), activate_(std::move(activate)), close_(std::move(close)) {
  setObjectName(QStringLiteral("drawings"));
  setDocumentMode(true);
  setTabsClosable(true);
  setExpanding(false);
  setUsesScrollButtons(true);
  connect(this, &QTabBar::currentChanged, this, [this](int tab) {
    if (following_ || tab < 0) return;
    inputQueue().add([this, id = drawingAt(tab)] { activate_(id); });
  });
  connect(this, &QTabBar::tabCloseRequested, this, [this](int tab) { askToClose(tab); });
}

DrawingId DrawingTabs::drawingAt(int tab) const {
  return tabData(tab).toUInt();
}

void DrawingTabs::askToClose(int tab) {
  if (tab >= 0) inputQueue().add([this, id = drawingAt(tab)] { close_(id); });
}

void DrawingTabs::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) askToClose(tabAt(event->position().toPoint()));
  QTabBar::mouseReleaseEvent(event);
}

void DrawingTabs::refresh(const std::vector<DrawingInfo>& drawings) {
  const QScopedValueRollback<bool> following(following_, true);
  const auto isOpen = [&drawings](DrawingId id) {
    return std::any_of(drawings.begin(), drawings.end(),
                       [id](const DrawingInfo& drawing) { return drawing.id == id; });
  };
  for (int tab = count(); tab-- > 0;)
    if (!isOpen(drawingAt(tab))) removeTab(tab);
  // The editor's drawings keep their order, new ones come behind the others.
  for (int tab = 0; tab < static_cast<int>(drawings.size()); ++tab) {
    const DrawingInfo& drawing = drawings[static_cast<std::size_t>(tab)];
    if (tab == count()) setTabData(addTab(QString()), drawing.id);
    QString title = toQt(drawing.title);
    title.replace(QLatin1Char('&'), QLatin1String("&&"));
    if (drawing.modified) title += QLatin1Char('*');
    if (tabText(tab) != title) setTabText(tab, title);
    const QString path = QString::fromStdString(drawing.file.string());
    if (tabToolTip(tab) != path) setTabToolTip(tab, path);
    if (drawing.id == arx::host::currentDrawing()) setCurrentIndex(tab);
  }
}

}  // namespace kovra::desktop
