// The program's main window.
#pragma once
#include <QMainWindow>
#include <QString>

class QPlainTextEdit;

namespace kovra::desktop {

class DrawingView;
class WindowMirror;

/// Tabs of drawings, the view, the command line, menus and bars around them.
class MainWindow : public QMainWindow {
 public:
  MainWindow();
  ~MainWindow() override;

  DrawingView& view() { return *view_; }
  WindowMirror& mirror() { return *mirror_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void showTranscript(std::string_view utf8);

  DrawingView* view_ = nullptr;
  QPlainTextEdit* transcript_ = nullptr;
  std::unique_ptr<WindowMirror> mirror_;
};

}  // namespace kovra::desktop
