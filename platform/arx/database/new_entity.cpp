#include "platform/arx/database/new_entity.h"

#include "platform/arx/database/database.h"
#include "platform/arx/database/object_table.h"
#include "platform/arx/database/record_edit.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace kovra::arx {

bool isWritten(int code, const dxf::Dialect& dialect) {
  switch (code) {
    case 48:
    case 60:
      return dialect.release >= dxf::kR13;
    case 370:
    case 390:
      return dialect.release >= dxf::kR2000;
    case 420:
    case 430:
    case 440:
      return dialect.release >= dxf::kR2004;
    case 284:
    case 347:
    case 348:
      return dialect.release >= dxf::kR2007;
    default:
      return true;
  }
}

void markPaperSpace(const AcDbDatabase& database, dxf::BlockNumber block, dxf::RecordDraft& draft) {
  const Property paper{kEntityPart, 67};
  if (database.structure().block(block).space && block != dxf::kModelSpace &&
      findProperty(draft, paper) == dxf::kNoGroup)
    draft.insertInteger(placeOf(draft, paper), paper.code, 1);
}

AcDbObjectId appendRecord(AcDbDatabase& database, dxf::BlockNumber block, std::string_view type,
                          const std::function<void(dxf::RecordDraft&)>& fill) {
  dxf::RecordStore& store = database.store();
  dxf::Structure& structure = database.structure();
  const ScratchDraft scratch(database.objects());
  dxf::RecordDraft& draft = *scratch;
  draft.start(store.dialect(), type, store.newHandle(), structure.blockHandle(block));
  fill(draft);
  markPaperSpace(database, block, draft);
  return database.idOf(store.insertBefore(structure.entityAnchor(block), draft));
}

}  // namespace kovra::arx
