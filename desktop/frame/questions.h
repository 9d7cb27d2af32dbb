// What the main window asks about drawings.
#pragma once
#include <QStringList>

class QWidget;

namespace kovra::desktop {

enum class Unsaved { kSave, kDiscard, kCancel };
/// What to do with drawings that have unsaved changes.
Unsaved askUnsaved(QWidget* parent, const QStringList& drawings);

/// What to do with a drawing whose file another program changed. `modified`: it has changes here.
bool askReload(QWidget* parent, const QString& drawing, bool modified);

enum class Recovery { kRecover, kDiscard, kLater };
Recovery askRecovery(QWidget* parent, const QStringList& drawings);

/// A message of something that failed: what, and why.
void tellFailure(QWidget* parent, const QString& what, const std::string& why);

}  // namespace kovra::desktop
