#include "platform/arx/base/rx_class.h"

AcRxClass* AcRxObject::desc() {
  static AcRxClass theClass(L"AcRxObject", nullptr, nullptr);
  return &theClass;
}

AcRxClass* AcRxObject::isA() const {
  return AcRxObject::desc();
}
