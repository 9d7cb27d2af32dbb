#include "desktop/frame/main_window.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QMimeData>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

#include "desktop/frame/autosave.h"
#include "desktop/frame/captions.h"
#include "desktop/frame/command_line.h"
#include "desktop/frame/disk_watch.h"
#include "desktop/frame/drawing_files.h"
#include "desktop/frame/drawing_tabs.h"
#include "desktop/frame/help_window.h"
#include "desktop/frame/icons.h"
#include "desktop/frame/menus.h"
#include "desktop/frame/project_panel.h"
#include "desktop/frame/questions.h"
#include "desktop/frame/settings.h"
#include "desktop/frame/status_fields.h"
#include "desktop/frame/unwinding.h"
#include "desktop/loop/input_queue.h"
#include "desktop/loop/texts.h"
#include "desktop/mirror/window_mirror.h"
#include "desktop/view/drawing_view.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/run_settings.h"

namespace kovra::desktop {

namespace editor = arx::host;
using editor::DrawingId;
using editor::DrawingInfo;

namespace {

/// Raised when the panels change, so that old places aren't taken for them.
constexpr int kPlacesVersion = 1;
/// Of the menu's zoom.
constexpr double kZoomStep = 1.5;

/// Lays an act ready while a wait is being prepared: the timer ends that wait.
void addLater(InputQueue::Act act) {
  QTimer::singleShot(0, [act] { inputQueue().add(act); });
}

QDockWidget* makePanel(QMainWindow& window, QWidget* content, Caption title, const char* name) {
  auto* dock = new QDockWidget(say(title), &window);
  dock->setObjectName(QLatin1String(name));
  dock->setWidget(content);
  return dock;
}

}  // namespace

MainWindow::MainWindow() {
  setWindowIcon(drawnIcon(Icon::kProgram));
  setAcceptDrops(true);
  watch_ = std::make_unique<DiskWatch>([this](DrawingId id) { changed_.push_back(id); });
  files_ = std::make_unique<DrawingFiles>(*this, [this](DrawingId id) { watch_->noteOwn(id); });
  autosave_ = std::make_unique<Autosave>();
  placeParts();
  placePanels();
  restorePlaces();
  mirror_ = std::make_unique<WindowMirror>(this);
  win::interaction().setTranscript([this](std::string_view text) { commandLine_->show(text); });
  inputQueue().beforeWaiting([this] { refresh(); });
}

MainWindow::~MainWindow() {
  win::interaction().setTranscript({});
}

void MainWindow::placeParts() {
  auto* middle = new QWidget(this);
  tabs_ = new DrawingTabs(
      middle, [this](DrawingId id) { activate(id); }, [this](DrawingId id) { files_->close(id); });
  view_ = new DrawingView(middle);
  auto* layout = new QVBoxLayout(middle);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(tabs_);
  layout->addWidget(view_, 1);
  setCentralWidget(middle);
  const auto current = [] { return editor::currentDrawing(); };
  MenuHands hands;
  hands.newDrawing = [this] { files_->openNew(); };
  hands.open = [this] { files_->chooseAndOpen(); };
  hands.save = [this, current] { files_->save(current()); };
  hands.saveAs = [this, current] { files_->saveAs(current()); };
  hands.saveAll = [this] { files_->saveAll(); };
  hands.plot = [this] { files_->plot(); };
  hands.close = [this, current] { files_->close(current()); };
  hands.quit = [this] { quit(); };
  hands.openProject = [this] { files_->chooseProject(); };
  hands.closeProject = [] { openProject({}); };
  hands.extents = [this] { view_->zoomToExtents(); };
  hands.zoomIn = [this] { view_->zoomBy(kZoomStep, QRectF(view_->rect()).center()); };
  hands.zoomOut = [this] { view_->zoomBy(1 / kZoomStep, QRectF(view_->rect()).center()); };
  hands.zoomWindow = [this] { view_->startZoomWindow(); };
  hands.selectAll = [this] { selectAll(); };
  hands.help = [this] { showHelp(this); };
  hands.about = [this] { showAbout(this); };
  hands.openRecent = [this](const QString& name) { files_->open(name); };
  hands.openRecentProject = [](const QString& name) { openProject(name); };
  menus_ = std::make_unique<Menus>(*this, std::move(hands));
  status_ = std::make_unique<StatusFields>(*statusBar(), *view_);
}

void MainWindow::placePanels() {
  commandLine_ = new CommandLine(this);
  view_->setKeyHandler([this](QKeyEvent* event) { return commandLine_->takeKey(event); });
  QDockWidget* below = makePanel(*this, commandLine_, Caption::kCommandLine, "commandLine");
  addDockWidget(Qt::BottomDockWidgetArea, below);
  project_ = new ProjectPanel(this, [this](const QString& file) { files_->open(file); });
  QDockWidget* left = makePanel(*this, project_, Caption::kProject, "project");
  addDockWidget(Qt::LeftDockWidgetArea, left);
  left->setVisible(!win::runSettings().projectFolder.empty());
  resizeDocks({below}, {150}, Qt::Vertical);
  resizeDocks({left}, {220}, Qt::Horizontal);
  menus_->addPanel(below->toggleViewAction());
  menus_->addPanel(left->toggleViewAction());
}

void MainWindow::restorePlaces() {
  resize(1280, 800);
  const auto settings = openSettings();
  restoreGeometry(settings->value(QStringLiteral("window/geometry")).toByteArray());
  restoreState(settings->value(QStringLiteral("window/panels")).toByteArray(), kPlacesVersion);
}

void MainWindow::keepPlaces() {
  const auto settings = openSettings();
  settings->setValue(QStringLiteral("window/geometry"), saveGeometry());
  settings->setValue(QStringLiteral("window/panels"), saveState(kPlacesVersion));
}

void MainWindow::begin(const std::vector<std::filesystem::path>& drawings) {
  for (const std::filesystem::path& drawing : drawings)
    inputQueue().add([this, drawing] { files_->open(QString::fromStdString(drawing.string())); });
  inputQueue().add([this] { offerRecovery(); });
  inputQueue().add([this] {
    if (editor::drawings().empty()) files_->openNew();
  });
  commandLine_->setFocus();
}

void MainWindow::offerRecovery() {
  const std::vector<KeptCopy> left = autosave_->leftBehind();
  if (left.empty()) return;
  QStringList names;
  for (const KeptCopy& kept : left) {
    QString name =
        kept.file.isEmpty() ? kept.title + QLatin1Char(' ') + say(Caption::kUntitled) : kept.file;
    name += QStringLiteral(" (%1)").arg(kept.time);
    if (kept.stale) name += QStringLiteral(" - ") + say(Caption::kRecoverStale);
    names.append(name);
  }
  const Recovery wanted = askRecovery(this, names);
  for (const KeptCopy& kept : left) {
    if (wanted == Recovery::kDiscard) Autosave::discard(kept);
    if (wanted != Recovery::kRecover) continue;
    if (const auto recovered = autosave_->recover(kept); !recovered)
      tellFailure(this, say(Caption::kCannotOpen), recovered.error().message);
  }
}

void MainWindow::refresh() {
  const std::vector<DrawingInfo> drawings = editor::drawings();
  noteNew(drawings);
  mirror_->refresh();
  view_->refresh();
  tabs_->refresh(drawings);
  commandLine_->refresh();
  menus_->refresh();
  status_->refresh();
  watch_->follow(drawings);
  sayChanges();
  autosave_->follow(drawings);
  QStringList open;
  QString title = QStringLiteral("Kovra");
  bool modified = false;
  for (const DrawingInfo& drawing : drawings) {
    if (!drawing.file.empty())
      open.append(QString::fromStdString(std::filesystem::absolute(drawing.file).string()));
    if (drawing.id != editor::currentDrawing()) continue;
    title = toQt(drawing.title) + QStringLiteral("[*] - Kovra");
    modified = drawing.modified;
  }
  setWindowTitle(title);
  // Told anew each time, the desktop answers with an event, and the next refresh would follow.
  if (editor::currentDrawing() != 0 && isWindowModified() != modified) setWindowModified(modified);
  project_->refresh(open);
}

void MainWindow::noteNew(const std::vector<DrawingInfo>& drawings) {
  for (const DrawingInfo& drawing : drawings) {
    if (drawing.id <= newest_) continue;
    newest_ = drawing.id;
    if (!drawing.file.empty())
      noteRecent(Recent::kDrawings, QString::fromStdString(drawing.file.string()));
  }
  // Closing the current drawing leaves none current: the last one follows.
  const bool closed = drawings.size() < drawings_;
  drawings_ = drawings.size();
  if (activatesNext_ && closed && editor::currentDrawing() == 0 && !drawings.empty())
    addLater([this, id = drawings.back().id] { activate(id); });
}

void MainWindow::activate(DrawingId id) {
  if (id == editor::currentDrawing()) return;
  if (const auto done = editor::activateDrawing(id); !done)
    tellFailure(this, say(Caption::kCannotSwitch), done.error().message);
}

void MainWindow::selectAll() {
  const editor::SelectionInput everything{.box = std::nullopt, .handles = {}, .all = true};
  const bool idle = editor::topWait().kind == editor::WaitKind::kIdle;
  const auto selected = idle ? editor::preselect(everything) : editor::select(everything);
  if (!selected) statusBar()->showMessage(QString::fromStdString(selected.error().message), 5000);
}

/// Asks about files that changed on disk, once no command is in the way.
void MainWindow::sayChanges() {
  const editor::Wait wait = editor::topWait();
  if (changed_.empty() || wait.kind != editor::WaitKind::kIdle || wait.modalOnTop) return;
  for (const DrawingId id : std::exchange(changed_, {})) addLater([this, id] { sayChanged(id); });
}

void MainWindow::sayChanged(DrawingId id) {
  const auto drawing = findDrawing(id);
  if (!drawing || !askReload(this, toQt(drawing->title), drawing->modified)) return;
  files_->reload(id);
}

void MainWindow::quit() {
  if (std::exchange(quitting_, true)) return;
  unwindThen([this] {
    quitting_ = files_->mayQuit();
    if (!quitting_) return;
    keepPlaces();
    inputQueue().end();
  });
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (inputQueue().ended()) return event->accept();
  event->ignore();
  inputQueue().add([this] { quit(); });
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_F3:
      return view_->setSnapsToObjects(!view_->snapsToObjects());
    case Qt::Key_F8:
      return status_->toggle(L"ORTHOMODE");
    case Qt::Key_F9:
      return status_->toggle(L"SNAPMODE");
    default:
      if (!commandLine_->takeKey(event)) QMainWindow::keyPressEvent(event);
  }
}

void MainWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ActivationChange && isActiveWindow())
    inputQueue().add([this] { watch_->look(); });
  QMainWindow::changeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  for (const QUrl& url : event->mimeData()->urls()) {
    if (!url.isLocalFile()) continue;
    inputQueue().add([this, file = url.toLocalFile()] { files_->open(file); });
  }
  event->acceptProposedAction();
}

}  // namespace kovra::desktop
