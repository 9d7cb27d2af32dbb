#include "module/drawing/layer_snapshot.h"

#include "module/drawing/symbol_tables.h"

namespace kovra {
namespace {

using LayerIterator = CTableIterator<AcDbLayerTableIterator, AcDbLayerTableRecord>;

CLayerState captureLayer(const LayerIterator& layers) {
  CLayerState state;
  layers->getRecordId(state.id);
  CRecord<AcDbLayerTableRecord> layer;
  if (!layers.openRecord(layer)) return state;
  state.off = layer->isOff();
  state.frozen = layer->isFrozen();
  state.locked = layer->isLocked();
  const ACHAR* name = nullptr;
  if (layer->getName(name) == Acad::eOk) state.name = name;
  return state;
}

/// Opens the layer for write. False when it can't be opened.
bool openLayer(CRecord<AcDbLayerTableRecord>& layer, const AcDbObjectId& id) {
  AcDbLayerTableRecord* opened = nullptr;
  if (acdbOpenObject(opened, id, AcDb::kForWrite) != Acad::eOk) return false;
  layer.attach(opened);
  return true;
}

}  // namespace

bool LayerSnapshot::Capture(AcDbDatabase* database) {
  const LayerTable table(database);
  LayerIterator layers;
  if (!table.newIterator(layers)) return false;
  for (layers->start(); !layers->done(); layers->step()) {
    layers_.add(captureLayer(layers));
  }
  return true;
}

bool LayerSnapshot::UnlockAll() {
  for (const CLayerState& state : layers_) {
    CRecord<AcDbLayerTableRecord> layer;
    if (openLayer(layer, state.id)) layer->setIsLocked(false);
  }
  return true;
}

bool LayerSnapshot::Restore() {
  for (const CLayerState& state : layers_) {
    CRecord<AcDbLayerTableRecord> layer;
    if (!openLayer(layer, state.id)) continue;
    layer->setIsOff(state.off);
    layer->setIsFrozen(state.frozen);
    layer->setIsLocked(state.locked);
  }
  return true;
}

bool LayerSnapshot::IsLocked(const ACHAR* name) const {
  for (const CLayerState& state : layers_) {
    if (state.name.CompareNoCase(name) == 0) return state.locked;
  }
  return false;
}

}  // namespace kovra
