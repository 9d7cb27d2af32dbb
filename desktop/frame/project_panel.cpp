#include "desktop/frame/project_panel.h"

#include <QDir>
#include <QFileInfo>
#include <QHeaderView>

#include "companions/project_listing.h"
#include "desktop/frame/captions.h"
#include "desktop/frame/icons.h"
#include "desktop/loop/input_queue.h"
#include "launch/program_library.h"
#include "platform/win/base/run_settings.h"

namespace kovra::desktop {
namespace {

constexpr int kPathRole = Qt::UserRole;

std::vector<companions::ListedDrawing> listProject() {
  std::vector<companions::ListedDrawing> drawings;
  static_cast<void>(
      launch::withProgramExport("libkovra_companions.so", "kovraListProject",
                                "the project can't be listed", [&drawings](void (*list)()) {
                                  reinterpret_cast<decltype(&kovraListProject)>(list)(drawings);
                                }));
  return drawings;
}

}  // namespace

ProjectPanel::ProjectPanel(QWidget* parent, std::function<void(const QString&)> open)
    : QTreeWidget(parent) {
  setHeaderHidden(true);
  setAccessibleName(say(Caption::kProject));
  connect(this, &QTreeWidget::itemActivated, this, [open](QTreeWidgetItem* item, int) {
    const QString path = item->data(0, kPathRole).toString();
    if (!path.isEmpty()) inputQueue().add([open, path] { open(path); });
  });
}

QTreeWidgetItem* ProjectPanel::folderItem(const QString& folder) {
  QTreeWidgetItem* parent = topLevelItem(0);
  for (const QString& name : folder.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
    if (name == QLatin1String(".")) continue;
    QTreeWidgetItem* found = nullptr;
    for (int i = 0; i < parent->childCount() && found == nullptr; ++i)
      if (parent->child(i)->text(0) == name && parent->child(i)->data(0, kPathRole).isNull())
        found = parent->child(i);
    if (found == nullptr) {
      found = new QTreeWidgetItem(parent, {name});
      found->setIcon(0, drawnIcon(Icon::kOpen));
    }
    parent = found;
  }
  return parent;
}

void ProjectPanel::fill() {
  clear();
  const QString folder = QString::fromStdString(win::runSettings().projectFolder.string());
  auto* root = new QTreeWidgetItem(
      this, {folder.isEmpty() ? say(Caption::kNoProject) : QDir(folder).dirName()});
  root->setToolTip(0, folder);
  if (folder.isEmpty()) return;
  for (const companions::ListedDrawing& drawing : listProject()) {
    const QFileInfo file(QString::fromStdString(drawing.file.string()));
    auto* item = new QTreeWidgetItem(folderItem(QDir(folder).relativeFilePath(file.absolutePath())),
                                     {file.fileName()});
    item->setData(0, kPathRole, file.absoluteFilePath());
    item->setToolTip(0, file.absoluteFilePath());
    item->setIcon(0, drawnIcon(drawing.blocked ? Icon::kLocked : Icon::kNew));
    if (drawing.blocked)
      item->setText(0, item->text(0) + QStringLiteral("  (%1)").arg(say(Caption::kBlocked)));
    if (!file.exists()) {
      item->setText(0, item->text(0) + QStringLiteral("  (%1)").arg(say(Caption::kMissing)));
      item->setDisabled(true);
    }
  }
  expandAll();
}

void ProjectPanel::refresh(const QStringList& openFiles) {
  const bool another = shownGeneration_ != win::runSettings().projectGeneration;
  if (!another && openFiles == openFiles_) return;
  if (another) fill();
  shownGeneration_ = win::runSettings().projectGeneration;
  openFiles_ = openFiles;
  for (QTreeWidgetItemIterator item(this); *item != nullptr; ++item) {
    QFont font = (*item)->font(0);
    font.setBold(openFiles.contains((*item)->data(0, kPathRole).toString()));
    (*item)->setFont(0, font);
  }
}

}  // namespace kovra::desktop
