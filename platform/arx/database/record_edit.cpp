#include "platform/arx/database/record_edit.h"

#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

#include "platform/arx/database/group_order.h"
#include "platform/dxf/group_format.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {
namespace {

constexpr int kMarker = 100;
constexpr double kPi = std::numbers::pi;

bool isData(const dxf::RecordDraft& draft, std::size_t group) {
  return draft.part(group) == dxf::GroupPart::kData;
}

/// Common properties stand before the markers of other subclasses, whether below "AcDbEntity" or
/// not.
std::size_t findCommon(const dxf::RecordDraft& draft, int code) {
  for (std::size_t i = 1; i < draft.size(); ++i) {
    const int here = draft.code(i);
    if ((here != code && here != kMarker) || !isData(draft, i)) continue;
    if (here == code) return i;
    if (draft.text(i) != kEntityPart) return dxf::kNoGroup;
  }
  return dxf::kNoGroup;
}

/// The attribute's own marker, if the text property may stand below it. 71 has another meaning
/// there, and with an embedded object 72 and 11 too.
std::string_view otherPart(const dxf::RecordDraft& draft, int code) {
  const bool definition = draft.kind() == dxf::RecordKind::kAttDef;
  if (!definition && draft.kind() != dxf::RecordKind::kAttrib) return {};
  if (code == 71 || code == 1 || code == 40 || !draft.embedded().empty()) return {};
  return definition ? kDefinitionPart : kAttributePart;
}

}  // namespace

std::size_t findProperty(const dxf::RecordDraft& draft, Property property) {
  if (isSubclass(property.subclass, kEntityPart)) return findCommon(draft, property.code);
  const std::size_t group = draft.find(property.subclass, property.code);
  // A reference that is an array has all its groups below a marker of its own.
  if (group == dxf::kNoGroup && isSubclass(property.subclass, kReferencePart))
    return draft.find("AcDbMInsertBlock", property.code);
  if (group != dxf::kNoGroup || !isSubclass(property.subclass, kTextPart)) return group;
  const std::string_view other = otherPart(draft, property.code);
  return other.empty() ? group : draft.find(other, property.code);
}

std::size_t placeOf(const dxf::RecordDraft& draft, Property property) {
  const GroupOrder& order = groupOrder(property.subclass);
  const GroupOrder& entityOrder = groupOrder(kEntityPart);
  const int wanted = order.rank(property.code);
  if (wanted < 0) return draft.endOf(property.subclass);
  const bool marked = draft.find(kMarker) != dxf::kNoGroup;
  const bool common = isSubclass(property.subclass, kEntityPart);
  std::size_t place = 1;
  bool inside = !marked || common;
  int markers = 0;
  for (std::size_t i = 1; i < draft.size(); ++i) {
    if (!isData(draft, i)) continue;
    const int code = draft.code(i);
    if (code == kMarker) {
      inside = draft.text(i) == property.subclass;
      if (inside && (++markers == 1 || order.rank(kMarker) < wanted)) place = i + 1;
    } else if (common && !marked && entityOrder.rank(code) < 0 && code != 5) {
      continue;  // the type's own groups, which no marker parts from the common ones
    } else if (inside && order.rank(code) < wanted) {
      place = i + 1;
    }
  }
  return marked && !common && markers == 0 ? draft.endOf(property.subclass) : place;
}

double readReal(const dxf::RecordDraft& draft, Property property, double absent) {
  const std::size_t group = findProperty(draft, property);
  return group == dxf::kNoGroup ? absent : draft.real(group);
}

std::int64_t readInteger(const dxf::RecordDraft& draft, Property property, std::int64_t absent) {
  const std::size_t group = findProperty(draft, property);
  return group == dxf::kNoGroup ? absent : draft.integer(group);
}

std::string_view readBytes(const dxf::RecordDraft& draft, Property property) {
  const std::size_t group = findProperty(draft, property);
  return group == dxf::kNoGroup ? std::string_view() : draft.text(group);
}

