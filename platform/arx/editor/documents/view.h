#pragma once

#include <optional>
#include <string_view>

#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/geometry/extents.h"
#include "platform/arx/geometry/geometry.h"

class AcApDocument;

namespace kovra::arx {

/// The drawing window, in pixels.
inline constexpr int kWindowWidth = 1600;
inline constexpr int kWindowHeight = 1000;

/// What the drawing window shows, in a plan view of the world.
struct View {
  AcGePoint3d center{};
  double height = 1;  ///< in drawing units over kWindowHeight pixels

  double unitsPerPixel() const { return height / kWindowHeight; }
};

/// The file's active viewport, else the extents of what is drawn when the view is first asked for.
View currentView(const AcApDocument& document);
/// Everything drawn in the current space, on whatever layer; not valid for an empty drawing.
AcDbExtents drawingExtents(const AcApDocument& document);
/// SNAPMODE and SNAPUNIT of the active viewport; nothing for other variables or without one.
std::optional<VariableValue> viewportSetting(const AcApDocument& document, std::wstring_view name);

/// The pixel (from the top left corner) that shows a world point; may lie outside the window.
void worldToPixel(const View& view, const AcGePoint3d& point, int& x, int& y);
AcGePoint3d pixelToWorld(const View& view, int x, int y);

}  // namespace kovra::arx
