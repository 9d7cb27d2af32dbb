#include "desktop/view/display_list.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "platform/arx/database/database.h"
#include "platform/arx/database/entity_order.h"
#include "platform/arx/drawing/record_draw.h"
#include "platform/dxf/structure.h"
#include "platform/win/base/wide_text.h"

namespace kovra::desktop {
namespace {

using dxf::RecordIndex;
using dxf::RecordKind;

constexpr std::size_t kChunkEntities = 1024;
/// What an entity may cost (see arx::recordWork()), so that blocks of blocks take neither the time
/// nor the memory of a machine; when a drawing draws very much, less.
constexpr double kWorkEach = 20e6;
/// Drawings with more entities show a selection of them first.
constexpr std::size_t kManyEntities = 20 * kChunkEntities;
constexpr std::size_t kSampled = 6000;
/// Changes between two looks at the clock.
constexpr std::size_t kStride = 64;
/// More places than this are painted as one.
constexpr std::size_t kMostBoxes = 64;

/// 0, 1/2, 1/4, 3/4 ... of `count`, each number below it once: the first ones lie all over.
std::vector<std::size_t> spreadOrder(std::size_t count) {
  std::vector<std::size_t> order;
  order.reserve(count);
  std::size_t bits = 0;
  while ((std::size_t{1} << bits) < count) ++bits;
  for (std::size_t i = 0; i < std::size_t{1} << bits; ++i) {
    std::size_t turned = 0;
    for (std::size_t bit = 0; bit < bits; ++bit)
      if ((i >> bit & 1U) != 0) turned |= std::size_t{1} << (bits - 1 - bit);
    if (turned < count) order.push_back(turned);
  }
  return order;
}

/// Where a pick may hit what was drawn: the box of a text reaches a little beyond its letters.
Box reachOf(const Shapes& shapes, const ShapeRange& range, const Box& box) {
  Box reach = box;
  for (std::uint32_t i = range.firstText; i < range.firstText + range.texts; ++i) {
    const TextLine& text = shapes.texts[i];
    const double margin = std::hypot(text.up.x, text.up.y) + std::hypot(text.along.x, text.along.y);
    for (const Spot corner : cellOf(text).corners)
      reach.add(Box{corner.x, corner.y, corner.x, corner.y}.grownBy(margin));
  }
  // Boxes are rounded in another way than the points of a pick.
  constexpr double kRounding = 1e-9;
  const double far = std::max({std::fabs(reach.left), std::fabs(reach.right),
                               std::fabs(reach.bottom), std::fabs(reach.top)});
  return box.isEmpty() ? box : reach.grownBy(kRounding * far);
}

void buildIndex(Chunk& chunk) {
  std::vector<BoxIndex::Entry> values;
  values.reserve(chunk.entities.size());
  chunk.box = {};
  for (std::size_t i = 0; i < chunk.entities.size(); ++i) {
    const Shown& shown = chunk.entities[i];
    if (shown.box.isEmpty()) continue;
    chunk.box.add(shown.reach);
    values.emplace_back(shown.reach, static_cast<std::uint32_t>(i));
  }
  chunk.index.build(values);
}

std::int64_t integerOf(const dxf::RecordDraft& draft, int code, std::int64_t absent) {
  const std::size_t group = draft.find(code);
  return group != dxf::kNoGroup ? draft.integer(group) : absent;
}

}  // namespace

DisplayList::DisplayList(AcDbDatabase& database) : database_(database) {
  database_.store().addListener(this);
  start();
}

DisplayList::~DisplayList() {
  database_.store().removeListener(this);
}

void DisplayList::afterChange(RecordIndex record) {
  changed_.push_back(record);
}

void DisplayList::start() {
  space_ = arx::currentSpace(database_);
  walk_ = std::make_unique<arx::DrawingWalk>(database_, kWorkEach, arx::Showing::kScreen);
  layersLookDifferent();
  changed_.clear();
  chunks_.clear();
  sample_ = Chunk();
  places_.clear();
  places_.reserve(database_.store().count());
  nextToList_ = database_.structure().firstEntity(space_);
  buildOrder_.clear();
  nextToBuild_ = 0;
  buildingAgain_ = false;
}

void DisplayList::listEntities(Clock::time_point deadline) {
  const dxf::Structure& structure = database_.structure();
  for (std::size_t count = 1; nextToList_ != dxf::kNoRecord; ++count) {
    if (chunks_.empty() || chunks_.back().records.size() >= kChunkEntities)
      chunks_.emplace_back().records.reserve(kChunkEntities);
    std::vector<RecordIndex>& records = chunks_.back().records;
    setPlace(nextToList_, {static_cast<std::uint32_t>(chunks_.size() - 1),
                           static_cast<std::uint32_t>(records.size())});
    records.push_back(nextToList_);
    nextToList_ = structure.nextEntity(space_, nextToList_);
    if (count % kChunkEntities == 0 && Clock::now() >= deadline) break;
  }
  if (listed()) buildOrder_ = spreadOrder(chunks_.size());
}

/// The color of everything may be another one, or its block.
void DisplayList::buildAllAgain() {
  walk_ = std::make_unique<arx::DrawingWalk>(database_, kWorkEach, arx::Showing::kScreen);
  // What was never built is still to be painted for the first time.
  buildingAgain_ = nextToBuild_ == buildOrder_.size();
  for (Chunk& chunk : chunks_) chunk.stale = true;
  buildOrder_ = spreadOrder(chunks_.size());
  nextToBuild_ = 0;
}

void DisplayList::draw(RecordIndex record, RecordIndex part, ShapeWriter& writer) {
  AcGiGeometry& geometry = writer.geometry();
  walk_->entity(record, [&](const arx::DrawnLeaf& leaf) {
    if (part != record && part != leaf.record) return true;
    writer.subEntityTraits().setTrueColor(leaf.color);
    geometry.pushModelTransform(leaf.toWorld);
    arx::drawRecord(database_, leaf.record, leaf.draft, geometry);
    geometry.popModelTransform();
    return true;
  });
}

Shapes DisplayList::shapesOf(RecordIndex entity, RecordIndex part) {
  Shapes shapes;
  ShapeWriter writer(shapes);
  if (!database_.store().erased(entity)) draw(entity, part, writer);
  return shapes;
}

Shown DisplayList::read(RecordIndex record, Shapes& shapes, ShapeWriter& writer) {
  Shown shown;
  shown.record = record;
  if (database_.store().erased(record)) return shown;
  shown.range.firstCurve = static_cast<std::uint32_t>(shapes.curves.size());
  shown.range.firstText = static_cast<std::uint32_t>(shapes.texts.size());
  draw(record, record, writer);
  shown.range.curves = static_cast<std::uint32_t>(shapes.curves.size()) - shown.range.firstCurve;
  shown.range.texts = static_cast<std::uint32_t>(shapes.texts.size()) - shown.range.firstText;
  shown.box = shapes.boxOf(shown.range);
  shown.reach = reachOf(shapes, shown.range, shown.box);
  return shown;
}

void DisplayList::build(std::size_t number) {
  Chunk& chunk = chunks_[number];
  scratch_.clear();
  ShapeWriter writer(scratch_);
  chunk.entities.clear();
  chunk.entities.reserve(chunk.records.size());
  for (const RecordIndex record : chunk.records)
    chunk.entities.push_back(read(record, scratch_, writer));
  chunk.shapes = scratch_;  // no larger than it has to be
  chunk.unused = 0;
  chunk.stale = false;
  buildIndex(chunk);
}

void DisplayList::makeSample(Clock::time_point deadline) {
  sample_.stale = false;
  const std::size_t step = std::max<std::size_t>(1, chunks_.size() * kChunkEntities / kSampled);
  ShapeWriter writer(sample_.shapes);
  std::minstd_rand random;  // a fixed step may meet the drawing's own
  for (const std::size_t i : spreadOrder(kSampled)) {
    const std::size_t at = i * step + random() % step;
    const std::size_t number = at / kChunkEntities;
    if (number >= chunks_.size() || at % kChunkEntities >= chunks_[number].records.size()) continue;
    const RecordIndex record = chunks_[number].records[at % kChunkEntities];
    sample_.entities.push_back(read(record, sample_.shapes, writer));
    if (Clock::now() >= deadline) break;
  }
}

DisplayList::Damage DisplayList::work(Clock::time_point deadline) {
  Damage damage;
  const bool listing = !listed();
  if (arx::currentSpace(database_) != space_ || (listing && !changed_.empty())) {
    start();
    damage.all = true;
  }
  if (!listed()) listEntities(deadline);
  if (!listed()) return damage;
  if (listing) damage.all = true;
  takeChanges(damage, deadline);
  if (sample_.stale && nextToBuild_ < buildOrder_.size() &&
      chunks_.size() * kChunkEntities > kManyEntities) {
    makeSample(deadline);
    damage.all = true;
    return damage;
  }
  buildNext(damage, deadline);
  return damage;
}

void DisplayList::buildNext(Damage& damage, Clock::time_point deadline) {
  while (nextToBuild_ < buildOrder_.size()) {
    const std::size_t number = buildOrder_[nextToBuild_++];
    if (chunks_[number].stale) build(number);
    if (!buildingAgain_) damage.chunks.push_back(number);
    const bool last = nextToBuild_ == buildOrder_.size();
    if (last && !sample_.entities.empty()) sample_.entities.clear();
    // Built in another order than they are drawn in.
    if (last && (buildingAgain_ || chunks_.size() > 1)) damage.all = true;
    if (Clock::now() >= deadline) break;
  }
}

void DisplayList::takeChanges(Damage& damage, Clock::time_point deadline) {
  if (changed_.empty()) return;
  std::vector<RecordIndex> changed = std::move(changed_);
  changed_.clear();
  std::ranges::sort(changed);
  const auto twice = std::ranges::unique(changed);
  changed.erase(twice.begin(), twice.end());
  bool all = false;
  for (std::size_t i = 0; i < changed.size();) {
    all = !takeChange(changed[i++], damage) || all;
    if (i % kStride != 0 || Clock::now() < deadline) continue;
    changed_.assign(changed.begin() + static_cast<std::ptrdiff_t>(i), changed.end());
    break;
  }
  if (all) buildAllAgain();
  if (damage.boxes.size() <= kMostBoxes) return;
  Box whole;
  for (const Box& box : damage.boxes) whole.add(box);
  damage.boxes.assign(1, whole);
}

/// The entity that a record is or belongs to.
RecordIndex DisplayList::entityOf(RecordIndex record) const {
  const dxf::RecordStore& store = database_.store();
  const auto isPart = [&](RecordIndex r) {
    const RecordKind kind = store.kind(r);
    return kind == RecordKind::kAttrib || kind == RecordKind::kVertex ||
           kind == RecordKind::kSeqEnd;
  };
  if (placeOf(record).chunk != kNowhere) return record;
  RecordIndex r = record;
  while (r != dxf::kNoRecord && isPart(r)) r = store.previous(r);
  const bool holds = r != dxf::kNoRecord && (store.kind(r) == RecordKind::kInsert ||
                                             store.kind(r) == RecordKind::kPolyline);
  return r == record || holds ? r : record;
}

/// False when all has to be built anew.
bool DisplayList::takeChange(RecordIndex record, Damage& damage) {
  const dxf::RecordStore& store = database_.store();
  switch (store.kind(record)) {
    case RecordKind::kLayer:
      return !layersLookDifferent();
    case RecordKind::kStyle:
    case RecordKind::kBlock:
    case RecordKind::kEndBlk:
      return false;
    default:
      break;
  }
  const dxf::SectionKind section = store.section(record);
  if (section != dxf::SectionKind::kEntities && section != dxf::SectionKind::kBlocks) return true;
  const RecordIndex entity = entityOf(record);
  PlaceOf place = placeOf(entity);
  if (place.chunk == kNowhere) {
    const dxf::BlockNumber block = database_.structure().blockOf(entity);
    if (block != space_)
      return block == dxf::kNoBlock || database_.structure().block(block).space ||
             store.erased(entity);
    const std::optional<PlaceOf> inserted = insert(entity);
    if (!inserted) return true;
    place = *inserted;
  }
  readAgain(place, damage);
  return true;
}

/// A place for a new entity behind the one that it follows; nothing for an erased one.
std::optional<DisplayList::PlaceOf> DisplayList::insert(RecordIndex record) {
  const dxf::RecordStore& store = database_.store();
  if (store.erased(record)) return std::nullopt;
  RecordIndex before = store.previous(record);
  while (before != dxf::kNoRecord && placeOf(before).chunk == kNowhere)
    before = store.previous(before);
  PlaceOf at;
  if (before == dxf::kNoRecord) {
    at = {0, 0};
  } else {
    at = placeOf(before);
    ++at.at;
  }
  const bool last =
      chunks_.empty() || (at.chunk + 1 == chunks_.size() && at.at == chunks_.back().records.size());
  if (last && (chunks_.empty() || chunks_.back().records.size() >= kChunkEntities)) {
    chunks_.emplace_back().stale = false;
    at = {static_cast<std::uint32_t>(chunks_.size() - 1), 0};
  }
  Chunk& chunk = chunks_[at.chunk];
  chunk.records.insert(chunk.records.begin() + at.at, record);
  if (!chunk.stale) {
    Shown shown;
    shown.record = record;
    chunk.entities.insert(chunk.entities.begin() + at.at, shown);
    if (!last) buildIndex(chunk);
  }
  for (std::uint32_t i = at.at; i < chunk.records.size(); ++i)
    setPlace(chunk.records[i], {at.chunk, i});
  return at;
}

void DisplayList::readAgain(PlaceOf place, Damage& damage) {
  Chunk& chunk = chunks_[place.chunk];
  if (chunk.stale) return;  // it will be read
  Shown& shown = chunk.entities[place.at];
  if (!shown.box.isEmpty()) {
    damage.boxes.push_back(shown.box);
    chunk.index.remove({shown.reach, place.at});
  }
  chunk.unused += shown.range.curves + shown.range.texts;
  ShapeWriter writer(chunk.shapes);
  shown = read(shown.record, chunk.shapes, writer);
  if (!shown.box.isEmpty()) {
    damage.boxes.push_back(shown.box);
    chunk.index.insert({shown.reach, place.at});
    chunk.box.add(shown.reach);
  }
  const std::size_t kept = chunk.shapes.curves.size() + chunk.shapes.texts.size();
  if (chunk.unused > kChunkEntities && chunk.unused > kept / 2) build(place.chunk);
}

bool DisplayList::layersLookDifferent() {
  std::map<std::wstring, LayerKey> layers;
  const dxf::Structure& structure = database_.structure();
  dxf::RecordDraft draft;
  for (RecordIndex entry = structure.firstEntry(dxf::TableKind::kLayer); entry != dxf::kNoRecord;
       entry = structure.nextEntry(entry)) {
    database_.store().load(entry, draft);
    constexpr std::int64_t kFrozen = 1;
    layers.try_emplace(win::upperCase(structure.entryName(entry)),
                       LayerKey{integerOf(draft, 70, 0) & kFrozen, integerOf(draft, 62, 7),
                                integerOf(draft, 420, -1)});
  }
  // A layer that is new has nothing on it yet.
  const bool same = std::ranges::all_of(layers_, [&](const auto& known) {
    const auto now = layers.find(known.first);
    return now != layers.end() && now->second == known.second;
  });
  const bool walkKnowsAll = layers.size() == layers_.size();
  layers_ = std::move(layers);
  if (same && !walkKnowsAll)
    walk_ = std::make_unique<arx::DrawingWalk>(database_, kWorkEach, arx::Showing::kScreen);
  return !same;
}

DisplayList::PlaceOf DisplayList::placeOf(RecordIndex record) const {
  return record < places_.size() ? places_[record] : PlaceOf{};
}

void DisplayList::setPlace(RecordIndex record, PlaceOf place) {
  constexpr std::size_t kMore = 4096;  // all of a large drawing at once takes long
  if (record >= places_.capacity()) places_.reserve(record + record / 8 + kMore);
  if (record >= places_.size())
    places_.resize(std::min<std::size_t>(record + kMore, places_.capacity()));
  places_[record] = place;
}

const Shown* DisplayList::find(RecordIndex record, const Chunk*& chunk) const {
  const PlaceOf place = placeOf(entityOf(record));
  if (place.chunk == kNowhere) return nullptr;
  chunk = &chunks_[place.chunk];
  if (place.at >= chunk->entities.size()) return nullptr;
  const Shown& shown = chunk->entities[place.at];
  return shown.box.isEmpty() ? nullptr : &shown;
}

std::optional<std::vector<RecordIndex>> DisplayList::recordsIn(const Box& box) const {
  if (!complete()) return std::nullopt;
  std::vector<std::pair<const Chunk*, const Shown*>> found;
  visit(box, [&](const Chunk& chunk, const Shown& shown) { found.emplace_back(&chunk, &shown); });
  std::ranges::sort(found);  // both lie in arrays in drawing order
  std::vector<RecordIndex> records;
  records.reserve(found.size());
  for (const auto& [chunk, shown] : found) records.push_back(shown->record);
  return records;
}

Box DisplayList::extents() const {
  Box box;
  const auto add = [&](const Chunk& chunk) {
    for (const Shown& shown : chunk.entities) box.add(shown.box);
  };
  for (const Chunk& chunk : chunks_) add(chunk);
  add(sample_);
  return box;
}

}  // namespace kovra::desktop
