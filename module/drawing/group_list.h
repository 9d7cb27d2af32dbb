#pragma once

#include <memory>

#include "module/frame/seam.h"

namespace kovra {

struct ReleaseGroups {
  void operator()(resbuf* list) const { acutRelRb(list); }
};

/// Owns a list of group codes.
using GroupList = std::unique_ptr<resbuf, ReleaseGroups>;

/// First element of a group code in a list; null when there is none, also for a null list.
resbuf* FindGroup(resbuf* list, int group);

}  // namespace kovra
