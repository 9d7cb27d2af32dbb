// The lines of a multi-line text, and where they stand.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_draft.h"

namespace kovra::arx {

/// The bytes of groups 3 and 1 as one: an escape may begin in one group and end in the next.
std::string mtextBytes(const dxf::RecordDraft& draft);
/// The text of these groups, with its formatting codes.
std::wstring mtextContents(const dxf::RecordDraft& draft, const dxf::TextCodec& codec);

/// The text as people read it, one entry a paragraph: formatting codes are left out, stacked
/// fractions joined by their sign.
std::vector<std::wstring> mtextParagraphs(std::wstring_view contents);

/// A line as it is drawn; its width in drawing units.
struct MTextLine {
  std::wstring text;
  double width = 0;
};
/// `width` is where lines break, 0 for never.
std::vector<MTextLine> mtextLines(std::wstring_view contents, double textHeight, double width);

/// Where the lines of an MTEXT stand, in the coordinates of its block or space.
struct MTextLayout {
  std::vector<MTextLine> lines;
  double textHeight = 0;
  double lineStep = 0;  ///< from base line to base line
  // The box: the longest line, and from the top of the first to the base of the last.
  double width = 0;
  double height = 0;
  double left = 0;         ///< along from the location
  double top = 0;          ///< up from the location
  double indentShare = 0;  ///< of what a line is shorter than the box: 0, a half or 1
  AcGePoint3d location;
  AcGeVector3d along;
  AcGeVector3d up;
  AcGeVector3d normal;
};
MTextLayout layOutMText(const dxf::RecordDraft& draft, const dxf::TextCodec& codec);

/// Moves the place that an embedded object for columns keeps beside the text's own.
void moveEmbeddedColumns(dxf::RecordDraft& draft, const AcGeVector3d& by);

}  // namespace kovra::arx
