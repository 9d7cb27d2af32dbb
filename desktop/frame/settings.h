// What the main window remembers between runs, beside the dialog store.
#pragma once
#include <QSettings>
#include <QStringList>
#include <memory>

namespace kovra::desktop {

/// NAME.desktop.ini of the dialog store's NAME: places of the window, recent files, how often
/// copies are kept. Opened anew by each caller, so that several programs can share it.
std::unique_ptr<QSettings> openSettings();

/// NAME.autosave of the dialog store's NAME.
QString autosaveFolder();

/// Lists of recent things, latest first.
enum class Recent { kDrawings, kProjects };
QStringList recentNames(Recent kind);
/// Puts the path in front; relative ones are made absolute.
void noteRecent(Recent kind, const QString& path);

}  // namespace kovra::desktop
