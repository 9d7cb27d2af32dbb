#pragma once

#include <vector>

#include "module/align/column_layout.h"
#include "module/align/text_values.h"

namespace kovra {

/// The values of one text as the dialog shows them.
TextValues TextValuesOf(const AcDbText& text);

/// What the texts have in common; an empty value where they differ.
TextValues GetCommonTextValues(const AcDbObjectIdArray& ids);

/// Hides the texts and gives them the properties of `applySet` (digits). A text whose new style
/// isn't in the drawing keeps the properties behind the style. One that can't be opened is passed
/// over.
void ApplyTextValues(const AcDbObjectIdArray& ids, const TextValues& values, const ACHAR* applySet);

/// Measures the texts, turned level, and leaves them as they are. One entry for each id; zeros for
/// an object that can't be measured.
std::vector<TextExtent> MeasureTextExtents(const AcDbObjectIdArray& ids);

}  // namespace kovra
