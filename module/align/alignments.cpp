#include "module/align/alignments.h"

#include <algorithm>

#include "module/drawing/attachment.h"
#include "module/drawing/property_combos.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

CString labelOf(int row) {
  return ResourceText(kAlignJustifications + static_cast<UINT>(row));
}

}  // namespace

CString AlignmentLabel(int vertical, int horizontal) {
  return labelOf(std::max(ModesToAttachIndex(horizontal, vertical), 0));
}

bool AlignmentModes(const ACHAR* label, int& vertical, int& horizontal) {
  int row = 0;
  while (row < kAttachments && labelOf(row).CompareNoCase(label) != 0) ++row;
  return AttachIndexToModes(row, horizontal, vertical) == 0;
}

}  // namespace kovra
