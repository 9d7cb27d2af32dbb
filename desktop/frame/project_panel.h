// The current project's drawings.
#pragma once
#include <QTreeWidget>
#include <cstdint>
#include <functional>
#include <string>

namespace kovra::desktop {

/// A tree of the project's drawings, in their folders; a double click or Enter opens one.
class ProjectPanel : public QTreeWidget {
 public:
  /// `open` is called as an act of the input queue.
  ProjectPanel(QWidget* parent, std::function<void(const QString&)> open);
  /// Before each wait: reads the project anew when another one is current, and shows which drawings
  /// are open.
  void refresh(const QStringList& openFiles);

 private:
  void fill();
  QTreeWidgetItem* folderItem(const QString& folder);

  std::uint64_t shownGeneration_ = ~std::uint64_t{0};
  QStringList openFiles_;
};

}  // namespace kovra::desktop
