#include "platform/arx/lists/list_groups.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <optional>

#include "platform/arx/base/list_values.h"
#include "platform/arx/database/database.h"
#include "platform/arx/lists/entity_lists.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {
namespace {

/// Values of texts whose control characters stand as caret sequences in the drawing.
bool hasCarets(const dxf::RecordDraft& draft, int code) {
  const dxf::RecordKind kind = draft.kind();
  return (code == 1 || code == 3) &&
         (kind == dxf::RecordKind::kText || kind == dxf::RecordKind::kAttrib ||
          kind == dxf::RecordKind::kAttDef);
}

std::wstring groupText(const AcDbDatabase& database, const dxf::RecordDraft& draft,
                       std::size_t group) {
  const int code = draft.code(group);
  if (draft.type(group) != dxf::ValueType::kText) {
    const std::string ascii = draft.asciiText(group);
    return std::wstring(ascii.begin(), ascii.end());
  }
  if (code == 0) return std::wstring(draft.typeName().begin(), draft.typeName().end());
  const std::wstring text = database.store().codec().decode(draft.text(group));
  return hasCarets(draft, code) ? dxf::decodeCarets(text) : text;
}

/// The bytes of a text whose characters they are; most need no decoding.
std::optional<std::string_view> plainText(const dxf::RecordDraft& draft, std::size_t group) {
  const int code = draft.code(group);
  const dxf::ValueType type = draft.type(group);
  if (type != dxf::ValueType::kText && type != dxf::ValueType::kHandle) return std::nullopt;
  const std::string_view bytes = code == 0 ? draft.typeName() : draft.text(group);
  const bool hasCaret = hasCarets(draft, code) && bytes.find('^') != bytes.npos;
  if (hasCaret || !dxf::isPlainText(bytes)) return std::nullopt;
  return bytes;
}

std::size_t coordinateAt(const dxf::RecordDraft& draft, std::size_t x, int step) {
  const int wanted = draft.code(x) + 10 * step;
  for (std::size_t i = x + 1; i < draft.size() && i <= x + 2; ++i)
    if (draft.code(i) == wanted) return i;
  return dxf::kNoGroup;
}

/// y or z of a point that its x brought along.
bool belongsToPoint(const dxf::RecordDraft& draft, std::size_t group) {
  const int code = draft.code(group);
  for (std::size_t back = 1; back <= 2 && back <= group; ++back) {
    const int x = draft.code(group - back);
    if ((code == x + 10 || code == x + 20) && dxf::isPointCode(x)) return true;
  }
  return false;
}

AcGePoint3d groupPoint(const dxf::RecordDraft& draft, std::size_t x) {
  AcGePoint3d point(draft.real(x), 0, 0);
  for (const int step : {1, 2})
    if (const std::size_t at = coordinateAt(draft, x, step); at != dxf::kNoGroup)
      point[static_cast<unsigned>(step)] = draft.real(at);
  return point;
}

double groupReal(const dxf::RecordDraft& draft, std::size_t group) {
  const double value = draft.real(group);
  return isAngleCode(draft.code(group)) ? value * std::numbers::pi / 180 : value;
}

double drawingReal(const resbuf& element) {
  const double value = element.resval.rreal;
  if (!isAngleCode(element.restype)) return value;
  return element.restype == 50 ? degreesOf(value) : exactDegrees(value);
}

std::int64_t listInteger(const resbuf& element) {
  switch (listValue(element.restype)) {
    case ListValue::kShort:
      return element.resval.rint;
    case ListValue::kLong:
      return element.resval.rlong;
    default:
      return element.resval.mnInt64;
  }
}

std::uint64_t elementHandle(const resbuf& element) {
  AcDbObjectId id;
  return acdbGetObjectId(id, element.resval.rlname) == Acad::eOk ? std::uint64_t{id.handle()} : 0;
}

std::wstring drawingText(const dxf::RecordDraft& draft, const resbuf& element) {
  const std::wstring_view text = listText(element);
  return hasCarets(draft, element.restype) ? dxf::encodeCarets(text) : std::wstring(text);
}

}  // namespace

bool isAngleCode(int code) {
  return code >= 50 && code <= 58;
}

resbuf* ListBuilder::append(int code) {
  resbuf* element = acutNewRb(code);
  if (element == nullptr) return nullptr;
  *tail_ = element;
  tail_ = &element->rbnext;
  return element;
}

void ListBuilder::appendName(int code, AcDbObjectId id) {
  if (resbuf* element = append(code)) acdbGetAdsName(element->resval.rlname, id);
}

void ListBuilder::appendText(int code, const std::wstring& text) {
  if (resbuf* element = append(code)) acutNewString(text.c_str(), element->resval.rstring);
}

void ListBuilder::appendAscii(int code, std::string_view text) {
  resbuf* element = append(code);
  if (element == nullptr) return;
  ACHAR* wide = takeListText(text.size());
  if (wide != nullptr) *std::copy(text.begin(), text.end(), wide) = ACHAR{};
  element->resval.rstring = wide;
}

void ListBuilder::appendPoint(int code, const AcGePoint3d& point) {
  resbuf* element = append(code);
  if (element == nullptr) return;
  for (unsigned i = 0; i < 3; ++i) element->resval.rpoint[i] = point[i];
}

