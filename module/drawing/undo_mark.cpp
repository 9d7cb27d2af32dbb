#include "module/drawing/undo_mark.h"

#include "module/drawing/system_variables.h"
#include "module/frame/seam.h"

namespace kovra {

void MarkUndo() {
  constexpr int kGroupIsOpen = 8;
  int echo = 0;
  int undoControl = 0;
  GetVar(L"CMDECHO", echo);
  SetVar(L"CMDECHO", 0);
  GetVar(L"UNDOCTL", undoControl);
  if ((undoControl & kGroupIsOpen) != 0) acedCommandS(RTSTR, L"UNDO", RTSTR, L"E", RTNONE);
  acedCommandS(RTSTR, L"UNDO", RTSTR, L"M", RTNONE);
  SetVar(L"CMDECHO", echo);
}

}  // namespace kovra
