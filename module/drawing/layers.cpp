#include "module/drawing/layers.h"

#include "module/drawing/group_list.h"
#include "module/drawing/symbol_tables.h"
#include "module/drawing/system_variables.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr int kLayerFlagsGroup = 70;
constexpr int kLockedFlag = 4;

/// The layer table of the current database, or null after a trace.
AcDbLayerTable* openLayerTable() {
  AcDbLayerTable* table = nullptr;
  AcDbDatabase* database = CurrentDatabase();
  const Acad::ErrorStatus status =
      database != nullptr ? database->getSymbolTable(table, AcDb::kForRead) : Acad::eNoDatabase;
  if (status == Acad::eOk) return table;
  TraceError(L"GLayer error getLayerTable <%d>", static_cast<int>(status));
  return nullptr;
}

int layerId(const AcDbLayerTable& table, const ACHAR* name, AcDbObjectId& id) {
  AcDbObjectId found;
  if (table.getIdAt(name, found) != Acad::eOk) {
    TraceError(L"GLayer error has");
    return -1;
  }
  if (table.getIdAt(name, id) != Acad::eOk) {
    TraceError(L"GLayer error getAt");
    return -1;
  }
  return 0;
}

}  // namespace

int GLayerId(const ACHAR* name, AcDbObjectId& id) {
  AcDbLayerTable* table = openLayerTable();
  if (table == nullptr) return -1;
  const int result = layerId(*table, name, id);
  table->close();
  return result;
}

int GLayerExists(const ACHAR* name) {
  AcDbLayerTable* table = openLayerTable();
  if (table == nullptr) return 0;
  AcDbObjectId id;
  const bool has = table->getIdAt(name, id) == Acad::eOk;
  table->close();
  return has ? 1 : 0;
}

bool GLayerIdAt(AcDbObjectId& id, const ACHAR* name) {
  const LayerTable table;
  CRecord<AcDbLayerTableRecord> record;
  if (!table.openRecord(record, name, AcDb::kForRead)) return false;
  id = record->objectId();
  return true;
}

bool CanBeLayer(const ACHAR* name) {
  constexpr int kNoVerticalBar = 0;
  return GLayerExists(name) != 0 || acdbSNValid(name, kNoVerticalBar) == RTNORM;
}

bool IsLayerLocked(const ACHAR* name) {
  CString layer(name != nullptr ? name : L"");
  if (layer.IsEmpty()) GetVar(L"CLAYER", layer);
  const GroupList groups(acdbTblSearch(L"LAYER", layer.GetString(), 0));
  const resbuf* flags = FindGroup(groups.get(), kLayerFlagsGroup);
  return flags != nullptr && (flags->resval.rint & kLockedFlag) != 0;
}

void CollectLayers(TextList& names, std::vector<UINT>* lockedFlags) {
  const LayerTable table;
  CTableIterator<AcDbLayerTableIterator, AcDbLayerTableRecord> layers;
  if (!table.newIterator(layers)) return;
  for (layers->start(); !layers->done(); layers->step()) {
    CRecord<AcDbLayerTableRecord> layer;
    if (!layers.openRecord(layer)) continue;
    const ACHAR* name = nullptr;
    if (layer->getName(name) != Acad::eOk) continue;
    TextListAdd(names, name);
    if (lockedFlags != nullptr) lockedFlags->push_back(layer->isLocked() ? 1 : 0);
  }
}

}  // namespace kovra
