// The menu bar and the toolbar.
#pragma once
#include <QString>
#include <functional>
#include <vector>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace kovra::desktop {

struct Command;

/// What the menus do beside typing commands; each is called as an act of the input queue.
struct MenuHands {
  std::function<void()> newDrawing, open, save, saveAs, saveAll, plot, close, quit;
  std::function<void()> openProject, closeProject;
  std::function<void()> extents, zoomIn, zoomOut, zoomWindow;
  std::function<void()> selectAll, help, about;
  std::function<void(const QString&)> openRecent, openRecentProject;
};

/// Menus with access keys and shortcuts. What can't be done now is greyed.
class Menus {
 public:
  Menus(QMainWindow& window, MenuHands hands);
  /// Adds an entry that shows and hides a panel to the View menu.
  void addPanel(QAction* toggle);
  /// Greys what can't be done now, names the steps of undo. Before each wait.
  void refresh();

 private:
  enum class Needs { kNothing, kNoDialog, kDrawing, kUndo, kRedo, kProject };
  struct Entry;

  QAction* add(QMenu* menu, const Entry& entry, std::function<void()> act);
  QAction* addCommand(QMenu* menu, const Command& command);
  void connect(QAction* action, Needs needs, std::function<void()> act);
  void addRecent(QMenu* menu, bool projects);
  void fillFile(QMenu* menu);
  void fillEdit(QMenu* menu);
  void fillView(QMenu* menu);
  void fillText(QMenu* menu);
  void fillProject(QMenu* menu);
  void fillHelp(QMenu* menu);

  QMainWindow& window_;
  MenuHands hands_;
  QToolBar* toolbar_ = nullptr;
  QMenu* view_ = nullptr;
  QAction* undo_ = nullptr;
  QAction* redo_ = nullptr;
  std::vector<std::pair<QAction*, Needs>> needs_;
};

}  // namespace kovra::desktop
