#include "desktop/frame/help_window.h"

#include <QCoreApplication>
#include <QDir>
#include <QMainWindow>
#include <QMessageBox>
#include <QStyle>
#include <QTextBrowser>
#include <QToolBar>

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

}  // namespace

void showHelp(QWidget* parent) {
  const QString folder = docsFolder();
  if (folder.isEmpty()) {
    QMessageBox::information(parent, QStringLiteral("Kovra"), say(Caption::kNoHelp));
    return;
  }
  auto* window = new QMainWindow(parent);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWindowTitle(sayPlain(Caption::kHelpMenu));
  auto* browser = new QTextBrowser(window);
  browser->setOpenExternalLinks(true);
  browser->setSource(QUrl::fromLocalFile(firstPage(folder)), QTextDocument::MarkdownResource);
  window->setCentralWidget(browser);
  QToolBar* bar = window->addToolBar(window->windowTitle());
  QStyle* style = window->style();
  QAction* back = bar->addAction(style->standardIcon(QStyle::SP_ArrowBack), {}, browser,
                                 &QTextBrowser::backward);
  back->setShortcut(QKeySequence::Back);
  QAction* forward = bar->addAction(style->standardIcon(QStyle::SP_ArrowForward), {}, browser,
                                    &QTextBrowser::forward);
  forward->setShortcut(QKeySequence::Forward);
  QAction* home =
      bar->addAction(style->standardIcon(QStyle::SP_DirHomeIcon), {}, browser, &QTextBrowser::home);
  home->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Home));
  window->resize(900, 700);
  window->show();
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
