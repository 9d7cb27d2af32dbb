#include "desktop/frame/autosave.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QSaveFile>

#include "desktop/frame/settings.h"
#include "desktop/loop/input_queue.h"
#include "desktop/loop/texts.h"

namespace kovra::desktop {
namespace {

namespace editor = arx::host;
using editor::DrawingId;
using editor::DrawingInfo;

constexpr double kUsualMinutes = 2;

QString entryOf(const QString& copy) {
  return copy + QStringLiteral(".json");
}

QString stampOf(const QString& file) {
  const QFileInfo info(file);
  if (!info.exists()) return {};
  return QStringLiteral("%1 %2").arg(info.lastModified().toMSecsSinceEpoch()).arg(info.size());
}

void removeCopy(const QString& copy) {
  QFile::remove(entryOf(copy));
  QFile::remove(copy);
}

QString lockOf(const QDir& folder, const QString& run) {
  return folder.filePath(run + QStringLiteral(".lock"));
}

/// Whether the run that made a copy is over: its lock is free.
bool isOver(const QDir& folder, const QString& run) {
  QLockFile lock(lockOf(folder, run));
  lock.setStaleLockTime(0);
  return lock.tryLock(0);
}

}  // namespace

Autosave::Autosave() : folder_(autosaveFolder()) {
  run_ = QStringLiteral("%1-%2")
             .arg(QCoreApplication::applicationPid())
             .arg(QDateTime::currentMSecsSinceEpoch());
  const double minutes =
      openSettings()->value(QStringLiteral("autosave/minutes"), kUsualMinutes).toDouble();
  if (minutes <= 0 || folder_.isEmpty()) return;
  QObject::connect(&timer_, &QTimer::timeout, &timer_,
                   [this] { inputQueue().add([this] { copyAll(); }); });
  timer_.start(static_cast<int>(minutes * 60'000));
}

Autosave::~Autosave() {
  for (const auto& [id, copy] : copies_) removeCopy(copy);
}

/// Makes the folder, for this user only, and shows that this run is alive.
bool Autosave::begin() {
  if (lock_ != nullptr) return true;
  if (!QDir().mkpath(folder_)) return false;
  QFile::setPermissions(folder_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  lock_ = std::make_unique<QLockFile>(lockOf(QDir(folder_), run_));
  lock_->setStaleLockTime(0);
  return lock_->tryLock(0);
}

QString Autosave::nameFor(DrawingId id) const {
  return QDir(folder_).filePath(QStringLiteral("%1-%2.dxf").arg(run_).arg(id));
}

bool Autosave::writeEntry(const DrawingInfo& drawing, const QString& copy) {
  const QString file = QString::fromStdString(drawing.file.string());
  const QJsonObject entry{
      {QStringLiteral("file"), file},
      {QStringLiteral("title"), toQt(drawing.title)},
      {QStringLiteral("stamp"), stampOf(file)},
      {QStringLiteral("time"), QDateTime::currentDateTime().toString(Qt::ISODate)}};
  QSaveFile out(entryOf(copy));
  return out.open(QIODevice::WriteOnly) && out.write(QJsonDocument(entry).toJson()) >= 0 &&
         out.commit();
}

void Autosave::copyAll() {
  for (const DrawingInfo& drawing : editor::drawings()) {
    if (!drawing.modified || !begin()) continue;
    const auto kept = copies_.find(drawing.id);
    const QString copy = kept != copies_.end() ? kept->second : nameFor(drawing.id);
    const std::filesystem::path place = copy.toStdString();
    // Refused while a command may still take back what it changed.
    if (!editor::saveDrawing(drawing.id, &place, {.backup = false, .copy = true})) continue;
    if (writeEntry(drawing, copy)) copies_[drawing.id] = copy;
  }
}

void Autosave::follow(const std::vector<DrawingInfo>& drawings) {
  if (copies_.empty()) return;
  std::erase_if(copies_, [&drawings](const auto& kept) {
    const bool needed =
        std::any_of(drawings.begin(), drawings.end(),
                    [&kept](const DrawingInfo& d) { return d.id == kept.first && d.modified; });
    if (!needed) removeCopy(kept.second);
    return !needed;
  });
}

std::vector<KeptCopy> Autosave::leftBehind() const {
  std::vector<KeptCopy> left;
  const QDir folder(folder_);
  if (folder_.isEmpty() || !folder.exists()) return left;
  for (const QFileInfo& entry :
       folder.entryInfoList({QStringLiteral("*.json")}, QDir::Files, QDir::Time)) {
    const QString copy = folder.filePath(entry.completeBaseName());
    const QString run = entry.fileName().section(QLatin1Char('-'), 0, 1);
    QFile in(entry.filePath());
    if (run == run_ || !QFile::exists(copy) || !isOver(folder, run) ||
        !in.open(QIODevice::ReadOnly))
      continue;
    const QJsonObject read = QJsonDocument::fromJson(in.readAll()).object();
    const auto text = [&read](const char* key) {
      return read.value(QLatin1String(key)).toString();
    };
    const QString time =
        QLocale().toString(QDateTime::fromString(text("time"), Qt::ISODate), QLocale::ShortFormat);
    left.push_back(
        {copy, text("file"), text("title"), time, stampOf(text("file")) != text("stamp")});
  }
  return left;
}

Result<void> Autosave::recover(const KeptCopy& kept) {
  // A drawing that is open as it lies on disk makes way; one that was changed already stays.
  for (const DrawingInfo& drawing : editor::drawings())
    if (!kept.file.isEmpty() && drawing.file == kept.file.toStdString() && !drawing.modified)
      static_cast<void>(editor::closeDrawing(drawing.id));
  const auto opened =
      editor::recoverDrawing(kept.copy.toStdString(), kept.file.toStdString(), !kept.stale);
  if (!opened) return opened.error();
  // From now on the copy is this run's.
  if (begin()) {
    const QString own = nameFor(opened.value());
    if (QFile::rename(kept.copy, own) && QFile::rename(entryOf(kept.copy), entryOf(own)))
      copies_[opened.value()] = own;
  }
  return {};
}

void Autosave::discard(const KeptCopy& kept) {
  removeCopy(kept.copy);
}

}  // namespace kovra::desktop
