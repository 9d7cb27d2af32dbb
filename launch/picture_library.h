#pragma once

#include <filesystem>
#include <optional>

#include "platform/arx/drawing/plot.h"
#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/result.h"

namespace kovra::launch {

enum class PictureForm { kSvg, kPng };

/// Colors that a picture is drawn on.
enum class Ground { kWhite, kDark };

/// What of a drawing is drawn, and how.
struct PictureOptions {
  struct Window {
    AcGePoint3d low;
    AcGePoint3d high;
  };
  std::optional<Window> window;  ///< in drawing units; none: all that is drawn
  Ground ground = Ground::kWhite;
  int size = 1600;  ///< pixels of the longer side
};

/// By the end of the file's name, ".svg" or ".png" in whatever case.
Result<PictureForm> pictureForm(const std::filesystem::path& file);

/// What a picture of a drawing lacks.
struct PictureGaps {
  arx::PlotGaps plot;
  bool empty = false;  ///< there is nothing on it
};

/// The library that draws pictures: most runs draw nothing, and what draws needs dozens of
/// libraries. Each function writes a picture as a whole or not at all.
struct PictureLibrary {
  /// A drawing; ground, window and size as the options say.
  Result<PictureGaps> (*plot)(const std::filesystem::path& drawing, const PictureOptions& options,
                              const std::filesystem::path& picture, PictureForm form);
  /// The drawing window with the dialogs on it; the picture is as large as both together. What is
  /// drawn in part only is said in the transcript.
  Result<void> (*screen)(const std::filesystem::path& file, PictureForm form);
  /// The topmost dialog alone; kInvalidInput when none is open.
  Result<void> (*dialog)(const std::filesystem::path& file, PictureForm form);
};

/// kNotFound, kNotReadable: see launch::loadProgramExport().
Result<PictureLibrary> loadPictureLibrary();

}  // namespace kovra::launch

/// What the library exports.
extern "C" const kovra::launch::PictureLibrary* kovraPictureLibrary();
