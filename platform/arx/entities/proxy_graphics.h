// The picture that an entity carries for programs that don't know its type.
#pragma once
#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_draft.h"

namespace kovra::arx {

/// Displaces an entity's picture (310 behind 160, in old drawings 92), which is in world
/// coordinates. One that can't be read stays as it is.
void translateProxyGraphics(dxf::RecordDraft& draft, const AcGeVector3d& by);

}  // namespace kovra::arx
