#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "platform/dxf/atomic_file.h"
#include "platform/dxf/commit_behind.h"
#include "platform/dxf/group_format.h"
#include "platform/dxf/header_variables.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/store_impl.h"

// Writing a store: untouched stretches of the file as they are, changed records between them.
namespace kovra::dxf {

namespace {

/// Takes the bytes of a drawing in their order.
template <class Append>
class DrawingWriter {
 public:
  explicit DrawingWriter(std::string_view lineEnd, Append append)
      : lineEnd_(lineEnd), append_(append) {}

  /// What stands before the first line, on no line of its own.
  void writeMark(std::string_view mark) {
    if (!mark.empty()) append_(mark);
  }
  void write(std::string_view bytes) {
    if (bytes.empty()) return;
    append_(bytes);
    last_ = bytes.back();
  }
  /// A record that the file doesn't have here: it begins on a new line.
  void writeInserted(std::string_view bytes) {
    if (!lineEnd_.empty() && last_ != '\n') write(lineEnd_);
    write(bytes);
  }

 private:
  std::string_view lineEnd_;
  Append append_;
  char last_ = '\n';
};

/// Records of the file whose bytes follow from other changes.
using Rewritten = std::map<RecordIndex, std::string>;

/// A GROUP's bytes without the members that are erased; empty if it keeps all of them. Handles that
/// the file itself leaves without a record stay.
std::string withoutErasedMembers(const RecordStore& store, RecordIndex group) {
  constexpr int kMember = 340;
  RecordDraft draft;
  store.load(group, draft);
  for (std::size_t i = draft.size(); i-- > 0;) {
    if (draft.code(i) != kMember || draft.part(i) != GroupPart::kData) continue;
    const RecordIndex member = store.find(draft.handle(i));
    if (member < store.originalCount() && store.erased(member)) draft.erase(i);
  }
  std::string bytes;
  if (draft.edited()) draft.appendBytes(bytes);
  return bytes;
}

/// Groups of entities keep no members that were erased: a program that reads the file would look
/// for them. In memory they stay, for an undo.
void rewriteGroups(const RecordStore& store, Rewritten& rewritten) {
  for (RecordIndex record = 0; record < store.originalCount(); ++record) {
    if (store.section(record) != SectionKind::kObjects || store.erased(record) ||
        store.kind(record) != RecordKind::kOther || store.typeName(record) != "GROUP") {
      continue;
    }
    std::string bytes = withoutErasedMembers(store, record);
    if (!bytes.empty()) rewritten.emplace(record, std::move(bytes));
  }
}

}  // namespace

RecordIndex RecordStore::headerRecord() const {
  const auto isHeader = [this](RecordIndex record) {
    const RecordEntry& entry = impl_->records[record];
    return entry.kind == RecordKind::kSection && entry.section == SectionKind::kHeader &&
           !erased(record);
  };
  for (const RecordIndex record : impl_->structural) {
    if (isHeader(record)) return record;
  }
  for (RecordIndex record = originalCount(); record < count(); ++record) {
    if (isHeader(record)) return record;
  }
  return kNoRecord;
}

std::uint64_t RecordStore::headerSeed() const {
  const RecordIndex record = headerRecord();
  if (record == kNoRecord) return 0;
  RecordDraft header;
  load(record, header);
  const std::size_t seed = findVariable(header, "$HANDSEED");
  return seed == kNoGroup ? 0 : header.handle(seed);
}

/// The header record's bytes with a handle seed above the handles of inserted records; empty if the
/// seed stays as it is.
std::string RecordStore::headerWithSeed(RecordIndex record) const {
  std::uint64_t greatest = 0;
  for (RecordIndex inserted = originalCount(); inserted < count(); ++inserted) {
    if (!erased(inserted)) greatest = std::max(greatest, handle(inserted));
  }
  if (record == kNoRecord || greatest == 0) return {};
  RecordDraft header;
  load(record, header);
  const std::size_t seed = findVariable(header, "$HANDSEED");
  if (seed == kNoGroup && dialect_.release > kR12) {
    header.appendText(9, "$HANDSEED");
    header.appendHandle(5, greatest + 1);
  } else if (seed != kNoGroup && header.handle(seed) <= greatest) {
    header.setHandle(seed, greatest + 1);
  }
  std::string bytes;
  if (header.edited()) header.appendBytes(bytes);
  return bytes;
}

template <class Append>
void RecordStore::writeTo(Append append) const {
  DrawingWriter writer(groupStyle(dialect_).lineEnd(), append);
  Rewritten rewritten;
  const RecordIndex headerIndex = headerRecord();
  std::string header = headerWithSeed(headerIndex);
  if (!header.empty()) rewritten.emplace(headerIndex, std::move(header));
  const auto isErased = [](const Impl::Slot& slot) { return slot.now.erased; };
  const bool anyErased = std::any_of(impl_->slots.begin(), impl_->slots.end(), isErased);
  if (anyErased) rewriteGroups(*this, rewritten);
  const std::string_view file = impl_->file.view();
  std::string scratch;
  const std::string_view mark = byteOrderMark(file);
  writer.writeMark(mark);
  std::uint64_t written = mark.size();  // of the file
  for (RecordIndex record = first(); record != kNoRecord; record = next(record)) {
    const auto other = rewritten.find(record);
    if (impl_->records.slot(record) == 0 && other == rewritten.end()) continue;
    const bool inserted = record >= impl_->originals;
    const std::string_view old = impl_->original(record);
    const std::uint64_t begin = inserted ? insertionPoint(record) : impl_->records[record].begin();
    if (begin > written) writer.write(file.substr(written, begin - written));
    written = begin + old.size();
    if (erased(record)) continue;
    const std::string_view now =
        other != rewritten.end() ? std::string_view(other->second) : bytes(record, scratch);
    inserted ? writer.writeInserted(now) : writer.write(now);
  }
  writer.write(file.substr(written));
}

/// Where in the file an inserted record stands.
std::uint64_t RecordStore::insertionPoint(RecordIndex record) const {
  const RecordIndex anchor = impl_->order.anchor(record);
  return anchor == impl_->originals ? impl_->recordsEnd : impl_->records[anchor].begin();
}

std::string RecordStore::toBytes() const {
  std::string out;
  out.reserve(impl_->file.view().size());
  writeTo([&out](std::string_view bytes) { out.append(bytes); });
  return out;
}

/// True if `target` is the file that the store was read from, by name or by identity.
bool RecordStore::isOwnFile(const std::string& target) const {
  if (!impl_->stamp) return false;
  if (target == resolvedPath(impl_->path)) return true;
  const Result<FileStamp> there = stampOf(target);
  return there && there.value().device == impl_->stamp->device &&
         there.value().inode == impl_->stamp->inode;
}

/// Says whether the store's own file is still as it was read; of its own, since it may be asked
/// when the store is gone.
std::function<Result<void>()> RecordStore::unchangedOnDisk(const std::string& target) const {
  return [path = impl_->path, former = *impl_->stamp, target]() -> Result<void> {
    const Result<FileStamp> there = stampOf(target);
    const bool gone = !there && there.error().kind == ErrorKind::kNotFound;
    if (gone || (there && there.value() == former)) return {};
    return Error{ErrorKind::kChangedOnDisk,
                 path + ": the file was changed by another program since it was opened"};
  };
}

Result<void> RecordStore::saveTo(const std::string& path, const SaveOptions& options) {
  // It may be this very file, which is looked at next.
  finishCommit();
  auto file = std::make_unique<AtomicFile>();
  if (Result<void> opened = file->open(path); !opened) return opened;
  const bool own = isOwnFile(file->target());
  const MayReplace mayReplace = own ? unchangedOnDisk(file->target()) : MayReplace();
  if (own) {
    if (Result<void> unchanged = mayReplace(); !unchanged) return unchanged;
  }
  writeTo([&file](std::string_view bytes) { file->append(bytes); });
  // Writing takes time: it is asked again right before the rename.
  const bool isBehind = options.behind && CommitsBehind::allowed();
  const Result<FileStamp> stamp =
      isBehind ? commitBehind(std::move(file), options.backup, mayReplace, options.behind)
               : file->commit(options.backup, mayReplace);
  if (!stamp) return stamp.error();
  if (own || options.adopt) {
    if (!own) impl_->path = path;
    impl_->stamp = stamp.value();
    for (Impl::Slot& slot : impl_->slots) slot.saved = slot.now;
    impl_->differing = 0;
  }
  return {};
}

Result<void> checkRoundTrip(const std::string& path) {
  const auto store = RecordStore::readFile(path);
  if (!store) return store.error();
  FileStamp stamp;
  const auto file = FileBytes::read(path, stamp);
  if (!file) return file.error();
  const std::string written = store.value()->toBytes();
  const std::string_view read = file.value().view();
  if (written == read) return {};
  std::size_t at = 0;
  while (at < written.size() && at < read.size() && written[at] == read[at]) ++at;
  return Error{ErrorKind::kNotSupported,
               path + ": differs from byte " + std::to_string(at) + " on"};
}

}  // namespace kovra::dxf
