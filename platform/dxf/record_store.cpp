#include "platform/dxf/record_store.h"

#include <algorithm>
#include <utility>

#include "platform/dxf/commit_behind.h"
#include "platform/dxf/header_variables.h"
#include "platform/dxf/store_impl.h"

namespace kovra::dxf {

namespace {

std::string variableText(const RecordDraft& header, std::string_view name) {
  const std::size_t at = findVariable(header, name);
  return at == kNoGroup ? std::string() : std::string(trimmed(header.text(at)));
}

/// Adds to the written form what the HEADER section tells.
void completeDialect(std::string_view headerRecord, Dialect& dialect) {
  RecordDraft header;
  if (!headerRecord.empty()) header.decode(headerRecord, dialect);
  dialect.codePage = variableText(header, "$DWGCODEPAGE");
  const std::string release = variableText(header, "$ACADVER");
  if (release.empty()) {
    dialect.release = dialect.subclassMarkers ? kR2000 : kR12;
    return;
  }
  dialect.release = releaseNumber(release);
  dialect.subclassMarkers = dialect.release > kR12;
  if (dialect.handles && dialect.release >= kR2000) dialect.owners = true;
}

bool differs(const RecordState& left, const RecordState& right) {
  if (left.erased || right.erased) return left.erased != right.erased;
  if (left.overlay == right.overlay) return false;
  return left.overlay == nullptr || right.overlay == nullptr || *left.overlay != *right.overlay;
}

bool indexed(const RecordState& state) {
  return state.overlay != nullptr && state.overlay->indexed;
}

}  // namespace

RecordStore::RecordStore(std::unique_ptr<Impl> impl, Dialect dialect)
    : dialect_(std::move(dialect)), codec_(dialect_), impl_(std::move(impl)) {}

RecordStore::~RecordStore() = default;

std::unique_ptr<RecordStore> RecordStore::make(FileBytes bytes, ScannedFile scanned) {
  Dialect dialect = scanned.dialect;
  auto impl = std::make_unique<Impl>(std::move(bytes), std::move(scanned));
  std::string_view header;
  for (const RecordIndex record : impl->structural) {
    const RecordEntry& entry = impl->records[record];
    if (entry.kind == RecordKind::kSection && entry.section == SectionKind::kHeader) {
      header = impl->original(record);
      break;
    }
  }
  completeDialect(header, dialect);
  return std::unique_ptr<RecordStore>(new RecordStore(std::move(impl), std::move(dialect)));
}

Result<std::unique_ptr<RecordStore>> RecordStore::readFile(const std::string& path) {
  finishCommitOf(path);
  const Result<std::unique_ptr<FileReading>> reading = FileReading::start(path);
  if (!reading) return reading.error();
  Result<ScannedFile> scanned =
      scanRecords([&reading](std::size_t seen) { return reading.value()->waitPast(seen); }, path,
                  reading.value()->size());
  FileStamp stamp;
  Result<FileBytes> bytes = reading.value()->finish(stamp);
  if (!bytes) return bytes.error();
  if (!scanned) return scanned.error();
  auto store = make(std::move(bytes).value(), std::move(scanned).value());
  store->impl_->path = path;
  store->impl_->stamp = stamp;
  return store;
}

Result<std::unique_ptr<RecordStore>> RecordStore::fromBytes(std::string_view bytes,
                                                            const std::string& name) {
  Result<FileBytes> copy = FileBytes::copy(bytes);
  if (!copy) return copy.error();
  const std::string_view all = copy.value().view();
  Result<ScannedFile> scanned = scanRecords([all](std::size_t) { return all; }, name, all.size());
  if (!scanned) return scanned.error();
  return make(std::move(copy).value(), std::move(scanned).value());
}

const std::string& RecordStore::path() const {
  return impl_->path;
}

// Records

RecordIndex RecordStore::count() const {
  return static_cast<RecordIndex>(impl_->records.size());
}
RecordIndex RecordStore::originalCount() const {
  return impl_->originals;
}
RecordKind RecordStore::kind(RecordIndex record) const {
  return impl_->records[record].kind;
}
SectionKind RecordStore::section(RecordIndex record) const {
  return impl_->records[record].section;
}
std::uint64_t RecordStore::handle(RecordIndex record) const {
  return impl_->records.handle(record);
}
std::uint64_t RecordStore::owner(RecordIndex record) const {
  return impl_->records.owner(record);
}
bool RecordStore::attributesFollow(RecordIndex record) const {
  return (impl_->records[record].flags & kAttributesFollow) != 0;
}
bool RecordStore::paperSpace(RecordIndex record) const {
  return (impl_->records[record].flags & kPaperSpace) != 0;
}
bool RecordStore::erased(RecordIndex record) const {
  return impl_->state(record).erased;
}

std::string_view RecordStore::bytes(RecordIndex record, std::string& scratch) const {
  const RecordOverlay* overlay = impl_->state(record).overlay.get();
  if (overlay == nullptr) return impl_->original(record);
  if (overlay->head == 0 && overlay->tail == 0) return overlay->middle;
  scratch.clear();
  impl_->fill(record, scratch);
  return scratch;
}

std::string_view RecordStore::originalBytes(RecordIndex record) const {
  return impl_->original(record);
}

std::string_view RecordStore::typeName(RecordIndex record) const {
  // The type stands in the first group, which lies either in the file or in the overlay.
  const RecordOverlay* overlay = impl_->state(record).overlay.get();
  const bool changed = overlay != nullptr && overlay->head == 0;
  const std::string_view bytes = changed ? overlay->middle : impl_->original(record);
  std::string_view name;
  GroupView group;
  if (dialect_.binary) {
    BinaryReader reader(bytes, dialect_.wideCodes);
    if (reader.next(group) == GroupStatus::kOk) name = group.value();
  } else {
    AsciiReader reader(bytes);
    if (reader.next(group) == GroupStatus::kOk) name = group.value();
  }
  return trimmed(name);
}

// Commands ask for an entity's groups and at once change the entity, so drafts that come back from
// their last user often hold the record already.
void RecordStore::load(RecordIndex record, RecordDraft& draft) const {
  const RecordVersion version{impl_->moment, record};
  if (draft.loaded_ == version && !draft.edited()) return;
  if (impl_->state(record).overlay == nullptr) {
    draft.decode(impl_->original(record), dialect_);
  } else {
    draft.decodeOwned(dialect_, [&](std::string& out) { impl_->fill(record, out); });
  }
  draft.loaded_ = version;
}

void RecordStore::mapHandles() const {
  if (std::exchange(impl_->handlesMapped, true)) return;
  impl_->handles.reserve(dialect_.handles ? count() : 0);
  for (RecordIndex record = 0; record < count(); ++record) impl_->handles.add(record);
}

RecordIndex RecordStore::find(std::uint64_t handle) const {
  if (handle == 0) return kNoRecord;
  mapHandles();
  const RecordIndex found = impl_->handles.find(handle);
  if (found == kNoRecord || !erased(found) || !impl_->handles.duplicates()) return found;
  for (RecordIndex record = found + 1; record < count(); ++record) {
    if (impl_->records.handle(record) == handle && !erased(record)) return record;
  }
  return found;
}

RecordIndex RecordStore::first() const {
  return impl_->order.first();
}
RecordIndex RecordStore::next(RecordIndex record) const {
  return impl_->order.next(record);
}
RecordIndex RecordStore::previous(RecordIndex record) const {
  return impl_->order.previous(record);
}
RecordIndex RecordStore::originalBefore(RecordIndex record) const {
  if (record < impl_->originals) return record;
  const RecordIndex anchor = impl_->order.anchor(record);
  return anchor == 0 ? kNoRecord : anchor - 1;
}
const std::vector<RecordIndex>& RecordStore::structural() const {
  return impl_->structural;
}

// Changes

RecordState RecordStore::state(RecordIndex record) const {
  return impl_->state(record);
}

void RecordStore::restore(RecordIndex record, const RecordState& state) {
  const RecordState& old = impl_->state(record);
  if (old.erased == state.erased && old.overlay == state.overlay) return;
  for (StoreListener* listener : impl_->listeners) listener->beforeChange(record);
  Impl::Slot& slot = impl_->slotOf(record);
  const bool refresh = indexed(slot.now) || indexed(state);
  const bool before = differs(slot.now, slot.saved);
  slot.now = state;
  impl_->moment = Impl::newMoment();
  const bool after = differs(slot.now, slot.saved);
  if (before != after) impl_->differing += after ? 1 : static_cast<std::size_t>(-1);
  if (refresh) refreshFields(record);
  for (StoreListener* listener : impl_->listeners) listener->afterChange(record);
}

/// Brings the index up to date with a record's bytes.
void RecordStore::refreshFields(RecordIndex record) {
  std::string scratch;
  const std::string_view current = bytes(record, scratch);
  // The fields of a record whose insertion is undone stay, for those who still ask.
  if (current.empty()) return;
  const RecordFields fields = fieldsOf(current, dialect_);
  RecordEntry& entry = impl_->records[record];
  entry.kind = fields.kind;
  entry.flags = fields.flags;
  if (!recordsHaveHandles(entry.section)) return;
  impl_->records.setHandle(record, fields.handle);
  impl_->records.setOwner(record, fields.owner);
  impl_->greatestHandle = std::max(impl_->greatestHandle, fields.handle);
  if (impl_->handlesMapped) impl_->handles.add(record);
}

bool RecordStore::replace(RecordIndex record, const RecordDraft& draft) {
  if (!draft.edited()) return false;
  const RecordState& old = impl_->state(record);
  RecordState state = old;
  state.overlay = impl_->overlays.build(impl_->original(record), old.overlay.get(), draft, codec_);
  const bool same =
      state.overlay == old.overlay ||
      (state.overlay != nullptr && old.overlay != nullptr && *state.overlay == *old.overlay);
  if (!same) restore(record, state);
  return !same;
}

SectionKind RecordStore::sectionAt(RecordIndex anchor, const RecordDraft& draft) const {
  if (draft.kind() == RecordKind::kSection) {
    const std::size_t name = draft.find(2);
    return name == kNoGroup ? SectionKind::kOther : sectionKind(draft.text(name));
  }
  const RecordIndex before = impl_->order.previous(anchor);
  if (before == kNoRecord || kind(before) == RecordKind::kEndSec) return SectionKind::kNone;
  return section(before);
}

RecordIndex RecordStore::insertBefore(RecordIndex anchor, const RecordDraft& draft) {
  const RecordIndex record = count();
  RecordEntry entry;
  entry.kind = draft.kind();
  entry.section = sectionAt(anchor, draft);
  impl_->order.insert(record, anchor);
  impl_->records.push(entry);
  Impl::Slot& slot = impl_->slotOf(record);
  slot.now.erased = slot.saved.erased = true;
  RecordState state;
  auto overlay = newOverlay();
  overlay->indexed = true;
  impl_->newBytes.clear();
  draft.appendBytes(impl_->newBytes);
  overlay->middle = impl_->newBytes;
  state.overlay = std::move(overlay);
  restore(record, state);
  return record;
}

void RecordStore::setErased(RecordIndex record, bool erased) {
  RecordState state = impl_->state(record);
  state.erased = erased;
  restore(record, state);
}

std::uint64_t RecordStore::newHandle() {
  if (!dialect_.handles) return 0;
  if (impl_->nextHandle == 0) impl_->nextHandle = std::max<std::uint64_t>(headerSeed(), 1);
  constexpr std::uint64_t kGreatest = ~std::uint64_t{0};
  if (impl_->greatestHandle < kGreatest / 2) {
    impl_->nextHandle = std::max(impl_->nextHandle, impl_->greatestHandle + 1);
  }
  // A file with absurd handles leaves gaps below them.
  while (impl_->nextHandle == 0 || find(impl_->nextHandle) != kNoRecord) ++impl_->nextHandle;
  return impl_->nextHandle++;
}

void RecordStore::addListener(StoreListener* listener) {
  impl_->listeners.push_back(listener);
}
void RecordStore::removeListener(StoreListener* listener) {
  std::erase(impl_->listeners, listener);
}

bool RecordStore::changed() const {
  return impl_->differing != 0;
}

}  // namespace kovra::dxf
