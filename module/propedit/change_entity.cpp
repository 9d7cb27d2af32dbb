#include "module/propedit/change_entity.h"

#include <cmath>

#include "module/drawing/angles.h"
#include "module/drawing/attachment.h"
#include "module/drawing/group_list.h"

namespace kovra {
namespace {

/// Numbers that are this near count as equal.
constexpr double kTolerance = 0.0001;

/// What a text without the group has.
constexpr const ACHAR* kMissingStyle = L"STANDARD";
constexpr double kMissingWidthFactor = 1.0;
constexpr double kMissingRotation = 0.0;

struct GroupOfProperty {
  int group;
  TextProperty property;
};

constexpr GroupOfProperty kGroupTable[] = {
    {kLayerGroup, kLayerProperty},           {kStyleGroup, kStyleProperty},
    {kHeightGroup, kHeightProperty},         {kWidthFactorGroup, kWidthFactorProperty},
    {kRotationGroup, kRotationProperty},     {kHorizontalGroup, kAlignmentProperty},
    {kTextVerticalGroup, kAlignmentProperty}};

bool isNear(double one, double other) {
  return std::abs(one - other) <= kTolerance;
}

/// A new element at the end of a list, which has at least one; null without memory.
resbuf* append(resbuf* list, int group) {
  while (list->rbnext != nullptr) list = list->rbnext;
  return list->rbnext = acutNewRb(group);
}

bool setName(resbuf& element, const CString& name) {
  const ACHAR* former = element.resval.rstring;
  if (former != nullptr && name.CompareNoCase(former) == 0) return false;
  acutDelString(element.resval.rstring);
  return acutNewString(name.GetString(), element.resval.rstring) == RTNORM;
}

bool setReal(resbuf& element, double value) {
  if (isNear(value, element.resval.rreal)) return false;
  element.resval.rreal = value;
  return true;
}

bool setMode(resbuf& element, int mode) {
  if (element.resval.rint == mode) return false;
  element.resval.rint = static_cast<short>(mode);
  return true;
}

/// Changes a group that the list has; false when it is equal.
bool changeGroup(resbuf& element, const TextChange& change) {
  switch (element.restype) {
    case kLayerGroup:
      return setName(element, change.layer);
    case kStyleGroup:
      return setName(element, change.style);
    case kHeightGroup:
      return setReal(element, change.height);
    case kWidthFactorGroup:
      return setReal(element, change.widthFactor);
    case kRotationGroup:
      return setReal(element, change.rotation);
    case kHorizontalGroup:
      return setMode(element, change.modes.horizontal);
    default:
      return setMode(element, change.modes.vertical);
  }
}

/// Whether a group that the list lacks says nothing new: it stands for the value, or can't be had.
bool isImplied(int group, const TextChange& change) {
  switch (group) {
    case kStyleGroup:
      return change.style.CompareNoCase(kMissingStyle) == 0;
    case kWidthFactorGroup:
      return isNear(change.widthFactor, kMissingWidthFactor);
    case kRotationGroup:
      return isNear(change.rotation, kMissingRotation);
    default:
      return group == kLayerGroup || group == kHeightGroup;
  }
}

bool addGroup(resbuf* list, int group, const TextChange& change) {
  if (isImplied(group, change)) return false;
  resbuf* element = append(list, group);
  if (element == nullptr) return false;
  changeGroup(*element, change);
  return true;
}

bool changeGroups(resbuf* list, const TextChange& change) {
  bool changed = false;
  for (const auto& [group, property] : kGroupTable) {
    if (!change.checks[property]) continue;
    resbuf* found = FindGroup(list, group);
    changed |= found != nullptr ? changeGroup(*found, change) : addGroup(list, group, change);
  }
  return changed;
}

int anchorGroup(const TextModes& modes) {
  return modes.horizontal != 0 || modes.vertical != 0 ? kAlignmentPointGroup : kPositionGroup;
}

/// The point that a text hangs on; that of its position when it lacks the other. Null without both.
const resbuf* anchorOf(resbuf* list) {
  const resbuf* anchor = FindGroup(list, anchorGroup(TextModesOf(list, TextKind::text)));
  return anchor != nullptr ? anchor : FindGroup(list, kPositionGroup);
}

void setPoint(resbuf* list, int group, const ads_point point) {
  resbuf* element = FindGroup(list, group);
  if (element == nullptr) element = append(list, group);
  if (element != nullptr) ads_point_set(point, element->resval.rpoint);
}

ChangeResult change(resbuf* list, const TextChange& change) {
  const resbuf* found = anchorOf(list);
  const bool anchored = found != nullptr && change.checks[kAlignmentProperty];
  ads_point anchor = {};
  if (anchored) ads_point_set(found->resval.rpoint, anchor);
  if (!changeGroups(list, change)) return ChangeResult::unchanged;
  if (anchored) setPoint(list, anchorGroup(change.modes), anchor);
  return acdbEntMod(list) == RTNORM ? ChangeResult::changed : ChangeResult::refused;
}

/// Moves a text so that its position comes to lie at a place.
void moveTo(const ads_name entity, const ads_point place) {
  const GroupList list(acdbEntGet(entity));
  const resbuf* position = FindGroup(list.get(), kPositionGroup);
  if (position == nullptr) return;
  acedCommandS(RTSTR, L"_.move", RTENAME, entity, RTSTR, L"", RTSTR, L"NON", RTPOINT,
               position->resval.rpoint, RTSTR, L"NON", RTPOINT, place, 0);
}

}  // namespace

TextChange TextChangeOf(const TextPropertyFlags& checks, const TextValues& values,
                        int attachIndex) {
  const auto number = [&](TextProperty property) { return _wtof(values[property].GetString()); };
  TextChange change;
  change.checks = checks;
  change.layer = values[kLayerProperty];
  change.style = values[kStyleProperty];
  change.height = number(kHeightProperty);
  change.widthFactor = number(kWidthFactorProperty);
  change.rotation = number(kRotationProperty) * kPi / 180;
  AttachIndexToModes(attachIndex, change.modes.horizontal, change.modes.vertical);
  return change;
}

ChangeResult ChangeEntity(const ads_name entity, const TextChange& wanted) {
  GroupList list(acdbEntGet(entity));
  if (list == nullptr) return ChangeResult::refused;
  const resbuf* position = FindGroup(list.get(), kPositionGroup);
  const bool staysInPlace = position != nullptr && wanted.checks[kAlignmentProperty];
  ads_point place = {};
  if (staysInPlace) ads_point_set(position->resval.rpoint, place);
  const ChangeResult result = change(list.get(), wanted);
  list.reset();
  if (staysInPlace) moveTo(entity, place);
  return result;
}

}  // namespace kovra
