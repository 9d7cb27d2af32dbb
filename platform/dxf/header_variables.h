#pragma once

#include <string_view>

#include "platform/dxf/record_draft.h"

namespace kovra::dxf {

/// Calls `visit(name, group)` for each header variable ("$CLAYER") in the record of the HEADER
/// section, with its first value group; kNoGroup if it has no value.
template <class Visit>
void forEachVariable(const RecordDraft& header, Visit visit) {
  for (std::size_t n = 0; n < header.size(); ++n) {
    if (header.code(n) != 9) continue;
    std::size_t value = n + 1;
    while (value < header.size() && header.code(value) == 999) ++value;
    const bool missing = value == header.size() || header.code(value) == 9;
    visit(trimmed(header.text(n)), missing ? kNoGroup : value);
  }
}

/// The value of the first variable of this name; kNoGroup if it isn't there or has no value.
inline std::size_t findVariable(const RecordDraft& header, std::string_view name) {
  std::size_t found = kNoGroup;
  bool known = false;
  forEachVariable(header, [&](std::string_view variable, std::size_t value) {
    if (known || variable != name) return;
    known = true;
    found = value;
  });
  return found;
}

}  // namespace kovra::dxf
