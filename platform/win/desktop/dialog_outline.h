#pragma once

#include <string>
#include <vector>

#include "platform/win/desktop/dialog_listing.h"

/// A dialog as a person reads it: what is visible, box by box and row by row, each field with the
/// caption that stands beside or above it.
namespace kovra::win {

struct OutlinePart {
  const ControlListing* control = nullptr;
  std::wstring caption;        ///< of a field; empty: it has none
  bool captionIsPart = false;  ///< the check box or radio button right before it is its caption
};

/// What stands side by side, from left to right.
struct OutlineRow {
  std::vector<OutlinePart> parts;
};

/// The rows in a group box, or those between two boxes.
struct OutlineGroup {
  std::wstring title;  ///< empty without a box
  std::vector<OutlineRow> rows;
};

/// What takes a value: neither a text, a picture or a frame nor something to press.
bool isField(const ControlListing& control);

/// From top to bottom. Labels that are captions aren't parts of their own. The parts point into the
/// listing.
std::vector<OutlineGroup> outlineOf(const DialogListing& dialog);

/// The caption of a control: a field's label, what is written on the others.
std::wstring captionOf(const std::vector<OutlineGroup>& outline, const ControlListing& control);

}  // namespace kovra::win
