#pragma once

#include <string>

#include "platform/arx/editor/documents/selection_sets.h"
#include "platform/arx/editor/picks/selection_filter.h"
#include "platform/arx/editor/prompts/prompt.h"

namespace kovra::arx {

/// How a prompt for a selection asks.
struct SelectionRequest {
  std::wstring addPrompt = L"Select objects: ";
  std::wstring removePrompt = L"Remove objects: ";
  SelectionFilter filter{};
  bool attributes = false;    ///< attributes of block references can be selected by themselves
  bool single = false;        ///< ends with the first answer that finds something
  bool refuseLocked = false;  ///< entities on locked layers are counted and left out
};

/// Asks until a plain Enter. Clicks pick an entity or, in the empty, begin a box: to the right what
/// lies inside, to the left also what it crosses. Typed: ALL, Window, Crossing, Last, Previous,
/// Add, Remove, Undo. False when cancelled; an empty set is a success.
bool askSelection(AcApDocument& document, const SelectionRequest& request, SelectionSet& set);

/// What has been selected so far by the innermost prompt for a selection, for whoever paints it;
/// null without one.
const SelectionSet* activeSelection();

/// What a built-in command works on: the implied selection if the user started the command with
/// one, else what askSelection gives; nothing on locked layers.
bool editableSelection(AcApDocument& document, SelectionSet& set);

}  // namespace kovra::arx
