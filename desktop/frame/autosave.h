// Copies of unsaved drawings, for the case that the program doesn't end as it should.
#pragma once
#include <QLockFile>
#include <QStringList>
#include <QTimer>
#include <map>
#include <memory>
#include <vector>

#include "platform/arx/editor/host_api.h"

namespace kovra::desktop {

/// A copy that a run left behind.
struct KeptCopy {
  QString copy;  ///< the copy's file; the entry NAME.json lies beside it
  QString file;  ///< the drawing's own; empty: never saved
  QString title;
  QString time;        ///< when the copy was made, for people
  bool stale = false;  ///< the drawing's own file was changed since
};

/// Keeps a copy of each drawing with unsaved changes in the folder beside the dialog store, every
/// few minutes (`autosave/minutes` of the settings, 2 at first; 0 turns it off). A drawing's own
/// file, name and state stay as they are. The copy goes when the drawing is saved or closed.
class Autosave {
 public:
  Autosave();
  ~Autosave();

  /// Removes the copies of drawings that need none any more; before each wait.
  void follow(const std::vector<arx::host::DrawingInfo>& drawings);
  /// Copies what has unsaved changes; what can't be copied now is copied the next time.
  void copyAll();
  /// The copies of runs that have ended without removing them.
  std::vector<KeptCopy> leftBehind() const;
  /// Opens the copy as the drawing; it is kept until that is saved or closed.
  Result<void> recover(const KeptCopy& kept);
  static void discard(const KeptCopy& kept);

 private:
  bool begin();
  QString nameFor(arx::host::DrawingId id) const;
  static bool writeEntry(const arx::host::DrawingInfo& drawing, const QString& copy);

  QString folder_;
  QString run_;                      // names this run's copies
  std::unique_ptr<QLockFile> lock_;  // held while this run lives
  std::map<arx::host::DrawingId, QString> copies_;
  QTimer timer_;
};

}  // namespace kovra::desktop
