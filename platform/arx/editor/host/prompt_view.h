// What a program that shows the drawing paints over it for the prompt that waits.
#pragma once
#include <optional>
#include <vector>

#include "platform/arx/database/object_id.h"
#include "platform/arx/editor/host_api.h"
#include "platform/arx/geometry/geometry.h"

class AcDbEntity;

namespace kovra::arx {
struct ActiveDrag;
}

namespace kovra::arx::host {

/// Points are in world coordinates. What it points at lives until the pump goes on.
struct PromptView {
  WaitKind kind = WaitKind::kNone;
  bool takesPoints = false;         ///< a click answers
  std::optional<AcGePoint3d> base;  ///< where a rubber band begins
  bool corner = false;              ///< the band is a box
  AcGePoint3d cursor;               ///< where a click would count
  bool cursorKnown = false;
  AcDbEntity* jigged = nullptr;        ///< what a jig shows
  const ActiveDrag* drag = nullptr;    ///< what is dragged, where
  std::vector<AcDbObjectId> selected;  ///< the implied selection, or the one in progress
  std::vector<AcDbObjectId> highlighted;
};

/// Of the current drawing; empty with none.
PromptView promptView();

/// What a click would take where the cursor is.
struct Hovered {
  AcDbObjectId entity;  ///< of the current space
  AcDbObjectId taken;   ///< the entity, or its part that is meant
  bool operator==(const Hovered&) const = default;
};
/// Nothing where the prompt that waits picks nothing, and as long as nobody knows what lies near
/// the cursor (see EntityIndex). Reads the drawing.
std::optional<Hovered> hovered();

}  // namespace kovra::arx::host
