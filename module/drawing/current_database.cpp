#include "module/drawing/current_database.h"

namespace kovra {

AcDbDatabase* CurrentDatabase() {
  AcApDocument* document = acDocManagerPtr()->curDocument();
  return document != nullptr ? document->database() : nullptr;
}

}  // namespace kovra
