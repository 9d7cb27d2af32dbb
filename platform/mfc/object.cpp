#include "platform/mfc/object.h"

const CRuntimeClass CObject::classCObject = {"CObject", nullptr};

const CRuntimeClass* CObject::GetRuntimeClass() const {
  return &classCObject;
}

bool CObject::IsKindOf(const CRuntimeClass* wanted) const {
  for (const CRuntimeClass* c = GetRuntimeClass(); c != nullptr; c = c->m_pBaseClass) {
    if (c == wanted) return true;
  }
  return false;
}
