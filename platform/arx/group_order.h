// In which order a subclass writes its groups.
#pragma once
#include <string_view>

namespace kovra::arx {

/// The place of a code among the groups of a subclass; -1 for codes that the subclass doesn't write
/// itself, which stand before all of its own (in R12 those of every entity).
int groupRank(std::string_view subclass, int code);

}  // namespace kovra::arx
