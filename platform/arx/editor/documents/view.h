#pragma once

#include <optional>
#include <string_view>

#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/geometry/extents.h"
#include "platform/arx/geometry/geometry.h"

class AcApDocument;

namespace kovra::arx {

/// The drawing window, in pixels.
struct WindowSize {
  int width = 1600;
  int height = 1000;
};
WindowSize windowSize();
/// For a program that shows the drawing in a window of its own. What a view is high stays.
void setWindowSize(WindowSize size);

/// What the drawing window shows, in a plan view of the world.
struct View {
  AcGePoint3d center{};
  double height = 1;  ///< in drawing units over the height of the window

  double unitsPerPixel() const { return height / windowSize().height; }
};

/// The file's active viewport, else the extents of what is drawn when the view is first asked for.
View currentView(const AcApDocument& document);
/// From now on the current space is seen like that, for clicks and picks as well. `height` is
/// positive.
void setView(const AcApDocument& document, const View& view);
/// Everything drawn in the current space, on whatever layer; not valid for an empty drawing.
AcDbExtents drawingExtents(const AcApDocument& document);
/// SNAPMODE and SNAPUNIT of the active viewport; nothing for other variables or without one.
std::optional<VariableValue> viewportSetting(const AcApDocument& document, std::wstring_view name);

/// The pixel (from the top left corner) that shows a world point; may lie outside the window.
void worldToPixel(const View& view, const AcGePoint3d& point, int& x, int& y);
AcGePoint3d pixelToWorld(const View& view, int x, int y);

}  // namespace kovra::arx
