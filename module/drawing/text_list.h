#pragma once

#include <memory>

#include "module/drawing/growing_list.h"

namespace kovra {

/// List of names or table values. A copy refers to the same strings as its source, which live as
/// long as a list refers to them.
using TextList = GrowingList<std::shared_ptr<const wchar_t[]>>;

/// Appends a copy of `text`; null counts as an empty text.
/// @return the index of the new entry
int TextListAdd(TextList& list, const wchar_t* text);

/// Releases the strings, the last one first, and leaves the list empty.
void ClearTextList(TextList& list);

}  // namespace kovra
