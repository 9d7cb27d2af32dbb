// The lines of a multi-line text, and how much room they take.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "platform/arx/geometry.h"
#include "platform/dxf/record_draft.h"

namespace kovra::arx {

/// The text of groups 3 and 1, with its formatting codes.
std::wstring mtextContents(const dxf::RecordDraft& draft, const dxf::TextCodec& codec);

/// The text as people read it, one entry a paragraph: formatting codes are left out, stacked
/// fractions joined by their sign.
std::vector<std::wstring> mtextParagraphs(std::wstring_view contents);

/// The box of the lines: the longest line, and from the top of the first to the base of the last.
struct MTextBox {
  double width = 0;
  double height = 0;
};
/// `width` is where lines break, 0 for never; `spacing` the factor of the line distance.
MTextBox measureMText(std::wstring_view contents, double textHeight, double width, double spacing);

/// Moves the place that an embedded object for columns keeps beside the text's own.
void moveEmbeddedColumns(dxf::RecordDraft& draft, const AcGeVector3d& by);

}  // namespace kovra::arx
