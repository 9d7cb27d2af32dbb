#include "module/drawing/regenerate.h"

#include "module/drawing/group_list.h"

namespace kovra {

void RegenerateDrawing() {
  const GroupList command(acutBuildList(RTSTR, L".REGEN", RTNONE));
  acedCmdS(command.get());
}

}  // namespace kovra
