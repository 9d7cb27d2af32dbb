#include "desktop/frame/disk_watch.h"

#include <QFileInfo>

#include "desktop/loop/input_queue.h"

namespace kovra::desktop {

using arx::host::DrawingId;
using arx::host::DrawingInfo;

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
      now.insert(watched_.extract(known));
    } else {
      now.insert({drawing.id, {file, stampOf(file)}});
      watcher_.addPath(file);
    }
  }
  for (const auto& [id, gone] : watched_) watcher_.removePath(gone.file);
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
    if (now.size >= 0) changed.push_back(id);
  }
  for (const DrawingId id : changed) changed_(id);
}

}  // namespace kovra::desktop
