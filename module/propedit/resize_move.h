#pragma once

#include "module/propedit/resize_entity.h"

namespace kovra {

/// Lets the user drag the entity to another place and moves it there. An attribute can't be
/// dragged: a text that stands for it is, and is gone afterwards.
/// @return whether the entity was moved
bool MoveResizeEntity(const ResizeEntity& entity);

}  // namespace kovra
