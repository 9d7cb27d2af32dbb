#include "desktop/frame/questions.h"

#include <QMessageBox>
#include <QPushButton>

#include "desktop/frame/captions.h"

namespace kovra::desktop {
namespace {

constexpr qsizetype kMostShown = 20;

QString listed(const QStringList& drawings) {
  QString text;
  for (const QString& drawing : drawings.mid(0, kMostShown))
    text += QStringLiteral("\n• ") + drawing;
  if (drawings.size() > kMostShown) text += QStringLiteral("\n…");
  return text;
}

/// The place of the button that was pressed; -1 for the close box and Esc without a Cancel.
int ask(QMessageBox& box,
        std::initializer_list<std::pair<Caption, QMessageBox::ButtonRole>> buttons) {
  std::vector<QAbstractButton*> made;
  for (const auto& [caption, role] : buttons) made.push_back(box.addButton(say(caption), role));
  box.setDefaultButton(qobject_cast<QPushButton*>(made.front()));
  box.setEscapeButton(made.back());
  box.exec();
  const auto pressed = std::find(made.begin(), made.end(), box.clickedButton());
  return pressed == made.end() ? -1 : static_cast<int>(pressed - made.begin());
}

}  // namespace

Unsaved askUnsaved(QWidget* parent, const QStringList& drawings) {
  const QString text = drawings.size() == 1 ? say(Caption::kUnsavedOne).arg(drawings.front())
                                            : say(Caption::kUnsavedSome) + listed(drawings);
  QMessageBox box(QMessageBox::Warning, say(Caption::kUnsavedTitle), text, {}, parent);
  const int pressed = ask(box, {{Caption::kSaveAllButton, QMessageBox::AcceptRole},
                                {Caption::kDiscard, QMessageBox::DestructiveRole},
                                {Caption::kCancel, QMessageBox::RejectRole}});
  return pressed == 0 ? Unsaved::kSave : pressed == 1 ? Unsaved::kDiscard : Unsaved::kCancel;
}

bool askReload(QWidget* parent, const QString& drawing, bool modified) {
  QMessageBox box(QMessageBox::Question, say(Caption::kChangedTitle),
                  say(Caption::kChangedText).arg(drawing), {}, parent);
  if (modified) box.setInformativeText(say(Caption::kChangedModified));
  // The one that loses nothing stands first, so that a hasty Enter is harmless.
  if (modified) {
    return ask(box, {{Caption::kKeep, QMessageBox::RejectRole},
                     {Caption::kReload, QMessageBox::DestructiveRole},
                     {Caption::kCancel, QMessageBox::RejectRole}}) == 1;
  }
  return ask(box, {{Caption::kReload, QMessageBox::AcceptRole},
                   {Caption::kKeep, QMessageBox::RejectRole}}) == 0;
}

Recovery askRecovery(QWidget* parent, const QStringList& drawings) {
  QMessageBox box(QMessageBox::Question, say(Caption::kRecoverTitle),
                  say(Caption::kRecoverText) + listed(drawings), {}, parent);
  const int pressed = ask(box, {{Caption::kRecover, QMessageBox::AcceptRole},
                                {Caption::kDiscard, QMessageBox::DestructiveRole},
                                {Caption::kRecoverLater, QMessageBox::RejectRole}});
  return pressed == 0 ? Recovery::kRecover : pressed == 1 ? Recovery::kDiscard : Recovery::kLater;
}

void tellFailure(QWidget* parent, const QString& what, const std::string& why) {
  QMessageBox box(QMessageBox::Critical, QStringLiteral("Kovra"), what, QMessageBox::Ok, parent);
  box.setInformativeText(QString::fromStdString(why));
  box.exec();
}

}  // namespace kovra::desktop
