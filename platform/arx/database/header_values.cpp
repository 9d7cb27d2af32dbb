// Header variables by name, whatever their type.
#include <algorithm>
#include <array>

#include "platform/arx/database/database.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace dxf = kovra::dxf;
using kovra::arx::HeaderValue;

namespace {

struct KnownCode {
  std::string_view name;
  int code;
};

// Group codes of variables whose code doesn't follow from the kind of their value.
constexpr std::array<KnownCode, 9> kKnownCodes = {{
    {"$CLAYER", 8},
    {"$TEXTSTYLE", 7},
    {"$CELTYPE", 6},
    {"$CECOLOR", 62},
    {"$DIMSTYLE", 2},
    {"$HANDSEED", 5},
    {"$UCSNAME", 2},
    {"$CELWEIGHT", 370},
    {"$ACADVER", 1},
}};

int codeFor(std::string_view name, int byKind) {
  const auto known = std::find_if(kKnownCodes.begin(), kKnownCodes.end(),
                                  [&](const KnownCode& entry) { return entry.name == name; });
  return known != kKnownCodes.end() ? known->code : byKind;
}

}  // namespace

std::optional<HeaderValue> AcDbDatabase::headerValue(std::string_view name) const {
  if (!hasDrawing()) return std::nullopt;
  const std::size_t group = structure_->variable(name);
  if (group == dxf::kNoGroup) return std::nullopt;
  const dxf::RecordDraft& header = structure_->header();
  if (dxf::isPointCode(header.code(group))) {
    const dxf::HeaderPoint point = structure_->pointVariable(name).value_or(dxf::HeaderPoint());
    return AcGePoint3d(point.x, point.y, point.z);
  }
  switch (header.type(group)) {
    case dxf::ValueType::kReal:
      return header.real(group);
    case dxf::ValueType::kInt16:
    case dxf::ValueType::kInt32:
    case dxf::ValueType::kInt64:
    case dxf::ValueType::kBool:
      return header.integer(group);
    default:
      return store_->codec().decode(header.text(group));
  }
}

Acad::ErrorStatus AcDbDatabase::setHeaderValue(std::string_view name, const HeaderValue& value) {
  if (!hasDrawing()) return Acad::eNoDatabase;
  if (const auto* real = std::get_if<double>(&value)) {
    structure_->setRealVariable(name, codeFor(name, 40), *real);
  } else if (const auto* integer = std::get_if<std::int64_t>(&value)) {
    structure_->setIntegerVariable(name, codeFor(name, 70), *integer);
  } else if (const auto* text = std::get_if<std::wstring>(&value)) {
    structure_->setTextVariable(name, codeFor(name, 1), *text);
  } else if (const auto* point = std::get_if<AcGePoint3d>(&value)) {
    structure_->setPointVariable(name, 10, {point->x, point->y, point->z});
  }
  return Acad::eOk;
}