namespace {

/// Group of a point's y or z, which stand behind its x.
std::size_t coordinate(const dxf::RecordDraft& draft, std::size_t x, int step) {
  const int wanted = draft.code(x) + 10 * step;
  for (std::size_t i = x + 1; i < draft.size() && i <= x + 2; ++i)
    if (draft.code(i) == wanted && isData(draft, i)) return i;
  return dxf::kNoGroup;
}

}  // namespace

AcGePoint3d pointAt(const dxf::RecordDraft& draft, std::size_t x) {
  AcGePoint3d point;
  point.x = draft.real(x);
  if (const std::size_t y = coordinate(draft, x, 1); y != dxf::kNoGroup) point.y = draft.real(y);
  if (const std::size_t z = coordinate(draft, x, 2); z != dxf::kNoGroup) point.z = draft.real(z);
  return point;
}

std::optional<AcGePoint3d> readPoint(const dxf::RecordDraft& draft, Property property) {
  const std::size_t x = findProperty(draft, property);
  if (x == dxf::kNoGroup) return std::nullopt;
  return pointAt(draft, x);
}

namespace {

/// `inside`: the first groups belong to the property's subclass.
template <class Reader>
std::optional<std::string_view> scan(Reader reader, Property property, bool inside) {
  dxf::GroupView group;
  while (reader.next(group) == dxf::GroupStatus::kOk) {
    if (group.code == 100) {
      inside = group.value() == property.subclass;
    } else if (inside && group.code == property.code) {
      return group.value();
    } else if (group.code == 101 || group.code == 102 || group.code == 1001) {
      break;
    }
  }
  return std::nullopt;
}

/// What follows the first marker of a subclass in an ASCII record; empty if there is none, or if
/// the name stands elsewhere before it. Searching for the line costs less than reading all groups
/// up to it; being no number, the name is a value, and its code is the line before.
std::string_view behindMarker(std::string_view record, std::string_view subclass) {
  const std::size_t name = record.find(subclass);
  if (name == std::string_view::npos || name < 2 || record[name - 1] != '\n') return {};
  const char* const codeBegin = record.data() + record.rfind('\n', name - 2) + 1;
  std::int32_t code = 0;
  const bool isMarker =
      dxf::parseCode(codeBegin, record.data() + name - 1, code) && code == kMarker;
  const std::string_view rest = record.substr(name + subclass.size());
  if (!isMarker || !(rest.starts_with('\n') || rest.starts_with("\r\n"))) return {};
  return rest.substr(rest.find('\n') + 1);
}

}  // namespace

std::optional<std::string_view> scanText(std::string_view record, const dxf::Dialect& dialect,
                                         Property property) {
  if (dialect.binary) return scan(dxf::BinaryReader(record, dialect.wideCodes), property, false);
  const std::string_view below = behindMarker(record, property.subclass);
  if (!below.empty()) return scan(dxf::AsciiReader(below), property, true);
  return scan(dxf::AsciiReader(record), property, false);
}

std::string_view RecordEdit::originalBytes() const {
  if (store_ == nullptr || record_ >= store_->originalCount()) return {};
  return store_->originalBytes(record_);
}

bool RecordEdit::loadOriginal(dxf::RecordDraft& draft) const {
  const std::string_view bytes = originalBytes();
  if (bytes.empty()) return false;
  draft.decode(bytes, store_->dialect());
  return true;
}

bool RecordEdit::fileHas(Property property) const {
  dxf::RecordDraft original;
  return loadOriginal(original) && findProperty(original, property) != dxf::kNoGroup;
}

bool RecordEdit::setReal(Property property, double value, std::optional<double> absent) {
  const std::size_t group = findProperty(draft_, property);
  if (group == dxf::kNoGroup) {
    if (absent == value) return false;
    draft_.insertReal(placeOf(draft_, property), property.code, value);
    return true;
  }
  if (draft_.real(group) == value) return false;
  if (absent == value && !fileHas(property)) {
    draft_.erase(group);
  } else {
    draft_.setReal(group, value);
  }
  return true;
}

