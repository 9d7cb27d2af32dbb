#include "desktop/frame/disk_watch.h"

#include <QFileInfo>

#include "desktop/loop/input_queue.h"
#include "platform/arx/database/database.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/dxf/record_store.h"

namespace kovra::desktop {

using arx::host::DrawingId;
using arx::host::DrawingInfo;

namespace {

/// Whether the file has other bytes than the drawing, which a save by a script, or a touched file,
/// doesn't make. Of a drawing with unsaved changes nobody can tell.
bool differs(DrawingId id, const QString& name) {
  const AcApDocument* document = arx::DocumentList::instance().find(id);
  if (document == nullptr || document->database()->isModified()) return document != nullptr;
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly)) return true;
  const std::string bytes = document->database()->store().toBytes();
  return file.size() != static_cast<qint64>(bytes.size()) ||
         file.readAll() != QByteArray::fromRawData(bytes.data(), file.size());
}

}  // namespace

DiskWatch::DiskWatch(std::function<void(DrawingId)> changed) : changed_(std::move(changed)) {
  // A program that writes in place reports several times: looked at once it has settled.
  QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged, &watcher_,
                   [this] { inputQueue().add([this] { look(); }); });
}

DiskWatch::Stamp DiskWatch::stampOf(const QString& file) {
  const QFileInfo info(file);
  if (!info.exists()) return {};
  return {info.lastModified(), info.size()};
}

void DiskWatch::follow(const std::vector<DrawingInfo>& drawings) {
  std::map<DrawingId, Watched> now;
  for (const DrawingInfo& drawing : drawings) {
    if (drawing.file.empty()) continue;
    const QString file = QString::fromStdString(drawing.file.string());
    const auto known = watched_.find(drawing.id);
    if (known != watched_.end() && known->second.file == file) {
      // A command or a script may have saved it.
      if (known->second.modified && !drawing.modified) known->second.stamp = stampOf(file);
      known->second.modified = drawing.modified;
      now.insert(watched_.extract(known));
    } else {
      now.insert({drawing.id, {file, stampOf(file), drawing.modified}});
    }
  }
  // A drawing that was read again has its file from one that is gone.
  for (const auto& [id, gone] : watched_) watcher_.removePath(gone.file);
  for (const auto& [id, watched] : now)
    if (!watcher_.files().contains(watched.file)) watcher_.addPath(watched.file);
  watched_ = std::move(now);
}

void DiskWatch::noteOwn(DrawingId id) {
  const auto found = watched_.find(id);
  if (found != watched_.end()) found->second.stamp = stampOf(found->second.file);
}

void DiskWatch::look() {
  std::vector<DrawingId> changed;
  for (auto& [id, watched] : watched_) {
    // A file that was replaced is another one for the watcher.
    if (!watcher_.files().contains(watched.file)) watcher_.addPath(watched.file);
    const Stamp now = stampOf(watched.file);
    if (now == watched.stamp) continue;
    watched.stamp = now;
    if (now.size >= 0 && differs(id, watched.file)) changed.push_back(id);
  }
  for (const DrawingId id : changed) changed_(id);
}

}  // namespace kovra::desktop
