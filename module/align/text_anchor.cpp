#include "module/align/text_anchor.h"

namespace kovra {
namespace {

bool isPosition(const AnchorModes& modes) {
  return modes.vertical == AcDb::kTextBase && modes.horizontal == AcDb::kTextLeft;
}

}  // namespace

AnchorModes AnchorModesOf(const AcDbText& text) {
  return {text.verticalMode(), text.horizontalMode()};
}

AcGePoint3d TextAnchor(const AcDbText& text) {
  return isPosition(AnchorModesOf(text)) ? text.position() : text.alignmentPoint();
}

void SetTextAnchor(AcDbText& text, const AnchorModes& modes, const AcGePoint3d& anchor,
                   const AcDbDatabase* database) {
  if (isPosition(modes)) {
    text.setPosition(anchor);
  } else {
    text.setAlignmentPoint(anchor);
    text.adjustAlignment(database);
  }
}

}  // namespace kovra
