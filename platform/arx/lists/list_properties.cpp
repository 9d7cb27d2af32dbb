#include "platform/arx/lists/list_properties.h"

#include <algorithm>
#include <array>

#include "platform/arx/base/symbol_names.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/drawing_defaults.h"
#include "platform/arx/database/group_order.h"
#include "platform/arx/lists/list_groups.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace kovra::arx {
namespace {

constexpr std::string_view kText[] = {kEntityPart, kTextPart};
constexpr std::string_view kDefinition[] = {kEntityPart, kTextPart, kDefinitionPart};
constexpr std::string_view kMText[] = {kEntityPart, kMTextPart};
constexpr std::string_view kReference[] = {kEntityPart, kReferencePart};
constexpr std::string_view kPoint[] = {kEntityPart, "AcDbPoint"};
constexpr std::string_view kLine[] = {kEntityPart, "AcDbLine"};
constexpr std::string_view kCircle[] = {kEntityPart, "AcDbCircle"};
constexpr std::string_view kArc[] = {kEntityPart, "AcDbCircle", "AcDbArc"};

constexpr int kTextNeeds[] = {40, 10};
constexpr int kDefinitionNeeds[] = {40, 10, 2};
constexpr int kMTextNeeds[] = {10, 1};
constexpr int kReferenceNeeds[] = {2, 10};
constexpr int kPointNeeds[] = {10};
constexpr int kLineNeeds[] = {10, 11};
constexpr int kCircleNeeds[] = {10, 40};
constexpr int kArcNeeds[] = {10, 40, 50, 51};

struct Template {
  std::string_view type;
  std::span<const std::string_view> subclasses;
  std::span<const int> needs;
};

/// Entity types that a list can make.
constexpr std::array<Template, 8> kTemplates = {{
    {"TEXT", kText, kTextNeeds},
    {"ATTDEF", kDefinition, kDefinitionNeeds},
    {"MTEXT", kMText, kMTextNeeds},
    {"INSERT", kReference, kReferenceNeeds},
    {"POINT", kPoint, kPointNeeds},
    {"LINE", kLine, kLineNeeds},
    {"CIRCLE", kCircle, kCircleNeeds},
    {"ARC", kArc, kArcNeeds},
}};

const Template* templateOf(std::string_view type) {
  const auto found = std::find_if(kTemplates.begin(), kTemplates.end(),
                                  [&](const Template& t) { return t.type == type; });
  return found != kTemplates.end() ? &*found : nullptr;
}

bool isTextType(std::string_view type) {
  return type == "TEXT" || type == "ATTDEF" || type == "ATTRIB";
}

bool hasEntry(const AcDbDatabase& database, dxf::TableKind table, std::wstring_view name) {
  return database.structure().findEntry(table, name) != dxf::kNoRecord;
}

/// Whether group 40 is a height or a radius, which 0 can't be.
bool hasSize(std::string_view type) {
  return isTextType(type) || type == "MTEXT" || type == "CIRCLE" || type == "ARC";
}

bool isAllowedInText(std::string_view type, const resbuf& element) {
  switch (element.restype) {
    case 41:
      return element.resval.rreal > 0;
    case 72:
      return element.resval.rint >= 0 && element.resval.rint <= 5;
    case 73:
      return type != "TEXT" || (element.resval.rint >= 0 && element.resval.rint <= 3);
    case 74:
      return element.resval.rint >= 0 && element.resval.rint <= 3;
    default:
      return true;
  }
}

}  // namespace

bool isStructural(int type) {
  return type < 0 || type == 0 || type == RTDXF0 || type == 5 || type == 105 || type == 100 ||
         type == 102 || type == 330 || type == 360 || type == 67 || type == 410 || type >= 1000;
}

const resbuf* skipAppGroup(const resbuf* element) {
  const bool isXData = element->restype >= 1000 && element->restype < RTNONE;
  if (element->restype == kDxfXData || isXData) {
    while (element->rbnext != nullptr) element = element->rbnext;
    return element;
  }
  if (element->restype != 102 || !listText(*element).starts_with(L'{')) return element;
  const resbuf* end = element->rbnext;
  while (end != nullptr && !(end->restype == 102 && listText(*end).starts_with(L'}')))
    end = end->rbnext;
  return end != nullptr ? end : element;
}

std::span<const std::string_view> subclassesOf(std::string_view type) {
  const Template* found = templateOf(type);
  return found != nullptr ? found->subclasses : std::span<const std::string_view>();
}

Property propertyOf(std::string_view type, int code) {
  if (groupRank(kEntityPart, code) >= 0 && code != 39 && code != 38) return {kEntityPart, code};
  if (isTextType(type)) {
    const std::string_view own = type == "ATTDEF" ? kDefinitionPart : kAttributePart;
    if (type != "TEXT" && groupRank(own, code) >= 0) return {own, code};
    return {groupRank(kTextPart, code) >= 0 ? kTextPart : std::string_view(), code};
  }
  const Template* found = templateOf(type);
  if (found == nullptr) return {{}, code};
  // The angles of an arc are the only groups of the types here that don't stand below the first own
  // marker.
  const std::span<const std::string_view> parts = found->subclasses;
  return {isAngleCode(code) ? parts.back() : parts[1], code};
}

int missingGroup(std::string_view type, const resbuf* list) {
  const Template* found = templateOf(type);
  if (found == nullptr) return 0;
  for (const int needed : found->needs) {
    const resbuf* element = list;
    while (element != nullptr && element->restype != needed) element = element->rbnext;
    if (element == nullptr) return needed;
  }
  return 0;
}

bool isAllowed(const AcDbDatabase& database, std::string_view type, const resbuf& element) {
  if (!isFiniteElement(element)) return false;
  switch (element.restype) {
    case 8:
      return hasEntry(database, dxf::TableKind::kLayer, listText(element)) ||
             isSymbolName(listText(element));
    case 7:
      // Shape files are entries of the style table without a name.
      return type != "LTYPE" && !listText(element).empty() &&
             hasEntry(database, dxf::TableKind::kStyle, listText(element));
    case 40:
      return !hasSize(type) || element.resval.rreal > 0;
    case 6:
      return isLinetype(database.structure(), listText(element));
    case 62:
      return element.resval.rint >= -255 && element.resval.rint <= 256;
    case 2:
      if (type == "INSERT")
        return database.structure().findBlock(listText(element)) != dxf::kNoBlock;
      return !listText(element).empty();
    default:
      return !isTextType(type) || isAllowedInText(type, element);
  }
}

}  // namespace kovra::arx
