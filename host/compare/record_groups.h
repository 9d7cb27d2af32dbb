#pragma once

#include <string>
#include <vector>

#include "host/compare/drawing_diff.h"
#include "platform/dxf/record_draft.h"
#include "platform/dxf/record_store.h"

namespace kovra::host {

/// A group as it is compared and shown: a number in its shortest form, a text in UTF-8.
struct ComparedGroup {
  int code = 0;
  bool number = false;
  std::string value;

  bool operator==(const ComparedGroup& other) const = default;
};

using ComparedGroups = std::vector<ComparedGroup>;

/// The groups [begin, end) of a loaded record, comments left out.
ComparedGroups comparedGroups(const dxf::RecordStore& store, const dxf::RecordDraft& record,
                              std::size_t begin, std::size_t end);

/// What must change to make one list of groups the other. Groups of one code in each other's place
/// are one change.
std::vector<GroupChange> compareGroups(const ComparedGroups& before, const ComparedGroups& after);

/// All groups of a record that only one drawing has.
std::vector<GroupChange> loneGroups(const ComparedGroups& groups, ChangeKind kind);

/// The first value of a code; empty without one.
std::string valueOf(const ComparedGroups& groups, int code);

}  // namespace kovra::host
