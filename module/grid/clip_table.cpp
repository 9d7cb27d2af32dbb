#include "module/grid/clip_table.h"

#include <algorithm>

namespace kovra {

ClipTable::ClipTable(const ACHAR* text) : text_(text) {
  split();
  wholeFirstCell_ = text_.substr(0, text_.find(L'\0'));
  cutAtCarriageReturns();
}

void ClipTable::split() {
  cells_.push_back(0);
  std::size_t firstOfRow = 0;
  const auto endRow = [&] {
    rows_.push_back({firstOfRow, static_cast<int>(cells_.size() - firstOfRow)});
    firstOfRow = cells_.size();
  };
  for (std::size_t at = 0; at < text_.size(); ++at) {
    const wchar_t character = text_[at];
    if (character != L'\t' && character != L'\n') continue;
    text_[at] = L'\0';
    if (character == L'\n') endRow();
    cells_.push_back(at + 1);
  }
  if (rows_.empty()) endRow();
  columns_ = rows_.front().cells;
}

void ClipTable::cutAtCarriageReturns() {
  std::replace(text_.begin(), text_.end(), L'\r', L'\0');
}

const ACHAR* ClipTable::Cell(int row, int col) const {
  const Row& cells = rows_[static_cast<std::size_t>(row)];
  if (col >= cells.cells) return L"";
  return text_.c_str() + cells_[cells.firstCell + static_cast<std::size_t>(col)];
}

}  // namespace kovra
