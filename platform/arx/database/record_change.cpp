#include "platform/arx/database/record_change.h"

#include "platform/arx/database/database.h"
#include "platform/arx/database/object_table.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {

bool changeRecord(AcDbDatabase& database, dxf::RecordIndex record,
                  const std::function<void(RecordEdit&)>& change) {
  dxf::RecordStore& store = database.store();
  const ScratchDraft scratch(database.objects());
  dxf::RecordDraft& draft = *scratch;
  store.load(record, draft);
  RecordEdit edit(draft, &store, record);
  change(edit);
  if (!draft.edited()) return false;
  return store.replace(record, draft);
}

}  // namespace kovra::arx
