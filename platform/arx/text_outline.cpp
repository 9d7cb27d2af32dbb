#include "platform/arx/text_outline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/arx/database.h"
#include "platform/arx/ocs.h"
#include "platform/arx/record_edit.h"
#include "platform/arx/record_geometry.h"
#include "platform/arx/text_metrics.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace kovra::arx {
namespace {

constexpr double kRadians = std::numbers::pi / 180;
constexpr std::int64_t kVerticalStyle = 4;

bool isVerticalStyle(const AcDbDatabase& database, const dxf::RecordDraft& draft) {
  const dxf::RecordStore& store = database.store();
  const std::string_view name = readBytes(draft, {kTextPart, 7});
  if (name.empty()) return false;
  const dxf::RecordIndex style =
      database.structure().findEntry(dxf::TableKind::kStyle, store.codec().decode(name));
  if (style == dxf::kNoRecord) return false;
  dxf::RecordDraft record;
  store.load(style, record);
  return (readInteger(record, {kStylePart, 70}, 0) & kVerticalStyle) != 0;
}

/// What decides the place of a text, from its groups. `text` keeps the characters.
TextShape shapeOf(const AcDbDatabase& database, const dxf::RecordDraft& draft, std::wstring& text) {
  const bool isText = draft.kind() == dxf::RecordKind::kText;
  const bool definition = draft.kind() == dxf::RecordKind::kAttDef;
  const Property value = definition ? Property{kDefinitionPart, 2} : Property{kTextPart, 1};
  text = database.store().codec().decode(readBytes(draft, value));
  constexpr std::int64_t kBackwards = 2;
  constexpr std::int64_t kUpsideDown = 4;
  TextShape shape;
  shape.text = text;
  shape.height = readReal(draft, {kTextPart, 40}, 0);
  shape.widthFactor = readReal(draft, {kTextPart, 41}, 1);
  shape.oblique = readReal(draft, {kTextPart, 51}, 0) * kRadians;
  shape.rotation = readReal(draft, {kTextPart, 50}, 0) * kRadians;
  shape.vertical = isVerticalStyle(database, draft);
  const std::int64_t generation = readInteger(draft, {kTextPart, 71}, 0);
  shape.mirroredInX = (generation & kBackwards) != 0;
  shape.mirroredInY = (generation & kUpsideDown) != 0;
  shape.horizontal = static_cast<AcDb::TextHorzMode>(readInteger(draft, {kTextPart, 72}, 0));
  const Property vertical = isText ? Property{kTextPart, 73}
                                   : Property{definition ? kDefinitionPart : kAttributePart, 74};
  shape.verticalMode = static_cast<AcDb::TextVertMode>(readInteger(draft, vertical, 0));
  shape.position = readPoint(draft, {kTextPart, 10}).value_or(AcGePoint3d());
  shape.alignment = readPoint(draft, {kTextPart, 11}).value_or(shape.position);
  return shape;
}

/// A box along a direction, from its corner at the lower left.
std::vector<AcGePoint3d> box(const AcGePoint3d& origin, double angle, double left, double right,
                             double bottom, double top) {
  const AcGeVector3d along(std::cos(angle), std::sin(angle), 0);
  const AcGeVector3d up(-along.y, along.x, 0);
  const AcGePoint3d first = origin + along * left + up * bottom;
  return {first, origin + along * right + up * bottom, origin + along * right + up * top,
          origin + along * left + up * top, first};
}

void toWorld(std::vector<AcGePoint3d>& points, const AcGeVector3d& normal) {
  if (normal.isEqualTo(AcGeVector3d(0, 0, 1))) return;
  const AcGeMatrix3d matrix = ocsToWcs(normal);
  for (AcGePoint3d& point : points) point.transformBy(matrix);
}

/// The characters of an MTEXT without its formatting, line by line.
std::vector<std::wstring> mtextLines(std::wstring_view contents) {
  std::vector<std::wstring> lines(1);
  for (size_t i = 0; i < contents.size(); ++i) {
    const wchar_t c = contents[i];
    if (c == L'{' || c == L'}') continue;
    if (c == L'\n') lines.emplace_back();
    if (c != L'\\' || i + 1 == contents.size()) {
      if (c != L'\n') lines.back() += c;
      continue;
    }
    const wchar_t code = contents[++i];
    if (code == L'P' || code == L'X' || code == L'N')
      lines.emplace_back();
    else if (code == L'~')
      lines.back() += L' ';
    else if (code == L'\\' || code == L'{' || code == L'}')
      lines.back() += code;
    else if (std::wstring_view(L"LlOoKk").find(code) == std::wstring_view::npos)
      i = std::min(contents.find(L';', i), contents.size());
  }
  return lines;
}

std::wstring mtextContents(const AcDbDatabase& database, const dxf::RecordDraft& draft) {
  std::string bytes;
  for (std::size_t i = 0; i < draft.size(); ++i) {
    if (draft.part(i) != dxf::GroupPart::kData) continue;
    if (draft.code(i) == 3 || draft.code(i) == 1) bytes += draft.text(i);
  }
  return database.store().codec().decode(bytes);
}

}  // namespace

std::vector<AcGePoint3d> textOutline(const AcDbDatabase& database, const dxf::RecordDraft& draft) {
  std::wstring text;
  const TextPlacement place = placeText(shapeOf(database, draft, text));
  std::vector<AcGePoint3d> points =
      box(place.position, place.rotation, 0, place.width, place.bottom, place.top);
  toWorld(points, entityNormal(draft));
  return points;
}

std::vector<AcGePoint3d> mtextOutline(const AcDbDatabase& database, const dxf::RecordDraft& draft) {
  const double height = readReal(draft, {kMTextPart, 40}, 0);
  const std::vector<std::wstring> lines = mtextLines(mtextContents(database, draft));
  double width = 0;
  double rows = 0;
  const double wrap = readReal(draft, {kMTextPart, 41}, 0);
  for (const std::wstring& line : lines) {
    const double length = lineAdvance(line) * height;
    width = std::max(width, wrap > 0 ? std::min(length, wrap) : length);
    rows += wrap > 0 ? std::max(1.0, std::ceil(length / wrap)) : 1;
  }
  const double spacing = readReal(draft, {kMTextPart, 44}, 1);
  const double total = height * (1 + (rows - 1) * kLineAdvance * spacing);
  const auto attachment = std::clamp<std::int64_t>(readInteger(draft, {kMTextPart, 71}, 1), 1, 9);
  const double left = -width * static_cast<double>((attachment - 1) % 3) / 2;
  const double top = total * static_cast<double>((attachment - 1) / 3) / 2;
  double angle = readReal(draft, {kMTextPart, 50}, 0);
  if (const auto direction = readPoint(draft, {kMTextPart, 11}))
    angle = std::atan2(direction->y, direction->x);
  const AcGePoint3d origin = readPoint(draft, {kMTextPart, 10}).value_or(AcGePoint3d());
  return box(origin, angle, left, left + width, top - total, top);
}

}  // namespace kovra::arx
