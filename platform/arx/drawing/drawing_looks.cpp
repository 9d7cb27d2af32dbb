#include "platform/arx/drawing/drawing_looks.h"

#include <algorithm>
#include <cmath>

#include "platform/arx/database/database.h"
#include "platform/arx/database/record_edit.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

constexpr Property kLayerName{kEntityPart, 8};
constexpr Property kInvisible{kEntityPart, 60};
/// Where dimensions keep the points that they measure; never on paper.
constexpr std::string_view kUnplottedLayer = "Defpoints";

LayerLook readLayer(const AcDbDatabase& database, dxf::RecordIndex entry) {
  dxf::RecordDraft draft;
  database.store().load(entry, draft);
  LayerLook layer;
  layer.frozen = (readInteger(draft, {kLayerPart, 70}, 0) & 1) != 0;
  layer.off = readInteger(draft, {kLayerPart, 62}, 7) < 0;
  layer.color = recordColor(draft, kLayerPart);
  return layer;
}

Look lookOn(const LayerLook& layer, const dxf::RecordDraft& draft, const Look& around) {
  Look look{layer, recordColor(draft, kEntityPart)};
  if (look.color.isByBlock()) look.color = around.color;
  if (look.color.isByLayer()) look.color = look.layer.color;
  return look;
}

}  // namespace

Look spaceLook() {
  constexpr int kWhite = 7;
  Look look;
  look.color.setColorIndex(kWhite);
  return look;
}

AcCmEntityColor recordColor(const dxf::RecordDraft& draft, std::string_view subclass) {
  constexpr std::int64_t kByLayer = 256;
  if (const std::int64_t rgb = readInteger(draft, {subclass, 420}, -1); rgb >= 0)
    return {static_cast<Adesk::UInt8>(rgb >> 16), static_cast<Adesk::UInt8>(rgb >> 8),
            static_cast<Adesk::UInt8>(rgb)};
  AcCmEntityColor color;
  const std::int64_t index = readInteger(draft, {subclass, 62}, kByLayer);
  color.setColorIndex(static_cast<int>(std::clamp<std::int64_t>(std::abs(index), 0, kByLayer)));
  return color;
}

std::optional<AcCmEntityColor> plottedColor(const AcDbDatabase& database,
                                            const dxf::RecordDraft& draft) {
  const std::string_view name = readBytes(draft, kLayerName);
  if (name == kUnplottedLayer || readInteger(draft, kInvisible, 0) != 0) return std::nullopt;
  const dxf::RecordIndex entry =
      database.structure().findEntry(dxf::TableKind::kLayer, database.store().codec().decode(name));
  const LayerLook layer = entry != dxf::kNoRecord ? readLayer(database, entry) : LayerLook{};
  if (layer.frozen || layer.off) return std::nullopt;
  return lookOn(layer, draft, spaceLook()).color;
}

DrawingLooks::DrawingLooks(const AcDbDatabase& database, Showing showing)
    : database_(database), showing_(showing) {
  readLayers();
}

void DrawingLooks::readLayers() {
  const dxf::Structure& structure = database_.structure();
  for (dxf::RecordIndex entry = structure.firstEntry(dxf::TableKind::kLayer);
       entry != dxf::kNoRecord; entry = structure.nextEntry(entry))
    layers_.try_emplace(win::upperCase(structure.entryName(entry)), readLayer(database_, entry));
}

const LayerLook& DrawingLooks::layer(std::string_view nameBytes) const {
  const std::string key(nameBytes);
  const auto known = byBytes_.find(key);
  if (known != byBytes_.end()) return known->second;
  const auto found = layers_.find(win::upperCase(database_.store().codec().decode(nameBytes)));
  return byBytes_[key] = found != layers_.end() ? found->second : LayerLook{};
}

Look DrawingLooks::of(const dxf::RecordDraft& draft, const Look& around, bool inBlock) const {
  const std::string_view name = readBytes(draft, kLayerName);
  return lookOn(inBlock && name == "0" ? around.layer : layer(name), draft, around);
}

bool DrawingLooks::shows(const dxf::RecordDraft& draft, const Look& look) const {
  return referenceShows(draft, look) && (showing_ == Showing::kAll || !look.layer.off);
}

bool DrawingLooks::onFrozenLayer(dxf::RecordIndex record) const {
  const dxf::RecordStore& store = database_.store();
  std::string scratch;
  const std::optional<std::string_view> name =
      scanText(store.bytes(record, scratch), store.dialect(), kLayerName);
  if (name) return layer(*name).frozen;
  dxf::RecordDraft draft;
  store.load(record, draft);
  return layer(readBytes(draft, kLayerName)).frozen;
}

bool DrawingLooks::referenceShows(const dxf::RecordDraft& draft, const Look& look) const {
  if (showing_ == Showing::kAll) return true;
  return !look.layer.frozen && readInteger(draft, kInvisible, 0) == 0;
}

bool DrawingLooks::attributeShows(const dxf::RecordDraft& draft, const Look& look) const {
  if (showing_ == Showing::kAll) return true;
  return (readInteger(draft, {kAttributePart, 70}, 0) & 1) == 0 && shows(draft, look);
}

bool DrawingLooks::isUnplotted(const dxf::RecordDraft& draft) const {
  return showing_ == Showing::kPaper && readBytes(draft, kLayerName) == kUnplottedLayer;
}

}  // namespace kovra::arx
