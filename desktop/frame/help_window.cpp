#include "desktop/frame/help_window.h"

#include <QCoreApplication>
#include <QDir>
#include <QMainWindow>
#include <QMessageBox>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QTextBrowser>
#include <QToolBar>
#include <algorithm>

#include "desktop/frame/captions.h"
#include "desktop/frame/icons.h"
#include "launch/version.h"
#include "platform/win/base/run_settings.h"

namespace kovra::desktop {
namespace {

/// Installed beside the program, or in the tree that it was built in; empty when neither is there.
QString docsFolder() {
  const QDir program(QCoreApplication::applicationDirPath());
  for (const char* place : {"../share/doc/kovra/docs", "../../../docs"}) {
    const QString folder = program.filePath(QLatin1String(place));
    if (QFile::exists(folder + QStringLiteral("/desktop.md"))) return QDir::cleanPath(folder);
  }
  return {};
}

QString firstPage(const QString& folder) {
  const bool japanese = win::runSettings().language == win::Language::japanese;
  const QString own = folder + QStringLiteral("/desktop.ja.md");
  return japanese && QFile::exists(own) ? own : folder + QStringLiteral("/desktop.md");
}

void fillHelp(QMainWindow& window, const QString& page) {
  window.setAttribute(Qt::WA_DeleteOnClose);
  window.setWindowTitle(sayPlain(Caption::kHelpMenu));
  auto* browser = new QTextBrowser(&window);
  browser->setOpenExternalLinks(true);
  browser->setSource(QUrl::fromLocalFile(page), QTextDocument::MarkdownResource);
  window.setCentralWidget(browser);
  QToolBar* bar = window.addToolBar(window.windowTitle());
  const auto add = [&](QStyle::StandardPixmap icon, Caption caption, QKeySequence key, auto act) {
    QAction* action =
        bar->addAction(window.style()->standardIcon(icon), sayPlain(caption), browser, act);
    action->setShortcut(key);
    return action;
  };
  QAction* back =
      add(QStyle::SP_ArrowBack, Caption::kBack, QKeySequence::Back, &QTextBrowser::backward);
  QAction* forward = add(QStyle::SP_ArrowForward, Caption::kForward, QKeySequence::Forward,
                         &QTextBrowser::forward);
  // Of the usual icons none shows a first page.
  bar->addAction(sayPlain(Caption::kHelpContents), QKeySequence(Qt::ALT | Qt::Key_Home), browser,
                 &QTextBrowser::home);
  back->setEnabled(false);
  forward->setEnabled(false);
  QObject::connect(browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  QObject::connect(browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
  new QShortcut(QKeySequence::Cancel, &window, &window, &QWidget::close);
}

/// In the middle of the other one, as far as the screen has room.
void placeOver(QWidget& window, const QWidget& other) {
  const QRect screen = other.screen()->availableGeometry();
  window.resize(QSize(900, 700).boundedTo(screen.size()));
  QRect place(QPoint(), window.size());
  place.moveCenter(other.frameGeometry().center());
  window.move(std::max(place.left(), screen.left()), std::max(place.top(), screen.top()));
}

}  // namespace

void showHelp(QWidget* parent) {
  const QString folder = docsFolder();
  if (folder.isEmpty()) {
    QMessageBox::information(parent, QStringLiteral("Kovra"), say(Caption::kNoHelp));
    return;
  }
  const QString name = QStringLiteral("help");
  auto* window = parent->findChild<QMainWindow*>(name, Qt::FindDirectChildrenOnly);
  if (window == nullptr) {
    window = new QMainWindow(parent);
    window->setObjectName(name);
    fillHelp(*window, firstPage(folder));
    placeOver(*window, *parent);
  }
  window->show();
  window->raise();
  window->activateWindow();
}

void showAbout(QWidget* parent) {
  QMessageBox box(parent);
  box.setWindowTitle(sayPlain(Caption::kAbout));
  box.setIconPixmap(drawnIcon(Icon::kProgram).pixmap(64));
  box.setText(QStringLiteral("<b>Kovra</b> %1").arg(QString::fromUtf8(launch::versionText())));
  box.setInformativeText(say(Caption::kAboutText));
  box.exec();
}

}  // namespace kovra::desktop
