#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/dxf/record_store.h"

namespace kovra::host {

/// A group that two records don't share. Values are UTF-8, numbers in their shortest form; one of
/// the two is missing for a group that only the other record has.
struct GroupChange {
  int code = 0;
  std::optional<std::string> before;
  std::optional<std::string> after;
  bool number = false;  ///< the values are numbers
};

enum class ChangeKind {
  kAdded,
  kErased,
  kChanged,  ///< groups differ
  kMoved,    ///< in another block or at another place of the drawing order; groups may differ too
};

/// A record, or a header variable, in which two drawings differ.
struct RecordChange {
  ChangeKind kind = ChangeKind::kChanged;
  std::string type;          ///< group 0; of header variables their name, such as "$CLAYER"
  std::uint64_t handle = 0;  ///< 0: it has none
  std::string name;          ///< of table entries, blocks, references, attributes: group 2
  std::string place;         ///< "Model", a layout's or block's name, a table's, a section's
  std::vector<GroupChange> groups;
};

/// Says what differs between two drawings, in the order of the second one, what is erased first.
///
/// Records are found again by their handle; those without one by name in tables, else by their
/// order. What means nothing isn't told: how numbers and codes are written, line ends, encoding,
/// the form (ASCII or binary), comments, the order of header variables, table entries and objects.
void compareDrawings(dxf::RecordStore& before, dxf::RecordStore& after,
                     const std::function<void(const RecordChange&)>& take);

}  // namespace kovra::host
