#include "desktop/frame/main_window.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QPlainTextEdit>

#include "desktop/loop/input_queue.h"
#include "desktop/mirror/window_mirror.h"
#include "desktop/view/drawing_view.h"
#include "platform/win/base/interaction.h"

namespace kovra::desktop {

MainWindow::MainWindow() {
  view_ = new DrawingView(this);
  setCentralWidget(view_);
  auto* dock = new QDockWidget(this);
  transcript_ = new QPlainTextEdit(dock);
  transcript_->setReadOnly(true);
  dock->setWidget(transcript_);
  addDockWidget(Qt::BottomDockWidgetArea, dock);
  mirror_ = std::make_unique<WindowMirror>(this);
  win::interaction().setTranscript([this](std::string_view text) { showTranscript(text); });
  inputQueue().beforeWaiting([this] {
    mirror_->refresh();
    view_->refresh();
  });
}

MainWindow::~MainWindow() {
  win::interaction().setTranscript({});
}

void MainWindow::showTranscript(std::string_view utf8) {
  transcript_->moveCursor(QTextCursor::End);
  transcript_->insertPlainText(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
  transcript_->ensureCursorVisible();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  inputQueue().end();
  event->accept();
}

}  // namespace kovra::desktop
