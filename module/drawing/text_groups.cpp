#include "module/drawing/text_groups.h"

#include "module/drawing/angles.h"
#include "module/drawing/attachment.h"
#include "module/drawing/group_list.h"

namespace kovra {
namespace {

int numberOf(resbuf* list, int group) {
  const resbuf* found = FindGroup(list, group);
  return found != nullptr ? found->resval.rint : 0;
}

}  // namespace

TextKind TextKindOf(resbuf* list) {
  const resbuf* type = FindGroup(list, kTypeGroup);
  if (type == nullptr || type->resval.rstring == nullptr) return TextKind::other;
  const ACHAR* name = type->resval.rstring;
  if (_wcsicmp(name, L"TEXT") == 0) return TextKind::text;
  if (_wcsicmp(name, L"ATTRIB") == 0) return TextKind::attribute;
  return _wcsicmp(name, L"ATTDEF") == 0 ? TextKind::definition : TextKind::other;
}

TextModes TextModesOf(resbuf* list, TextKind kind) {
  const int vertical = kind == TextKind::text ? kTextVerticalGroup : kAttributeVerticalGroup;
  return {numberOf(list, kHorizontalGroup), numberOf(list, vertical)};
}

int ShownAttachIndex(resbuf* list, TextKind kind) {
  const TextModes modes = TextModesOf(list, kind);
  const int index = NearestAttachIndex(modes.horizontal, modes.vertical);
  return index < 0 && modes.vertical == 0 ? 0 : index;
}

double SignedDegrees(double radians) {
  // Not half a turn itself, nor what arithmetic makes of it.
  constexpr double kLargest = 180.0001;
  const double degrees = radians * 180 / kPi;
  return degrees >= kLargest ? degrees - 360 : degrees;
}

}  // namespace kovra
