#include "module/countup/copy_cup.h"
#include "module/countup/copy_cup_ids.h"
#include "module/countup/spacing_pick.h"

namespace kovra {

using namespace copycup;

void CCopyCup::PickDistance(UINT id) {
  CollectFields();
  PickDistances(*this, static_cast<Spacing>(static_cast<int>(id) - kPickBoth),
                {kRowHeight, kColWidth, RowHeight, ColWidth, DrawingScale});
  buttons_.ActivateTips();
}

}  // namespace kovra
