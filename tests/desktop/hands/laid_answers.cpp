#include "tests/desktop/hands/laid_answers.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "desktop/loop/texts.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/messages.h"
#include "platform/win/base/wide_text.h"
#include "tests/desktop/hands/native_input.h"

namespace kovra::test {
namespace {

QAbstractButton* buttonOf(const QMessageBox& box, const char* name) {
  const auto buttons = box.buttons();
  const auto found = std::find_if(buttons.begin(), buttons.end(), [name](const auto* button) {
    return button->objectName() == QLatin1String(name);
  });
  return found != buttons.end() ? *found : nullptr;
}

QAbstractButton* unansweredButton(const QMessageBox& box) {
  for (const char* name : {"cancel", "no"})
    if (QAbstractButton* button = buttonOf(box, name)) return button;
  return box.buttons().back();
}

/// "Cu&t\tCtrl+X" -> "Cut".
QString plainText(const QAction& action) {
  return action.text().section(QLatin1Char('\t'), 0, 0).remove(QLatin1Char('&'));
}

/// Once the loop that the window has been opened from runs.
template <class Widget, class Answer>
void whenShown(QObject* watched, const Answer& answer) {
  if (qobject_cast<Widget*>(watched) == nullptr) return;
  QTimer::singleShot(0, watched, [widget = static_cast<Widget*>(watched), answer] {
    if (widget->isVisible()) answer(*widget);
  });
}

}  // namespace

LaidAnswers::LaidAnswers() {
  qApp->installEventFilter(this);
}

LaidAnswers::~LaidAnswers() {
  qApp->removeEventFilter(this);
}

bool LaidAnswers::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Show) return false;
  whenShown<QMessageBox>(watched, [this](QMessageBox& box) { answerBox(box); });
  whenShown<QFileDialog>(watched, [this](QFileDialog& dialog) { answerFiles(dialog); });
  whenShown<QMenu>(watched, [this](QMenu& menu) { answerMenu(menu); });
  return false;
}

void LaidAnswers::answerBox(QMessageBox& box) {
  // The frame's own questions, which no script knows, are cancelled.
  if (box.objectName() != QLatin1String("message-box")) return box.reject();
  const char* laid = answers.empty() ? nullptr : win::answerName(answers.front());
  QAbstractButton* button = laid != nullptr ? buttonOf(box, laid) : nullptr;
  if (button != nullptr) {
    answers.pop_front();
  } else if (box.buttons().size() == 1) {
    button = box.buttons().front();
  } else {
    const std::string subject = "the message box \"" + box.text().toStdString() + "\" ";
    win::interaction().noteFailure(subject + (laid != nullptr
                                                  ? "has no button \"" + std::string(laid) + "\""
                                                  : "came up, and no answer was queued"));
    if (laid != nullptr) answers.pop_front();
    button = unansweredButton(box);
  }
  clickWidget(button);
}

void LaidAnswers::answerFiles(QFileDialog& dialog) {
  if (files.empty())
    win::interaction().noteFailure("a file choice was asked for, and none was queued");
  if (files.empty() || files.front().empty()) {
    if (!files.empty()) files.pop_front();
    giveFocus(&dialog);
    pressNativeKey({VK_ESCAPE});
    // Without a window that has the keyboard.
    if (dialog.isVisible()) dialog.reject();
    return;
  }
  std::wstring names;
  for (const auto& file : files.front()) names += L'"' + win::fromUtf8(file.string()) + L"\" ";
  files.pop_front();
  if (auto* field = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
    giveFocus(field);
    field->selectAll();
    for (const wchar_t c : names) QTest::keyClick(field, static_cast<char>(c));
    QTest::keyClick(field, Qt::Key_Return);
  }
  if (dialog.isVisible()) dialog.reject();
}

void LaidAnswers::answerMenu(QMenu& menu) {
  if (menu.objectName() != QLatin1String("menu")) return;
  const QString wanted = menuItem ? desktop::toQt(*menuItem) : QString();
  for (QAction* action : menu.actions()) {
    if (!menuItem || !action->isEnabled() || action->isSeparator()) continue;
    if (plainText(*action).compare(wanted, Qt::CaseInsensitive) != 0) continue;
    menuItem.reset();
    return clickWidget(&menu, menu.actionGeometry(action).center());
  }
  pressNativeKey({VK_ESCAPE});
  if (menu.isVisible()) menu.close();
}

}  // namespace kovra::test
