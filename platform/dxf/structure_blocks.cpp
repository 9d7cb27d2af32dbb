#include <algorithm>

#include "platform/dxf/structure.h"

// Blocks and spaces: BLOCK ... ENDBLK with their block records, and the two spaces whose entities
// lie in the ENTITIES section.
namespace kovra::dxf {

namespace {

constexpr BlockNumber kActivePaperSpace = 1;
constexpr std::wstring_view kModelName = L"*Model_Space";
constexpr std::wstring_view kPaperName = L"*Paper_Space";

/// The name of a space in the spelling of later releases: R12 writes "$MODEL_SPACE".
std::wstring spaceSpelling(std::wstring_view name) {
  if (equalNames(name, kModelName) || equalNames(name, L"$MODEL_SPACE")) {
    return std::wstring(kModelName);
  }
  if (equalNames(name, kPaperName) || equalNames(name, L"$PAPER_SPACE")) {
    return std::wstring(kPaperName);
  }
  return {};
}

bool isLayoutName(std::wstring_view name) {
  return name.size() > kPaperName.size() &&
         equalNames(name.substr(0, kPaperName.size()), kPaperName);
}

}  // namespace

std::wstring Structure::blockName(RecordIndex begin, RecordIndex blockRecord) const {
  std::wstring name = entryName(begin);
  if (name.empty() && blockRecord != kNoRecord) name = entryName(blockRecord);
  return name;
}

/// The entries of the BLOCK_RECORD table by handle, erased ones included.
Structure::RecordsByHandle Structure::blockRecords() const {
  RecordsByHandle records;
  RecordIndex entry = tableRecord(TableKind::kBlockRecord);
  if (entry == kNoRecord) return records;
  for (entry = store_.next(entry); entry != kNoRecord && isEntityPlace(entry);
       entry = store_.next(entry)) {
    if (store_.kind(entry) == RecordKind::kBlockRecord) {
      records.emplace(store_.handle(entry), entry);
    }
  }
  return records;
}

void Structure::noteBlock(RecordIndex begin, const RecordsByHandle& blockRecords) const {
  if (store_.section(begin) != SectionKind::kBlocks) return;
  const auto owner = blockRecords.find(store_.owner(begin));
  const bool owned = store_.owner(begin) != 0 && owner != blockRecords.end();
  RecordIndex blockRecord = owned ? owner->second : kNoRecord;
  const std::wstring name = blockName(begin, blockRecord);
  if (blockRecord == kNoRecord) blockRecord = findEntry(TableKind::kBlockRecord, name);
  RecordIndex end = store_.next(begin);
  while (end != kNoRecord && isEntityPlace(end)) end = store_.next(end);
  const std::wstring space = spaceSpelling(name);
  const bool isRenamed = space.empty() && name.starts_with(L'*') && blockRecord != kNoRecord &&
                         blockRecord == blocks_[kModelSpace].blockRecord;
  const bool isModel = space == kModelName || isRenamed;
  BlockNumber number = static_cast<BlockNumber>(blocks_.size());
  if (isModel && blocks_[kModelSpace].begin == kNoRecord) number = kModelSpace;
  if (space == kPaperName && blocks_[kActivePaperSpace].begin == kNoRecord) {
    number = kActivePaperSpace;
  }
  if (number == blocks_.size()) blocks_.emplace_back();
  Block& block = blocks_[number];
  block.name = isRenamed ? std::wstring(kModelName) : name;
  if (blockRecord != kNoRecord) block.blockRecord = blockRecord;
  block.begin = begin;
  block.end = end;
  if (isLayoutName(name)) block.space = true;
  if (begin < store_.originalCount()) {
    blocksByBegin_.emplace_back(begin, number);
  } else {
    insertedBlocks_.emplace(begin, number);
  }
  if (!store_.erased(begin)) blocksByName_.emplace(foldCase(name), number);
  noteOwner(number);
}

/// The record of model space in a drawing where no record has its name: an anonymous one that
/// entities of model space name as their owner, or that lacks the number of an anonymous block's
/// name.
RecordIndex Structure::renamedModelSpace(const RecordsByHandle& blockRecords) const {
  RecordIndex entity = firstInEntities(0);
  while (entity != kNoRecord && isEntityPlace(entity) && store_.paperSpace(entity)) {
    entity = store_.next(entity);
  }
  const std::uint64_t owner = entity == kNoRecord ? 0 : store_.owner(entity);
  if (const auto found = blockRecords.find(owner); owner != 0 && found != blockRecords.end()) {
    const std::wstring name = entryName(found->second);
    if (name.starts_with(L'*') && !equalNames(name, kPaperName) && !isLayoutName(name)) {
      return found->second;
    }
  }
  return findEntry(TableKind::kBlockRecord, L"*U");
}

/// Entities of a block name its record as their owner.
void Structure::noteOwner(BlockNumber number) const {
  const RecordIndex record = blocks_[number].blockRecord;
  const std::uint64_t handle = record == kNoRecord ? 0 : store_.handle(record);
  if (handle != 0) blocksByOwner_.emplace(handle, number);
}

void Structure::refreshBlocks() const {
  if (blocksKnown_) return;
  blocksKnown_ = true;
  blocks_.assign(2, Block{});
  blocksByName_.clear();
  blocksByOwner_.clear();
  blocksByBegin_.clear();
  insertedBlocks_.clear();
  for (const BlockNumber number : {kModelSpace, kActivePaperSpace}) {
    Block& block = blocks_[number];
    block.name = number == kModelSpace ? kModelName : kPaperName;
    block.space = block.inEntities = true;
  }
  const RecordsByHandle records = blockRecords();
  const RecordIndex model = findEntry(TableKind::kBlockRecord, kModelName);
  blocks_[kModelSpace].blockRecord = model != kNoRecord ? model : renamedModelSpace(records);
  for (const RecordIndex record : store_.structural()) {
    if (store_.kind(record) == RecordKind::kBlock) noteBlock(record, records);
  }
  for (RecordIndex record = store_.originalCount(); record < store_.count(); ++record) {
    if (store_.kind(record) == RecordKind::kBlock) noteBlock(record, records);
  }
  for (const BlockNumber number : {kModelSpace, kActivePaperSpace}) {
    Block& block = blocks_[number];
    blocksByName_.emplace(foldCase(number == kModelSpace ? kModelName : kPaperName), number);
    if (block.blockRecord == kNoRecord) {
      block.blockRecord = findEntry(TableKind::kBlockRecord, block.name);
    }
    noteOwner(number);
  }
}

BlockNumber Structure::blockCount() const {
  refreshBlocks();
  return static_cast<BlockNumber>(blocks_.size());
}

const Block& Structure::block(BlockNumber number) const {
  refreshBlocks();
  return blocks_[number];
}

BlockNumber Structure::findBlock(std::wstring_view name) const {
  refreshBlocks();
  const auto found = blocksByName_.find(foldCase(name));
  return found == blocksByName_.end() ? kNoBlock : found->second;
}

BlockNumber Structure::currentSpace() const {
  header();
  return paperIsCurrent_ ? paperSpace() : kModelSpace;
}

std::uint64_t Structure::blockHandle(BlockNumber number) const {
  const RecordIndex record = block(number).blockRecord;
  return record == kNoRecord ? 0 : store_.handle(record);
}

void Structure::findLayouts() const {
  if (layoutsKnown_) return;
  layoutsKnown_ = true;
  layoutNames_.clear();
  for (RecordIndex record = 0; record < store_.count(); ++record) {
    if (store_.kind(record) != RecordKind::kLayout || store_.erased(record)) continue;
    store_.load(record, scratch_);
    const std::size_t name = scratch_.find("AcDbLayout", 1);
    const std::size_t block = scratch_.find("AcDbLayout", 330);
    if (name == kNoGroup || block == kNoGroup) continue;
    layoutNames_.emplace(scratch_.handle(block), store_.codec().decode(scratch_.text(name)));
  }
}

std::wstring Structure::spaceName(BlockNumber number) const {
  const Block& at = block(number);
  if (number == kModelSpace) return L"Model";
  if (!at.space) return at.name;
  findLayouts();
  const auto layout = layoutNames_.find(blockHandle(number));
  if (layout != layoutNames_.end()) return layout->second;
  return number == kActivePaperSpace ? L"Layout1" : at.name;
}

/// The block of the BLOCKS section that a record stands in; kNoBlock if it stands in none.
BlockNumber Structure::enclosingBlock(RecordIndex entity) const {
  if (entity >= store_.originalCount() && !insertedBlocks_.empty()) {
    RecordIndex at = entity;
    while (at >= store_.originalCount() && at != kNoRecord) {
      const auto inserted = insertedBlocks_.find(at);
      if (inserted != insertedBlocks_.end()) return inserted->second;
      at = store_.previous(at);
    }
  }
  const RecordIndex original = store_.originalBefore(entity);
  const auto behind =
      std::upper_bound(blocksByBegin_.begin(), blocksByBegin_.end(), original,
                       [](RecordIndex at, const auto& block) { return at < block.first; });
  if (original == kNoRecord || behind == blocksByBegin_.begin()) return kNoBlock;
  const auto& [begin, number] = *(behind - 1);
  const RecordIndex end = blocks_[number].end;
  const bool inside = end == kNoRecord || end >= store_.originalCount() || original < end;
  return inside ? number : kNoBlock;
}

/// The space of an entity of the ENTITIES section: its owner tells, or else group 67.
BlockNumber Structure::spaceOf(RecordIndex entity) const {
  const std::uint64_t owner = store_.owner(entity);
  if (owner != 0) {
    if (owner == blockHandle(kModelSpace)) return kModelSpace;
    if (owner == blockHandle(kActivePaperSpace)) return kActivePaperSpace;
  }
  return store_.paperSpace(entity) ? kActivePaperSpace : kModelSpace;
}

BlockNumber Structure::blockOf(RecordIndex entity) const {
  refreshBlocks();
  switch (store_.section(entity)) {
    case SectionKind::kBlocks: {
      const auto owner = blocksByOwner_.find(store_.owner(entity));
      return owner != blocksByOwner_.end() ? owner->second : enclosingBlock(entity);
    }
    case SectionKind::kEntities: {
      const RecordIndex insert = insertOf(entity);
      return spaceOf(insert == kNoRecord ? entity : insert);
    }
    default:
      return kNoBlock;
  }
}

}  // namespace kovra::dxf
