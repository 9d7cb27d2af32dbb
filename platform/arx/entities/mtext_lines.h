// The lines of a multi-line text, and where they stand.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/arx/entities/mtext_columns.h"
#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_draft.h"

namespace kovra::arx {

/// The bytes of groups 3 and 1 as one: an escape may begin in one group and end in the next.
std::string mtextBytes(const dxf::RecordDraft& draft);
/// The text of these groups, with its formatting codes.
std::wstring mtextContents(const dxf::RecordDraft& draft, const dxf::TextCodec& codec);

/// A line as it is drawn, with its place in drawing units.
struct MTextLine {
  std::wstring text;
  double width = 0;
  double left = 0;         ///< along from the location
  double base = 0;         ///< up from the location
  bool newColumn = false;  ///< a code says that it begins a column
};
/// The lines without their places. The text is as people read it: formatting codes are left out,
/// stacked fractions joined by their sign. `width` is where lines break, 0 for never.
std::vector<MTextLine> mtextLines(std::wstring_view contents, double textHeight, double width);

/// Where the lines of an MTEXT stand, in the coordinates of its block or space.
struct MTextLayout {
  std::vector<MTextLine> lines;
  double textHeight = 0;
  // The box: the longest line or all columns, and from the top of the first line to the lowest
  // base.
  double width = 0;
  double height = 0;
  double left = 0;  ///< along from the location
  double top = 0;   ///< up from the location
  AcGePoint3d location;
  AcGeVector3d along;
  AcGeVector3d up;
  AcGeVector3d normal;
};
MTextLayout layOutMText(const dxf::RecordDraft& draft, const dxf::TextCodec& codec);
/// Gives the lines and the box of a layout their places. `lineStep`: from base line to base line.
/// The shares of the box that lie left of the location and below it: 0, a half or 1.
void placeLines(MTextLayout& layout, const std::optional<MTextColumns>& columns, double lineStep,
                double leftShare, double belowShare);

// An embedded object for columns repeats the text's place, its direction and its attachment; other
// programs go by that. These bring it in step; texts without one stay as they are.

void moveEmbedded(dxf::RecordDraft& draft, const AcGePoint3d& from, const AcGePoint3d& to);
void turnEmbedded(dxf::RecordDraft& draft, const AcGeVector3d& along);
/// `attachment` as in group 71.
void attachEmbedded(dxf::RecordDraft& draft, int attachment);

}  // namespace kovra::arx
