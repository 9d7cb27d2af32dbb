#include "module/drawing/group_list.h"

namespace kovra {

resbuf* FindGroup(resbuf* list, int group) {
  resbuf* element = list;
  while (element != nullptr && element->restype != group) element = element->rbnext;
  return element;
}

}  // namespace kovra
