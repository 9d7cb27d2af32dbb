#pragma once

#include <string_view>

#include "platform/dxf/record_draft.h"

namespace kovra::dxf {

/// The first value group of a header variable ("$CLAYER") in the record of the HEADER section;
/// kNoGroup if it isn't there or has no value.
inline std::size_t findVariable(const RecordDraft& header, std::string_view name) {
  for (std::size_t n = 0; n < header.size(); ++n) {
    if (header.code(n) != 9 || trimmed(header.text(n)) != name) continue;
    std::size_t value = n + 1;
    while (value < header.size() && header.code(value) == 999) ++value;
    return value == header.size() || header.code(value) == 9 ? kNoGroup : value;
  }
  return kNoGroup;
}

}  // namespace kovra::dxf
