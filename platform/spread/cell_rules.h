#pragma once

#include <algorithm>
#include <vector>

#include "platform/win/base/windows_types.h"

namespace kovra::spread {

/// A value for single cells, whole columns (row -1), whole rows (column -1) or all cells. What was
/// set last counts where several fit.
template <typename Value>
class CellRules {
 public:
  void set(LONG col, LONG row, const Value& value) {
    std::erase_if(rules_, [=](const Rule& rule) {
      return (col == kAll || rule.col == col) && (row == kAll || rule.row == row);
    });
    rules_.push_back({col, row, value});
  }

  Value at(LONG col, LONG row, const Value& otherwise) const {
    const auto found = std::find_if(rules_.rbegin(), rules_.rend(), [=](const Rule& rule) {
      return (rule.col == kAll || rule.col == col) && (rule.row == kAll || rule.row == row);
    });
    return found != rules_.rend() ? found->value : otherwise;
  }

  /// A row goes; those below it move up.
  void deleteRow(LONG row) {
    std::erase_if(rules_, [row](const Rule& rule) { return rule.row == row; });
    for (Rule& rule : rules_)
      if (rule.row > row) --rule.row;
  }

 private:
  static constexpr LONG kAll = -1;
  struct Rule {
    LONG col;
    LONG row;
    Value value;
  };
  std::vector<Rule> rules_;
};

}  // namespace kovra::spread
