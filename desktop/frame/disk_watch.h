// Tells when another program changes the file of an open drawing.
#pragma once
#include <QDateTime>
#include <QFileSystemWatcher>
#include <functional>
#include <map>

#include "platform/arx/editor/host_api.h"

namespace kovra::desktop {

/// Follows the files of the open drawings: what the file system reports, and what differs when the
/// program is looked at again.
class DiskWatch {
 public:
  /// `changed` is called as an act of the input queue, once for each change.
  explicit DiskWatch(std::function<void(arx::host::DrawingId)> changed);

  /// Takes new drawings in and closed ones out; before each wait.
  void follow(const std::vector<arx::host::DrawingInfo>& drawings);
  /// The file is as this program wants it: it was saved here.
  void noteOwn(arx::host::DrawingId id);
  /// Looks at all files now.
  void look();

 private:
  struct Stamp {
    QDateTime time;
    qint64 size = -1;  ///< -1: no file
    bool operator==(const Stamp&) const = default;
  };
  struct Watched {
    QString file;
    Stamp stamp;
    bool modified = false;  ///< has unsaved changes
  };
  static Stamp stampOf(const QString& file);

  std::function<void(arx::host::DrawingId)> changed_;
  std::map<arx::host::DrawingId, Watched> watched_;
  QFileSystemWatcher watcher_;
};

}  // namespace kovra::desktop
