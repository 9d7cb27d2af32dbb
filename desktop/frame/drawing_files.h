// Opening, saving, closing and plotting drawings, with the questions that belong to it.
#pragma once
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "platform/arx/editor/host_api.h"

class QWidget;

namespace kovra::desktop {

/// Each is called as an act of the input queue. What fails is told in a message box, and nothing
/// has changed then.
class DrawingFiles {
 public:
  /// `saved` is told of every drawing that was written to its own place.
  DrawingFiles(QWidget& window, std::function<void(arx::host::DrawingId)> saved);

  bool open(const QString& file);
  void openNew();
  void chooseAndOpen();
  /// Asks for a place when the drawing has none. False when it wasn't saved.
  bool save(arx::host::DrawingId id);
  bool saveAs(arx::host::DrawingId id);
  bool saveAll();
  /// Asks when there are unsaved changes, and closes it with its commands ended first.
  void close(arx::host::DrawingId id);
  /// Drops what is here and reads the file again.
  void reload(arx::host::DrawingId id);
  /// Asks for all unsaved changes; false when the user wants to go on, or something wasn't saved.
  bool mayQuit();
  /// Asks for a picture's name and draws the current drawing as it is now.
  void plot();
  void chooseProject();

 private:
  bool settleUnsaved(const std::vector<arx::host::DrawingInfo>& drawings);

  QWidget& window_;
  std::function<void(arx::host::DrawingId)> saved_;
};

/// Nothing for a drawing that was closed.
std::optional<arx::host::DrawingInfo> findDrawing(arx::host::DrawingId id);
/// Makes a project current and remembers it.
void openProject(const QString& folder);

}  // namespace kovra::desktop
