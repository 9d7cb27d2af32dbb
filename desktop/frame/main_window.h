// The program's main window.
#pragma once
#include <QMainWindow>
#include <QStringList>
#include <memory>

#include "platform/arx/editor/host_api.h"

namespace kovra::desktop {

class Autosave;
class CommandLine;
class DiskWatch;
class DrawingFiles;
class DrawingTabs;
class DrawingView;
class Menus;
class ProjectPanel;
class StatusFields;
class WindowMirror;

/// Tabs of drawings, the view, the command line, menus and bars around them.
class MainWindow : public QMainWindow {
 public:
  MainWindow();
  ~MainWindow() override;

  DrawingView& view() { return *view_; }
  WindowMirror& mirror() { return *mirror_; }
  DrawingFiles& files() { return *files_; }

  /// Opens these, or a new drawing when none can be, and offers what a killed run left behind. To
  /// be called once, when the window shows.
  void begin(const std::vector<std::filesystem::path>& drawings);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void placeParts();
  void placePanels();
  void restorePlaces();
  void keepPlaces();
  void refresh();
  void noteNew(const std::vector<arx::host::DrawingInfo>& drawings);
  void activate(arx::host::DrawingId id);
  void selectAll();
  void quit();
  void sayChanges();
  void sayChanged(arx::host::DrawingId id);
  void offerRecovery();

  DrawingView* view_ = nullptr;
  DrawingTabs* tabs_ = nullptr;
  CommandLine* commandLine_ = nullptr;
  ProjectPanel* project_ = nullptr;
  std::unique_ptr<WindowMirror> mirror_;
  std::unique_ptr<DrawingFiles> files_;
  std::unique_ptr<DiskWatch> watch_;
  std::unique_ptr<Autosave> autosave_;
  std::unique_ptr<Menus> menus_;
  std::unique_ptr<StatusFields> status_;
  arx::host::DrawingId newest_ = 0;  // of the drawings that were seen
  std::size_t drawings_ = 0;
  bool quitting_ = false;
  std::vector<arx::host::DrawingId> changed_;  // on disk, not yet said
};

}  // namespace kovra::desktop