bool RecordEdit::setInteger(Property property, std::int64_t value,
                            std::optional<std::int64_t> absent) {
  const std::size_t group = findProperty(draft_, property);
  if (group == dxf::kNoGroup) {
    if (absent == value) return false;
    draft_.insertInteger(placeOf(draft_, property), property.code, value);
    return true;
  }
  if (draft_.integer(group) == value) return false;
  if (absent == value && !fileHas(property)) {
    draft_.erase(group);
  } else {
    draft_.setInteger(group, value);
  }
  return true;
}

bool RecordEdit::setText(Property property, std::wstring_view text, const dxf::TextCodec& codec,
                         std::optional<std::wstring_view> absent) {
  const std::size_t group = findProperty(draft_, property);
  if (group == dxf::kNoGroup) {
    if (absent == text) return false;
    draft_.insertText(placeOf(draft_, property), property.code, text, codec);
    return true;
  }
  if (codec.decode(draft_.text(group)) == text) return false;
  if (absent == text && !fileHas(property)) {
    draft_.erase(group);
  } else {
    draft_.setText(group, text, codec);
  }
  return true;
}

bool RecordEdit::setPoint(Property property, const AcGePoint3d& point) {
  const std::size_t x = findProperty(draft_, property);
  if (x == dxf::kNoGroup) {
    const std::size_t at = placeOf(draft_, property);
    draft_.insertReal(at, property.code, point.x);
    draft_.insertReal(at + 1, property.code + 10, point.y);
    draft_.insertReal(at + 2, property.code + 20, point.z);
    return true;
  }
  const AcGePoint3d present = pointAt(draft_, x);
  if (present.x == point.x && present.y == point.y && present.z == point.z) return false;
  draft_.setReal(x, point.x);
  const std::size_t y = coordinate(draft_, x, 1);
  if (y != dxf::kNoGroup) {
    draft_.setReal(y, point.y);
  } else {
    draft_.insertReal(x + 1, property.code + 10, point.y);
  }
  const std::size_t z = coordinate(draft_, x, 2);
  if (z != dxf::kNoGroup) {
    draft_.setReal(z, point.z);
  } else if (point.z != 0) {
    draft_.insertReal(x + 2, property.code + 20, point.z);
  }
  return true;
}

namespace {

/// From 0 up to a full turn, without that.
double withinTurn(double angle, double turn) {
  double rest = std::fmod(angle, turn);
  if (rest < 0) rest += turn;
  // A tiny negative angle ends at the full turn; adding 0 makes a negative zero positive.
  return rest < turn ? rest + 0.0 : 0;
}

/// A number rounded to so many digits.
double rounded(double value, int digits) {
  std::array<char, 32> text{};
  const auto written = std::to_chars(text.data(), text.data() + text.size(), value,
                                     std::chars_format::scientific, digits - 1);
  double result = value;
  std::from_chars(text.data(), written.ptr, result);
  return result;
}

}  // namespace

double normalizedAngle(double radians) {
  return withinTurn(radians, 2 * kPi);
}

double exactDegrees(double radians) {
  const double degrees = radians * 180 / kPi;
  const double plain = std::round(degrees * 1e9) / 1e9;
  const bool isSpoiled = std::fabs(degrees - plain) <= 4e-16 * std::fmax(90, std::fabs(degrees));
  if (isSpoiled) return plain;
  // What a drawing says, which programs write with 15 or 16 digits, reads back as this angle.
  for (const int digits : {15, 16})
    if (const double said = rounded(degrees, digits); said * kPi / 180 == radians) return said;
  return degrees;
}

double degreesOf(double radians) {
  return withinTurn(exactDegrees(radians), 360);
}

}  // namespace kovra::arx
