#include "desktop/mirror/native_answers.h"

#include <QClipboard>
#include <QCursor>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <map>
#include <utility>

#include "desktop/loop/input_queue.h"
#include "desktop/loop/texts.h"
#include "desktop/loop/worded.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/messages.h"
#include "platform/win/base/run_settings.h"

namespace kovra::desktop {
namespace {

QString buttonText(int button) {
  static const std::map<int, Worded> kTexts = {
      {IDOK, {"OK", "OK"}},
      {IDCANCEL, {"Cancel", "キャンセル"}},
      {IDABORT, {"&Abort", "中止(&A)"}},
      {IDRETRY, {"&Retry", "再試行(&R)"}},
      {IDIGNORE, {"&Ignore", "無視(&I)"}},
      {IDYES, {"&Yes", "はい(&Y)"}},
      {IDNO, {"&No", "いいえ(&N)"}},
  };
  const auto found = kTexts.find(button);
  return found != kTexts.end() ? found->second.text() : QString::number(button);
}

/// Every field's own menu reads as the desktop's does.
QString menuText(const win::MenuItem& item) {
  static const std::map<UINT_PTR, Worded> kTexts = {
      {WM_UNDO, {"&Undo", "元に戻す(&U)"}}, {WM_CUT, {"Cu&t", "切り取り(&T)"}},
      {WM_COPY, {"&Copy", "コピー(&C)"}},   {WM_PASTE, {"&Paste", "貼り付け(&P)"}},
      {WM_CLEAR, {"&Delete", "削除(&D)"}},  {EM_SETSEL, {"Select &All", "すべて選択(&A)"}},
  };
  const auto found = kTexts.find(item.id);
  const bool known = found != kTexts.end() && toQt(item.text) == QString(found->second.english);
  return known ? found->second.text() : toQt(item.text);
}

QMessageBox::Icon iconOf(unsigned style) {
  constexpr unsigned kIconMask = 0xF0;
  switch (style & kIconMask) {
    case MB_ICONERROR:
      return QMessageBox::Critical;
    case MB_ICONQUESTION:
      return QMessageBox::Question;
    case MB_ICONEXCLAMATION:
      return QMessageBox::Warning;
    case MB_ICONINFORMATION:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

/// The button that the style makes the default one, counted from 0.
std::size_t defaultButton(unsigned style) {
  constexpr unsigned kDefaultMask = 0xF00, kDefaultShift = 8;
  return (style & kDefaultMask) >> kDefaultShift;
}

int askBox(const win::MessageBoxRequest& request, QWidget* owner) {
  QMessageBox box(owner);
  box.setObjectName(QStringLiteral("message-box"));
  box.setIcon(iconOf(request.style));
  box.setWindowTitle(toQt(request.caption));
  box.setTextFormat(Qt::PlainText);
  box.setText(toQt(request.text));
  std::map<QAbstractButton*, int> buttons;
  for (std::size_t i = 0; i < request.buttons.size(); ++i) {
    const int id = request.buttons[i];
    // Buttons of one role keep their order on every desktop.
    QPushButton* button = box.addButton(buttonText(id), QMessageBox::ActionRole);
    if (const char* name = win::answerName(id)) button->setObjectName(QString::fromUtf8(name));
    buttons[button] = id;
    if (i == defaultButton(request.style)) box.setDefaultButton(button);
    if (id == IDCANCEL || request.buttons.size() == 1) box.setEscapeButton(button);
  }
  box.exec();
  const auto pressed = buttons.find(box.clickedButton());
  return pressed != buttons.end() ? pressed->second : 0;
}

std::vector<std::filesystem::path> askFiles(QWidget* owner) {
  const Worded title{"Choose drawings", "図面の選択"};
  const Worded filter{"Drawings (*.dxf *.DXF)", "図面 (*.dxf *.DXF)"};
  QFileDialog dialog(owner, title.text(),
                     QString::fromStdString(win::runSettings().projectFolder.string()),
                     filter.text());
  dialog.setObjectName(QStringLiteral("file-choice"));
  dialog.setFileMode(QFileDialog::ExistingFiles);
  std::vector<std::filesystem::path> files;
  if (dialog.exec() != QDialog::Accepted) return files;
  for (const QString& file : dialog.selectedFiles()) files.emplace_back(file.toStdString());
  return files;
}

/// Where the cursor is, or below the widget that has the focus when a key has brought the menu up.
QPoint menuPlace(const QWidget* focused) {
  const QPoint cursor = QCursor::pos();
  if (focused == nullptr) return cursor;
  const QRect room(focused->mapToGlobal(QPoint()), focused->size());
  return room.contains(cursor) ? cursor : room.center();
}

int askMenu(const std::vector<win::MenuItem>& items, QWidget* owner) {
  QMenu menu(owner);
  menu.setObjectName(QStringLiteral("menu"));
  std::map<const QAction*, int> positions;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const win::MenuItem& item = items[i];
    QAction* action =
        (item.flags & MF_SEPARATOR) != 0 ? menu.addSeparator() : menu.addAction(menuText(item));
    action->setEnabled((item.flags & (MF_GRAYED | MF_DISABLED)) == 0);
    action->setCheckable((item.flags & MF_CHECKED) != 0);
    action->setChecked((item.flags & MF_CHECKED) != 0);
    positions[action] = static_cast<int>(i);
  }
  const QAction* chosen = menu.exec(menuPlace(owner != nullptr ? owner->focusWidget() : nullptr));
  return chosen != nullptr ? positions[chosen] : -1;
}

std::optional<std::wstring> nativeClipboard() {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  if (data == nullptr || !data->hasText()) return std::nullopt;
  // Lines end there as they do in the fields of the windows in memory.
  QString text = data->text();
  text.remove(QLatin1Char('\r'));
  return fromQt(text.replace(QLatin1Char('\n'), QStringLiteral("\r\n")));
}

}  // namespace

NativeAnswers::NativeAnswers(std::function<QWidget*()> owner)
    : owner_(std::move(owner)),
      menus_([this](const std::vector<win::MenuItem>& items) { return askMenu(items, owner_()); }) {
  win::Interaction& interaction = win::interaction();
  interaction.setBoxAsker(
      [this](const win::MessageBoxRequest& box) { return askBox(box, owner_()); }, true);
  interaction.setFileChooser([this] { return askFiles(owner_()); });
  clipboard_ = nativeClipboard();
  interaction.setClipboard(clipboard_);
  const auto connection =
      QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, [this] {
        inputQueue().add([this] {
          if (const auto text = nativeClipboard(); text != clipboard_) {
            clipboard_ = text;
            win::interaction().setClipboard(text);
          }
        });
      });
  disconnect_ = [connection] { QObject::disconnect(connection); };
}

NativeAnswers::~NativeAnswers() {
  disconnect_();
  win::interaction().setBoxAsker({});
  win::interaction().setFileChooser({});
}

void NativeAnswers::followClipboard() {
  const std::optional<std::wstring>& text = win::interaction().clipboard();
  if (text == clipboard_) return;
  clipboard_ = text;
  if (!text) return QGuiApplication::clipboard()->clear();
  // Grids copy with line feeds alone, fields with both characters.
  QString native = toQt(*text);
  QGuiApplication::clipboard()->setText(native.remove(QLatin1Char('\r')));
}

}  // namespace kovra::desktop
