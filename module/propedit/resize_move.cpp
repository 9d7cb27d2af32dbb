#include "module/propedit/resize_move.h"

#include <algorithm>
#include <iterator>

#include "module/drawing/coordinates.h"
#include "module/drawing/group_list.h"
#include "module/drawing/open_text.h"
#include "module/drawing/selection_set.h"
#include "module/drawing/system_variables.h"
#include "module/drawing/text_styles.h"
#include "module/frame/companions/entity_attr_lib.h"
#include "module/frame/reporting.h"
#include "module/propedit/resize_height.h"

namespace kovra {
namespace {

constexpr UINT kPlacePrompt = 2754;

// Where the cursor stands when the entity lies where it is, and where the drag saw it last. UCS.
ads_point DragStart = {};
ads_point DragEnd = {};

int ResizeDragTransform(ads_point cursor, ads_matrix transform) {
  ads_point way = {};
  for (int axis = X; axis <= Z; ++axis) way[axis] = cursor[axis] - DragStart[axis];
  int ortho = 0;
  if (GetVar(L"ORTHOMODE", ortho) == 0 && ortho != 0) KeepLargerAxis(way[X], way[Y]);
  for (int axis = X; axis <= Z; ++axis) {
    DragEnd[axis] = way[axis] == 0 ? DragStart[axis] : cursor[axis];
  }
  SetTranslation(transform, way);
  return RTNORM;
}

/// The groups that a text takes over from the attribute that it stands for. 210 is the plane that
/// the points lie in.
constexpr int kTakenOver[] = {1, 7, 8, 10, 11, 40, 41, 50, 51, 62, 71, 72, 74, 210};

bool isTakenOver(const resbuf& element) {
  if (std::find(std::begin(kTakenOver), std::end(kTakenOver), element.restype) ==
      std::end(kTakenOver)) {
    return false;
  }
  // A style that the drawing lacks shows as the usual one.
  AcDbObjectId style;
  return element.restype != kStyleGroup || GTxtStyId(element.resval.rstring, style) == 0;
}

/// A text's element for one of an attribute.
resbuf* takenOver(const resbuf& source) {
  resbuf* element = acutNewRb(source.restype);
  if (element == nullptr) return nullptr;
  switch (source.restype) {
    case 1:
    case kStyleGroup:
    case kLayerGroup:
      element->resval.rstring = nullptr;
      acutNewString(source.resval.rstring, element->resval.rstring);
      break;
    default:
      element->resval = source.resval;
      break;
  }
  if (source.restype == kAttributeVerticalGroup) element->restype = kTextVerticalGroup;
  return element;
}

GroupList standInGroups(const resbuf* attribute) {
  GroupList list(acutBuildList(RTDXF0, L"TEXT", 100, L"AcDbEntity", RTNONE));
  if (list == nullptr) return list;
  resbuf* tail = list->rbnext;
  for (; attribute != nullptr; attribute = attribute->rbnext) {
    if (!isTakenOver(*attribute)) continue;
    resbuf* element = takenOver(*attribute);
    if (element != nullptr) tail = tail->rbnext = element;
  }
  return list;
}

/// Owns the text that stands for an attribute during a drag; it leaves the drawing with the scope.
class StandIn {
 public:
  StandIn() = default;
  ~StandIn() {
    if (made_) acdbEntDel(name_);
  }
  StandIn(const StandIn&) = delete;
  StandIn& operator=(const StandIn&) = delete;

  bool make(const resbuf* attribute) {
    const GroupList list = standInGroups(attribute);
    made_ = list != nullptr && acdbEntMake(list.get()) == RTNORM && acdbEntLast(name_) == RTNORM;
    return made_;
  }
  const ads_name& name() const { return name_; }

 private:
  ads_name name_ = {};
  bool made_ = false;
};

/// The point that fixes the entity, in the UCS. False when the list has none.
bool readBasePoint(const ResizeEntity& entity, resbuf* list, ads_point base) {
  const TextModes modes = TextModesOf(list, entity.EntityKind);
  const bool leftAligned = modes.horizontal == 0 && modes.vertical == 0;
  const resbuf* position = FindGroup(list, kPositionGroup);
  const resbuf* alignment = leftAligned ? nullptr : FindGroup(list, kAlignmentPointGroup);
  if (position == nullptr) return false;
  EntityToWorld(entity.name, (alignment != nullptr ? alignment : position)->resval.rpoint, base);
  WorldToUcs(base, base);
  return true;
}

/// Lets the user drag an entity from DragStart to DragEnd, and moves it.
bool dragAndMove(const ads_name name) {
  const CString prompt = ResourceText(kPlacePrompt);
  ads_point place = {};
  {
    SelectionSet dragged;
    if (!dragged.create() || !dragged.add(name)) return false;
    if (acedDragGen(dragged.name(), prompt.GetString(), 0, ResizeDragTransform, place) != RTNORM) {
      return false;
    }
  }
  return acedCommandS(RTSTR, L".MOVE", RTENAME, name, RTSTR, L"", RTSTR, L"NON", RTPOINT, DragStart,
                      RTSTR, L"NON", RTPOINT, DragEnd, RTNONE) == RTNORM;
}

/// Puts an attribute where its stand-in was dragged to.
bool placeAttribute(const ResizeEntity& entity) {
  ads_point world = {};
  UcsToWorld(DragEnd, world);
  const AcGePoint3d place(world[X], world[Y], world[Z]);
  const OpenText text(entity.id(), AcDb::kForWrite);
  if (!text) return false;
  if (text->horizontalMode() != AcDb::kTextLeft || text->verticalMode() != AcDb::kTextBase) {
    text->setAlignmentPoint(place);
  } else {
    text->setPosition(place);
  }
  text->adjustAlignment(text->database());
  NotifyEntityEdited(&*text, text->database());
  return true;
}

bool moveAttribute(const ResizeEntity& entity, const resbuf* list) {
  // On a layer that was locked meanwhile the stand-in couldn't be taken back either.
  if (!OpenText(entity.id(), AcDb::kForWrite)) return false;
  StandIn standIn;
  return standIn.make(list) && dragAndMove(standIn.name()) && placeAttribute(entity);
}

}  // namespace

bool MoveResizeEntity(const ResizeEntity& entity) {
  if (!entity.isSelected()) return false;
  const GroupList list(acdbEntGet(entity.name));
  if (!readBasePoint(entity, list.get(), DragStart)) return false;
  if (entity.EntityKind == TextKind::text) return dragAndMove(entity.name);
  return moveAttribute(entity, list.get());
}

}  // namespace kovra
