#include "platform/arx/editor/documents/view.h"

#include <algorithm>
#include <cmath>

#include "platform/arx/database/database.h"
#include "platform/arx/database/entity_order.h"
#include "platform/arx/drawing/drawing_walk.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

WindowSize shownSize;

/// What an empty window shows.
constexpr double kEmptyHeight = 1000;

/// The record of the active viewport; false without one.
bool loadViewport(const AcDbDatabase& database, dxf::RecordDraft& draft) {
  const dxf::RecordIndex record =
      database.structure().findEntry(dxf::TableKind::kVport, L"*Active");
  if (record == dxf::kNoRecord) return false;
  database.store().load(record, draft);
  return true;
}

double realAt(const dxf::RecordDraft& draft, int code) {
  const std::size_t group = draft.find(code);
  return group == dxf::kNoGroup ? 0 : draft.real(group);
}

bool inModelSpace(const AcDbDatabase& database) {
  return database.currentSpaceId() == database.modelSpaceId();
}

std::optional<View> viewportView(const AcDbDatabase& database) {
  dxf::RecordDraft draft;
  if (!inModelSpace(database) || !loadViewport(database, draft)) return std::nullopt;
  View view;
  view.height = realAt(draft, 40);
  view.center = {realAt(draft, 12) + realAt(draft, 17), realAt(draft, 22) + realAt(draft, 27), 0};
  return view;
}

std::optional<View> headerView(const AcDbDatabase& database) {
  const std::optional<HeaderValue> center = database.headerValue("$VIEWCTR");
  const std::optional<HeaderValue> size = database.headerValue("$VIEWSIZE");
  if (!inModelSpace(database) || !center || !size) return std::nullopt;
  const AcGePoint3d* point = std::get_if<AcGePoint3d>(&*center);
  const double* height = std::get_if<double>(&*size);
  if (point == nullptr || height == nullptr) return std::nullopt;
  return View{*point, *height};
}

View extentsView(const AcApDocument& document) {
  const AcDbExtents extents = drawingExtents(document);
  View view;
  view.height = kEmptyHeight;
  if (!extents.isValid()) return view;
  const AcGePoint3d low = extents.minPoint();
  const AcGePoint3d high = extents.maxPoint();
  view.center = {(low.x + high.x) / 2, (low.y + high.y) / 2, 0};
  const double byWidth = (high.x - low.x) * windowSize().height / windowSize().width;
  const double height = std::max(high.y - low.y, byWidth);
  if (height > 0) view.height = height;
  return view;
}

}  // namespace

namespace {

View firstView(const AcApDocument& document) {
  const AcDbDatabase& database = *document.database();
  std::optional<View> view = viewportView(database);
  if (!view) view = headerView(database);
  const bool usable = view && std::isfinite(view->height) && view->height > 0;
  return usable ? *view : extentsView(document);
}

}  // namespace

WindowSize windowSize() {
  return shownSize;
}

void setWindowSize(WindowSize size) {
  shownSize = {std::max(1, size.width), std::max(1, size.height)};
}

void setView(const AcApDocument& document, const View& view) {
  document.session().views[inModelSpace(*document.database())] = view;
}

View currentView(const AcApDocument& document) {
  std::map<bool, View>& views = document.session().views;
  const bool space = inModelSpace(*document.database());
  const auto known = views.find(space);
  return known != views.end() ? known->second : views[space] = firstView(document);
}

AcDbExtents drawingExtents(const AcApDocument& document) {
  const AcDbDatabase& database = *document.database();
  return drawnExtents(database, currentSpace(database), Showing::kAll);
}

std::optional<VariableValue> viewportSetting(const AcApDocument& document, std::wstring_view name) {
  const bool mode = win::equalNoCase(name, L"SNAPMODE");
  dxf::RecordDraft draft;
  if (!mode && !win::equalNoCase(name, L"SNAPUNIT")) return std::nullopt;
  if (!loadViewport(*document.database(), draft)) return std::nullopt;
  VariableValue value;
  value.type = mode ? RTSHORT : RTPOINT;
  const std::size_t snap = draft.find(75);
  value.integer = snap != dxf::kNoGroup && draft.integer(snap) != 0 ? 1 : 0;
  value.point[0] = realAt(draft, 15);
  value.point[1] = realAt(draft, 25);
  return value;
}

void worldToPixel(const View& view, const AcGePoint3d& point, int& x, int& y) {
  const auto pixel = [](double value) {
    return static_cast<int>(std::clamp(std::round(value), -30000.0, 30000.0));
  };
  x = pixel((point.x - view.center.x) / view.unitsPerPixel() + windowSize().width / 2.0);
  y = pixel(windowSize().height / 2.0 - (point.y - view.center.y) / view.unitsPerPixel());
}

AcGePoint3d pixelToWorld(const View& view, int x, int y) {
  return {view.center.x + (x - windowSize().width / 2.0) * view.unitsPerPixel(),
          view.center.y + (windowSize().height / 2.0 - y) * view.unitsPerPixel(), 0};
}

}  // namespace kovra::arx
