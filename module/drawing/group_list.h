#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// First element of a group code in a list; null when there is none, also for a null list.
resbuf* FindGroup(resbuf* list, int group);

}  // namespace kovra