void ListBuilder::appendGroup(const AcDbDatabase& database, const dxf::RecordDraft& draft,
                              std::size_t group) {
  const int code = draft.code(group);
  switch (listValue(code)) {
    case ListValue::kReal:
      if (belongsToPoint(draft, group)) return;
      if (resbuf* element = append(code)) element->resval.rreal = groupReal(draft, group);
      break;
    case ListValue::kPoint:
      appendPoint(code, groupPoint(draft, group));
      break;
    case ListValue::kShort:
      if (resbuf* element = append(code))
        element->resval.rint = static_cast<short>(draft.integer(group));
      break;
    case ListValue::kLong:
      if (resbuf* element = append(code))
        element->resval.rlong = static_cast<Adesk::Int32>(draft.integer(group));
      break;
    case ListValue::kInt64:
      if (resbuf* element = append(code)) element->resval.mnInt64 = draft.integer(group);
      break;
    case ListValue::kText:
      if (const auto bytes = plainText(draft, group)) {
        appendAscii(code, *bytes);
      } else {
        appendText(code, groupText(database, draft, group));
      }
      break;
    case ListValue::kName: {
      const dxf::RecordIndex named = database.store().find(draft.handle(group));
      appendName(code, named == dxf::kNoRecord ? AcDbObjectId::kNull : database.idOf(named));
      break;
    }
    case ListValue::kBinary:
    case ListValue::kNone:
      break;
  }
}

resbuf* ListBuilder::take() {
  resbuf* list = head_;
  head_ = nullptr;
  tail_ = &head_;
  return list;
}

std::wstring_view listText(const resbuf& element) {
  return element.resval.rstring != nullptr ? std::wstring_view(element.resval.rstring)
                                           : std::wstring_view();
}

bool isFiniteElement(const resbuf& element) {
  switch (listValue(element.restype)) {
    case ListValue::kReal:
      return std::isfinite(element.resval.rreal);
    case ListValue::kPoint:
      return std::isfinite(element.resval.rpoint[0]) && std::isfinite(element.resval.rpoint[1]) &&
             std::isfinite(element.resval.rpoint[2]);
    default:
      return true;
  }
}

bool equalsElement(const AcDbDatabase& database, const dxf::RecordDraft& draft, std::size_t group,
                   const resbuf& element) {
  switch (listValue(element.restype)) {
    case ListValue::kReal:
      return groupReal(draft, group) == element.resval.rreal;
    case ListValue::kPoint: {
      const AcGePoint3d point = groupPoint(draft, group);
      return point.x == element.resval.rpoint[0] && point.y == element.resval.rpoint[1] &&
             point.z == element.resval.rpoint[2];
    }
    case ListValue::kShort:
      return static_cast<short>(draft.integer(group)) == element.resval.rint;
    case ListValue::kLong:
    case ListValue::kInt64:
      return draft.integer(group) == listInteger(element);
    case ListValue::kText:
      if (const auto bytes = plainText(draft, group)) {
        const std::wstring_view text = listText(element);
        return std::equal(bytes->begin(), bytes->end(), text.begin(), text.end());
      }
      return groupText(database, draft, group) == listText(element);
    case ListValue::kName:
      return draft.handle(group) == elementHandle(element);
    case ListValue::kBinary:
    case ListValue::kNone:
      break;
  }
  return true;
}

void setFromElement(const AcDbDatabase& database, dxf::RecordDraft& draft, std::size_t group,
                    const resbuf& element) {
  switch (listValue(element.restype)) {
    case ListValue::kReal:
      draft.setReal(group, drawingReal(element));
      break;
    case ListValue::kPoint:
      draft.setReal(group, element.resval.rpoint[0]);
      for (const int step : {1, 2}) {
        const double value = element.resval.rpoint[step];
        const std::size_t at = coordinateAt(draft, group, step);
        if (at != dxf::kNoGroup) {
          draft.setReal(at, value);
        } else if (value != 0) {
          draft.insertReal(group + static_cast<std::size_t>(step), element.restype + 10 * step,
                           value);
        }
      }
      break;
    case ListValue::kShort:
    case ListValue::kLong:
    case ListValue::kInt64:
      draft.setInteger(group, listInteger(element));
      break;
    case ListValue::kText:
      draft.setText(group, drawingText(draft, element), database.store().codec());
      break;
    case ListValue::kName:
      draft.setHandle(group, elementHandle(element));
      break;
    case ListValue::kBinary:
    case ListValue::kNone:
      break;
  }
}

void insertFromElement(const AcDbDatabase& database, dxf::RecordDraft& draft, std::size_t at,
                       const resbuf& element) {
  const int code = element.restype;
  switch (listValue(code)) {
    case ListValue::kReal:
      draft.insertReal(at, code, drawingReal(element));
      break;
    case ListValue::kPoint:
      draft.insertReal(at, code, element.resval.rpoint[0]);
      draft.insertReal(at + 1, code + 10, element.resval.rpoint[1]);
      draft.insertReal(at + 2, code + 20, element.resval.rpoint[2]);
      break;
    case ListValue::kShort:
    case ListValue::kLong:
    case ListValue::kInt64:
      draft.insertInteger(at, code, listInteger(element));
      break;
    case ListValue::kText:
      draft.insertText(at, code, drawingText(draft, element), database.store().codec());
      break;
    case ListValue::kName:
      draft.insertHandle(at, code, elementHandle(element));
      break;
    case ListValue::kBinary:
    case ListValue::kNone:
      break;
  }
}

}  // namespace kovra::arx
