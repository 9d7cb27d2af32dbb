#include "platform/win/desktop/dialog_outline.h"

#include <algorithm>
#include <cstdlib>

#include "platform/win/windows/window.h"

namespace kovra::win {
namespace {

using Controls = std::vector<const ControlListing*>;

int middleOf(const ControlListing& control) {
  return (control.place.top + control.place.bottom) / 2;
}

bool isLabel(const ControlListing& control) {
  return control.kind == "label";
}

bool holds(const RECT& box, const ControlListing& control) {
  const int x = (control.place.left + control.place.right) / 2;
  const int y = middleOf(control);
  return x >= box.left && x < box.right && y >= box.top && y < box.bottom;
}

/// The innermost box around the control; null if it lies in none.
const ControlListing* boxAround(const Controls& boxes, const ControlListing& control) {
  const ControlListing* found = nullptr;
  for (const ControlListing* box : boxes) {
    if (box == &control || !holds(box->place, control)) continue;
    if (found == nullptr || widthOf(box->place) < widthOf(found->place)) found = box;
  }
  return found;
}

/// Controls whose middles lie about as high stand in one row.
std::vector<OutlineRow> rowsOf(Controls controls) {
  std::stable_sort(
      controls.begin(), controls.end(),
      [](const ControlListing* a, const ControlListing* b) { return middleOf(*a) < middleOf(*b); });
  std::vector<OutlineRow> rows;
  const ControlListing* first = nullptr;
  for (const ControlListing* control : controls) {
    const bool beside =
        first != nullptr && (middleOf(*control) - middleOf(*first)) * 2 <
                                std::min(heightOf(control->place), heightOf(first->place));
    if (!beside) {
      rows.emplace_back();
      first = control;
    }
    rows.back().parts.push_back({control, {}});
  }
  for (OutlineRow& row : rows) {
    std::stable_sort(row.parts.begin(), row.parts.end(),
                     [](const OutlinePart& a, const OutlinePart& b) {
                       return a.control->place.left < b.control->place.left;
                     });
  }
  return rows;
}

bool endsLikeCaption(std::wstring_view text) {
  return text.ends_with(L':') || text.ends_with(L'\xFF1A');
}

/// A label that became a caption is no part any more.
void takeCaption(OutlinePart& field, OutlinePart& label) {
  field.caption = label.control->shown;
  label.control = nullptr;
}

void captionsBeside(OutlineRow& row) {
  for (size_t i = 1; i < row.parts.size(); ++i) {
    OutlinePart& field = row.parts[i];
    OutlinePart& before = row.parts[i - 1];
    if (!isField(*field.control) || before.control == nullptr) continue;
    if (isLabel(*before.control)) {
      takeCaption(field, before);
    } else if (before.control->check && endsLikeCaption(before.control->shown)) {
      field.caption = before.control->shown;
      field.captionIsPart = true;
    }
  }
}

/// The label above a field that begins nearest to it.
OutlinePart* labelAbove(OutlineRow& above, const ControlListing& field) {
  OutlinePart* found = nullptr;
  const auto distance = [&](const OutlinePart& part) {
    return std::abs(part.control->place.left - field.place.left);
  };
  for (OutlinePart& part : above.parts) {
    if (part.control == nullptr || !isLabel(*part.control)) continue;
    const RECT& label = part.control->place;
    const bool over = label.left < field.place.right && label.right > field.place.left;
    const int gap = field.place.top - label.bottom;
    if (!over || gap > heightOf(label)) continue;
    if (found == nullptr || distance(part) < distance(*found)) found = &part;
  }
  return found;
}

void addCaptions(std::vector<OutlineRow>& rows) {
  for (OutlineRow& row : rows) captionsBeside(row);
  for (size_t i = 1; i < rows.size(); ++i) {
    for (OutlinePart& part : rows[i].parts) {
      if (part.control == nullptr || !isField(*part.control) || !part.caption.empty()) continue;
      if (OutlinePart* label = labelAbove(rows[i - 1], *part.control)) takeCaption(part, *label);
    }
  }
  for (OutlineRow& row : rows)
    std::erase_if(row.parts, [](const OutlinePart& part) { return part.control == nullptr; });
  std::erase_if(rows, [](const OutlineRow& row) { return row.parts.empty(); });
}

/// A box or a row outside boxes, with the place where it begins.
struct Block {
  int top = 0;
  const ControlListing* box = nullptr;
  std::vector<OutlineRow> rows;
};

std::vector<OutlineRow> captionedRows(const Controls& controls) {
  std::vector<OutlineRow> rows = rowsOf(controls);
  addCaptions(rows);
  return rows;
}

std::vector<OutlineGroup> inOrder(std::vector<Block> blocks) {
  std::stable_sort(blocks.begin(), blocks.end(),
                   [](const Block& a, const Block& b) { return a.top < b.top; });
  std::vector<OutlineGroup> groups;
  bool outside = false;  // the group before has no box
  for (Block& block : blocks) {
    if (!outside || block.box != nullptr) groups.emplace_back();
    outside = block.box == nullptr;
    if (!outside) groups.back().title = block.box->shown;
    std::move(block.rows.begin(), block.rows.end(), std::back_inserter(groups.back().rows));
  }
  return groups;
}

}  // namespace

bool isField(const ControlListing& control) {
  return !control.check && !isLabel(control) && control.kind != "button" &&
         control.kind != "icon" && control.kind != "group" && control.kind != "spin";
}

std::vector<OutlineGroup> outlineOf(const DialogListing& dialog) {
  Controls boxes;
  Controls others;
  for (const ControlListing& control : dialog.controls) {
    if (!control.visible || control.kind == "icon") continue;
    if (isLabel(control) && control.shown.empty()) continue;
    (control.kind == "group" ? boxes : others).push_back(&control);
  }
  std::vector<Block> blocks;
  for (const ControlListing* box : boxes) {
    Controls inside;
    std::copy_if(others.begin(), others.end(), std::back_inserter(inside),
                 [&](const ControlListing* one) { return boxAround(boxes, *one) == box; });
    if (!inside.empty()) blocks.push_back({box->place.top, box, captionedRows(inside)});
  }
  std::erase_if(others,
                [&](const ControlListing* one) { return boxAround(boxes, *one) != nullptr; });
  for (OutlineRow& row : captionedRows(others)) {
    const int top = row.parts.front().control->place.top;
    blocks.push_back({top, nullptr, {std::move(row)}});
  }
  return inOrder(std::move(blocks));
}

std::wstring captionOf(const std::vector<OutlineGroup>& outline, const ControlListing& control) {
  if (!isField(control)) return control.shown;
  for (const OutlineGroup& group : outline)
    for (const OutlineRow& row : group.rows)
      for (const OutlinePart& part : row.parts)
        if (part.control == &control) return part.caption;
  return {};
}

}  // namespace kovra::win
