#include "module/drawing/text_entity.h"

#include "module/drawing/attachment.h"
#include "module/drawing/group_list.h"
#include "module/drawing/text_styles.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

bool isLinetype(const ACHAR* name) {
  for (const ACHAR* known : {L"BYLAYER", L"BYBLOCK", L"CONTINUOUS"}) {
    if (_wcsicmp(name, known) == 0) return true;
  }
  return GroupList(acdbTblSearch(L"LTYPE", name, 0)) != nullptr;
}

/// Whether the drawing lacks what a text names. Such a text shows as one without the name, and so
/// does its copy, which the platform wouldn't make with it.
bool namesNothing(const resbuf& element) {
  const ACHAR* name = element.resval.rstring;
  if (name == nullptr || *name == ACHAR{}) return false;
  if (element.restype == 6) return !isLinetype(name);
  AcDbObjectId style;
  return element.restype == 7 && GTxtStyId(name, style) != 0;
}

/// The element that a copy takes over from its source, or null for a group that it leaves out.
resbuf* copiedElement(const resbuf& source) {
  switch (source.restype) {
    case 6:
    case 7:
    case 8:
      if (namesNothing(source)) return nullptr;
      return acutBuildList(RTSTR, source.resval.rstring, RTNONE);
    case 10:
    case 11:
      return acutBuildList(RTPOINT, source.resval.rpoint, RTNONE);
    case 40:
    case 41:
    case 48:
    case 50:
    case 51:
      return acutBuildList(RTREAL, source.resval.rreal, RTNONE);
    case 62:
    case 72:
    case 73:
    case 370:
      return acutBuildList(RTSHORT, static_cast<int>(source.resval.rint), RTNONE);
    default:
      return nullptr;
  }
}

/// The list of a copy: type, value, and what it takes over.
GroupList copyGroups(const resbuf* source) {
  GroupList copy(acutBuildList(RTSTR, L"TEXT", RTSTR, L"", RTNONE));
  if (copy == nullptr) return copy;
  resbuf* tail = copy->rbnext;
  copy->restype = 0;
  tail->restype = 1;
  for (; source != nullptr; source = source->rbnext) {
    resbuf* element = copiedElement(*source);
    if (element == nullptr) continue;
    element->restype = source->restype;
    tail = tail->rbnext = element;
  }
  return copy;
}

const ACHAR* valueOf(resbuf* groups) {
  const resbuf* type = FindGroup(groups, 0);
  if (type == nullptr || _wcsicmp(type->resval.rstring, L"TEXT") != 0) return L"";
  const resbuf* value = FindGroup(groups, 1);
  return value != nullptr && value->resval.rstring != nullptr ? value->resval.rstring : L"";
}

}  // namespace

int AddText(const TextCommonProps& properties, const TextGeometry& geometry, const ACHAR* style,
            const ACHAR* value, const ads_point point, ads_name entity) {
  int horizontal = 0;
  int vertical = 0;
  if (AttachIndexToModes(geometry.attachment, horizontal, vertical) != 0) {
    TraceError(L"AddText error Attach %d", geometry.attachment);
    return -3;
  }
  const GroupList groups(acutBuildList(
      RTDXF0, L"TEXT", 100, L"AcDbEntity", 8, properties.layer, 10, point, 40, geometry.height, 41,
      geometry.widthFactor, 1, value, 50, geometry.rotation, 62, properties.color, 7, style, 71, 0,
      72, horizontal, 11, point, 100, L"AcDbText", 73, vertical, RTNONE));
  if (groups == nullptr) {
    TraceError(L"AddText error acutBuildList");
    return -1;
  }
  if (acdbEntMake(groups.get()) == RTREJ) {
    TraceError(L"AddText error acdbEntMake");
    return -2;
  }
  if (acdbEntLast(entity) != RTNORM) {
    TraceError(L"AddText error acdbEntLast");
    return -2;
  }
  return 0;
}

TextSource::TextSource(const ads_name text) {
  const GroupList groups(acdbEntGet(text));
  value_ = valueOf(groups.get());
  copy_ = copyGroups(groups.get());
  for (resbuf* element = copy_.get(); element != nullptr; element = element->rbnext) {
    if (element->restype != 10 && element->restype != 11) continue;
    Place& place = places_.emplace_back();
    place.element = element;
    ads_point_set(element->resval.rpoint, place.from);
  }
}

int CopyTextEntity(const TextSource& source, ads_name entity, const ACHAR* value, double offsetX,
                   double offsetY) {
  resbuf* text = FindGroup(source.copy_.get(), 1);
  if (text == nullptr) return 0;
  acutDelString(text->resval.rstring);
  if (acutNewString(value, text->resval.rstring) != RTNORM) return 0;
  for (const auto& [element, from] : source.places_) {
    element->resval.rpoint[X] = from[X] + offsetX;
    element->resval.rpoint[Y] = from[Y] + offsetY;
  }
  if (acdbEntMake(source.copy_.get()) != RTNORM) return 0;
  return acdbEntLast(entity) == RTNORM ? 1 : 0;
}

}  // namespace kovra
