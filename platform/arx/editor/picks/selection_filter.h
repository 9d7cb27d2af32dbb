#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_draft.h"
#include "platform/dxf/record_kind.h"

class AcDbDatabase;
struct resbuf;

namespace kovra::arx {

/// Conditions on an entity's groups, as acedSSGet takes them: pairs of group code and value, all of
/// which must hold; texts with wild cards, without regard to case; "<AND" "<OR" "<XOR" "<NOT" and
/// their ends as group -4, and the relations "=", "!=", "<", "<=", ">", ">=", "*" before a number
/// or a point (then one for each coordinate, between commas).
class SelectionFilter {
 public:
  /// Takes everything.
  SelectionFilter() = default;
  /// Nothing for a list that isn't well-formed.
  static std::optional<SelectionFilter> fromList(const resbuf* list);

  bool empty() const { return nodes_.empty(); }
  bool matches(const AcDbDatabase& database, dxf::RecordIndex record) const;

 private:
  enum class Kind { kAnd, kOr, kXor, kNot, kText, kNumber, kPoint };
  struct Node {
    Kind kind = Kind::kAnd;
    std::vector<Node> parts{};
    int code = 0;
    std::wstring text{};
    std::vector<std::wstring> relations{};  ///< one for a number, one a coordinate for a point
    AcGePoint3d point{};                    ///< x for a number
  };
  class Reader;

  static bool holds(const Node& node, const AcDbDatabase& database, const dxf::RecordDraft& draft);

  std::vector<Node> nodes_;
};

}  // namespace kovra::arx
