#include "desktop/frame/settings.h"

#include <QFileInfo>

#include "platform/win/base/run_settings.h"

namespace kovra::desktop {
namespace {

constexpr int kMostRecent = 9;

QString besideStore(const char* ending) {
  const std::string store = win::stateStoreFile().string();
  return store.empty() ? QString() : QString::fromStdString(store) + QLatin1String(ending);
}

QString keyOf(Recent kind) {
  return QLatin1String(kind == Recent::kDrawings ? "recent/drawings" : "recent/projects");
}

}  // namespace

std::unique_ptr<QSettings> openSettings() {
  return std::make_unique<QSettings>(besideStore(".desktop.ini"), QSettings::IniFormat);
}

QString autosaveFolder() {
  return besideStore(".autosave");
}

QStringList recentNames(Recent kind) {
  return openSettings()->value(keyOf(kind)).toStringList();
}

void noteRecent(Recent kind, const QString& path) {
  const QString absolute = QFileInfo(path).absoluteFilePath();
  const auto settings = openSettings();
  QStringList names = settings->value(keyOf(kind)).toStringList();
  if (!names.isEmpty() && names.front() == absolute) return;
  names.removeAll(absolute);
  names.prepend(absolute);
  if (names.size() > kMostRecent) names.resize(kMostRecent);
  settings->setValue(keyOf(kind), names);
}

}  // namespace kovra::desktop
