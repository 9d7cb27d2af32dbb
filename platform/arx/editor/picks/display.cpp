#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/lists/entity_lists.h"

// Nothing is painted here: a display keeps what it is told, and whoever paints asks for it.

int acedRedraw(const ads_name entity, int mode) {
  AcApDocument* document = kovra::arx::DocumentList::instance().current();
  if (document == nullptr) return RTERROR;
  if (entity == nullptr || ads_name_nil(entity)) return mode == 1 ? RTNORM : RTERROR;
  AcDbObjectId id;
  if (acdbGetObjectId(id, entity) != Acad::eOk) return RTERROR;
  auto& highlighted = document->session().highlighted;
  switch (mode < 0 ? -mode : mode) {
    case 1:
    case 2:
      return RTNORM;
    case 3:
      highlighted.insert(id);
      return RTNORM;
    case 4:
      highlighted.erase(id);
      return RTNORM;
    default:
      return RTERROR;
  }
}

void acedUpdateDisplay() {}
