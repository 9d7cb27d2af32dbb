#include "platform/arx/database/group_order.h"

#include <array>
#include <cstdint>
#include <span>

#include "platform/arx/database/record_edit.h"

namespace kovra::arx {
namespace {

// The orders that the drawing format's own writers keep. 100 stands where a marker is repeated.
constexpr int kEntity[] = {67, 410, 8, 6, 62, 420, 430, 440, 370, 48, 60, 38, 39};
constexpr int kText[] = {39, 10, 20, 30, 40, 1,   50,  41,  51,  7,
                         71, 72, 11, 21, 31, 210, 220, 230, 100, 73};
constexpr int kAttribute[] = {280, 3, 2, 70, 73, 74};
constexpr int kMText[] = {10,  20, 30, 40, 41, 46, 71, 72, 3,  1,  7,  210, 220,
                          230, 11, 21, 31, 42, 43, 50, 73, 44, 90, 63, 45};
constexpr int kReference[] = {66, 2, 10, 20, 30, 41, 42, 43, 50, 70, 71, 44, 45, 210, 220, 230};
constexpr int kLayer[] = {2, 70, 62, 420, 6, 290, 370, 390, 347};
constexpr int kStyle[] = {2, 70, 40, 41, 50, 71, 42, 3, 4};

constexpr GroupOrder kNone{std::span<const int>()};
constexpr GroupOrder kEntityOrder{kEntity};
constexpr GroupOrder kTextOrder{kText};
constexpr GroupOrder kAttributeOrder{kAttribute};
constexpr GroupOrder kMTextOrder{kMText};
constexpr GroupOrder kReferenceOrder{kReference};
constexpr GroupOrder kLayerOrder{kLayer};
constexpr GroupOrder kStyleOrder{kStyle};

}  // namespace

const GroupOrder& groupOrder(std::string_view subclass) {
  if (isSubclass(subclass, kEntityPart)) return kEntityOrder;
  if (isSubclass(subclass, kTextPart)) return kTextOrder;
  if (isSubclass(subclass, kAttributePart) || isSubclass(subclass, kDefinitionPart))
    return kAttributeOrder;
  if (isSubclass(subclass, kMTextPart)) return kMTextOrder;
  if (isSubclass(subclass, kReferencePart)) return kReferenceOrder;
  if (isSubclass(subclass, kLayerPart)) return kLayerOrder;
  if (isSubclass(subclass, kStylePart)) return kStyleOrder;
  return kNone;
}

}  // namespace kovra::arx
