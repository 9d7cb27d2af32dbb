#include "desktop/frame/menus.h"

#include <QAction>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <map>

#include "desktop/frame/captions.h"
#include "desktop/frame/commands.h"
#include "desktop/frame/icons.h"
#include "desktop/frame/settings.h"
#include "desktop/frame/unwinding.h"
#include "desktop/loop/input_queue.h"
#include "desktop/loop/texts.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/run_settings.h"

namespace kovra::desktop {
namespace {

namespace editor = arx::host;

}  // namespace

struct Menus::Entry {
  Caption caption;
  Icon icon = Icon::kNone;
  QKeySequence keys{};
  Needs needs = Needs::kNoDialog;
  bool onToolBar = false;
};

Menus::Menus(QMainWindow& window, MenuHands hands) : window_(window), hands_(std::move(hands)) {
  toolbar_ = window.addToolBar(sayPlain(Caption::kToolBar));
  toolbar_->setObjectName(QStringLiteral("toolbar"));
  toolbar_->setIconSize({24, 24});
  const auto menu = [&window](Caption caption) { return window.menuBar()->addMenu(say(caption)); };
  fillFile(menu(Caption::kFileMenu));
  fillEdit(menu(Caption::kEditMenu));
  fillView(menu(Caption::kViewMenu));
  fillText(menu(Caption::kTextMenu));
  fillProject(menu(Caption::kProjectMenu));
  fillHelp(menu(Caption::kHelpMenu));
  refresh();
}

QAction* Menus::add(QMenu* menu, const Entry& entry, std::function<void()> act) {
  QAction* action = menu->addAction(drawnIcon(entry.icon), say(entry.caption));
  action->setShortcut(entry.keys);
  action->setToolTip(sayPlain(entry.caption));
  connect(action, entry.needs, std::move(act));
  if (entry.onToolBar) toolbar_->addAction(action);
  return action;
}

void Menus::connect(QAction* action, Needs needs, std::function<void()> act) {
  QObject::connect(action, &QAction::triggered, action, [act] { inputQueue().add(act); });
  needs_.emplace_back(action, needs);
}

QAction* Menus::addCommand(QMenu* menu, const Command& command) {
  QAction* action = menu->addAction(drawnIcon(command.icon), command.title.text());
  const QString name = toQt(command.name);
  action->setObjectName(name);
  action->setToolTip(QStringLiteral("%1 (%2)").arg(commandTitle(command.name), name));
  connect(action, Needs::kDrawing, [name = command.name] { runCommand(name); });
  return action;
}

void Menus::addRecent(QMenu* menu, bool projects) {
  QMenu* recent =
      menu->addMenu(say(projects ? Caption::kRecentProjects : Caption::kRecentDrawings));
  QObject::connect(recent, &QMenu::aboutToShow, recent, [this, recent, projects] {
    recent->clear();
    int number = 0;
    for (const QString& name : recentNames(projects ? Recent::kProjects : Recent::kDrawings)) {
      QString shown = name;
      shown.replace(QLatin1Char('&'), QLatin1String("&&"));
      QAction* action = recent->addAction(QStringLiteral("&%1 %2").arg(++number).arg(shown));
      action->setEnabled(QFileInfo::exists(name));
      const auto& open = projects ? hands_.openRecentProject : hands_.openRecent;
      QObject::connect(action, &QAction::triggered, action,
                       [&open, name] { inputQueue().add([&open, name] { open(name); }); });
    }
  });
}

void Menus::fillFile(QMenu* menu) {
  add(menu, {Caption::kNew, Icon::kNew, QKeySequence::New, Needs::kNoDialog, true},
      hands_.newDrawing);
  add(menu, {Caption::kOpen, Icon::kOpen, QKeySequence::Open, Needs::kNoDialog, true}, hands_.open);
  addRecent(menu, false);
  menu->addSeparator();
  add(menu, {Caption::kSave, Icon::kSave, QKeySequence::Save, Needs::kDrawing, true}, hands_.save);
  add(menu,
      {Caption::kSaveAs, Icon::kNone, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
       Needs::kDrawing},
      hands_.saveAs);
  add(menu, {Caption::kSaveAll, Icon::kNone, {}, Needs::kDrawing}, hands_.saveAll);
  add(menu, {Caption::kPlot, Icon::kPlot, QKeySequence::Print, Needs::kDrawing, true}, hands_.plot);
  menu->addSeparator();
  add(menu, {Caption::kClose, Icon::kNone, QKeySequence(Qt::CTRL | Qt::Key_W), Needs::kDrawing},
      hands_.close);
  add(menu, {Caption::kQuit, Icon::kNone, QKeySequence(Qt::CTRL | Qt::Key_Q), Needs::kNothing},
      hands_.quit);
  toolbar_->addSeparator();
}

void Menus::fillEdit(QMenu* menu) {
  undo_ = add(menu, {Caption::kUndo, Icon::kUndo, QKeySequence::Undo, Needs::kUndo, true},
              [] { runCommand(L"U"); });
  redo_ =
      add(menu, {Caption::kRedo, Icon::kRedo, {}, Needs::kRedo, true}, [] { runCommand(L"REDO"); });
  redo_->setShortcuts(
      {QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
  undo_->setObjectName(QStringLiteral("undo"));
  redo_->setObjectName(QStringLiteral("redo"));
  menu->addSeparator();
  addCommand(menu, *findCommand(L"ERASE"))->setShortcut(QKeySequence::Delete);
  addCommand(menu, *findCommand(L"MOVE"));
  menu->addSeparator();
  add(menu, {Caption::kSelectAll, Icon::kNone, QKeySequence::SelectAll, Needs::kDrawing},
      hands_.selectAll);
  toolbar_->addSeparator();
}

void Menus::fillView(QMenu* menu) {
  view_ = menu;
  add(menu,
      {Caption::kExtents, Icon::kExtents, QKeySequence(Qt::CTRL | Qt::Key_0), Needs::kDrawing,
       true},
      hands_.extents);
  if (hands_.zoomWindow)
    add(menu, {Caption::kZoomWindow, Icon::kNone, {}, Needs::kDrawing}, hands_.zoomWindow);
  if (hands_.zoomIn) {
    add(menu, {Caption::kZoomIn, Icon::kZoomIn, QKeySequence::ZoomIn, Needs::kDrawing, true},
        hands_.zoomIn);
    add(menu, {Caption::kZoomOut, Icon::kZoomOut, QKeySequence::ZoomOut, Needs::kDrawing, true},
        hands_.zoomOut);
  }
  addCommand(menu, *findCommand(L"REGEN"));
  menu->addSeparator();
  QAction* toolbar = toolbar_->toggleViewAction();
  toolbar->setText(say(Caption::kToolBar));
  menu->addAction(toolbar);
  toolbar_->addSeparator();
}

void Menus::fillText(QMenu* menu) {
  for (const Command& command : textCommands()) {
    const bool options = std::wstring_view(command.name) == L"KOVRA_OPTIONS";
    if (options) menu->addSeparator();
    if (options) toolbar_->addSeparator();
    toolbar_->addAction(addCommand(menu, command));
  }
}

void Menus::fillProject(QMenu* menu) {
  add(menu, {Caption::kOpenProject, Icon::kOpen, {}, Needs::kNoDialog}, hands_.openProject);
  addRecent(menu, true);
  add(menu, {Caption::kCloseProject, Icon::kNone, {}, Needs::kProject}, hands_.closeProject);
}

void Menus::fillHelp(QMenu* menu) {
  add(menu, {Caption::kHelpContents, Icon::kHelp, QKeySequence::HelpContents, Needs::kNothing},
      hands_.help);
  add(menu, {Caption::kAbout, Icon::kNone, {}, Needs::kNothing}, hands_.about);
}

void Menus::addPanel(QAction* toggle) {
  view_->addAction(toggle);
}

void Menus::refresh() {
  const bool dialog = editor::topWait().modalOnTop;
  const bool drawing = !dialog && editor::currentDrawing() != 0;
  const std::optional<std::wstring> undo = editor::undoName(), redo = editor::redoName();
  const std::map<Needs, bool> met = {{Needs::kNothing, true},
                                     {Needs::kNoDialog, !dialog},
                                     {Needs::kDrawing, drawing},
                                     {Needs::kUndo, drawing && undo},
                                     {Needs::kRedo, drawing && redo},
                                     {Needs::kProject, !win::runSettings().projectFolder.empty()}};
  // Once each: an action that is switched to and fro asks for a new layout, and so for a refresh.
  for (const auto& [action, needs] : needs_) action->setEnabled(met.at(needs));
  const auto nameStep = [](QAction* action, Caption plain, Caption named,
                           const std::optional<std::wstring>& step) {
    const bool hasName = step && !step->empty();
    action->setText(hasName ? say(named).arg(commandTitle(*step)) : say(plain));
    action->setToolTip(withoutKey(action->text()));
  };
  nameStep(undo_, Caption::kUndo, Caption::kUndoNamed, undo);
  nameStep(redo_, Caption::kRedo, Caption::kRedoNamed, redo);
}

}  // namespace kovra::desktop
