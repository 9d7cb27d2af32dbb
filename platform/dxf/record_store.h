#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dxf/dialect.h"
#include "platform/dxf/record_draft.h"
#include "platform/dxf/record_kind.h"
#include "platform/dxf/result.h"
#include "platform/dxf/text_codec.h"

namespace kovra::dxf {

class FileBytes;
struct ScannedFile;
struct RecordOverlay;

/// What a record is at a moment: cheap to copy, keeps its memory as long as it is held.
struct RecordState {
  std::shared_ptr<const RecordOverlay> overlay;  ///< null: as in the file
  bool erased = false;
};

/// Is told of every change of a record.
class StoreListener {
 public:
  virtual ~StoreListener() = default;
  /// RecordStore::state(record) is still the old state. A record that is being inserted is erased
  /// in its old state.
  virtual void beforeChange(RecordIndex record) { static_cast<void>(record); }
  virtual void afterChange(RecordIndex record) { static_cast<void>(record); }
};

struct SaveOptions {
  bool backup = true;  ///< keep the former file as NAME.bak
  bool adopt = true;   ///< the written file becomes the store's file
  /// If set, the file may be committed behind the caller (see commit_behind.h), who won't ask this
  /// store for more; what goes wrong there is said to this function.
  std::function<void(const Error&)> behind = {};
};

/// The records of one drawing, in the order and with the bytes that the file has.
///
/// Opening finds where records begin; nothing else is decoded. Untouched records are written as the
/// very bytes that were read.
class RecordStore {
 public:
  /// Reads an ASCII or binary DXF file. Errors: kNotFound, kNotReadable, kBadFormat; the message
  /// has the file's name and, where it applies, the line number.
  static Result<std::unique_ptr<RecordStore>> readFile(const std::string& path);
  /// The same from memory; the bytes are copied. `name` stands in error messages.
  static Result<std::unique_ptr<RecordStore>> fromBytes(std::string_view bytes,
                                                        const std::string& name = "drawing");
  /// A new empty drawing: release AC1032, UTF-8, the standard tables, model space and one layout.
  static std::unique_ptr<RecordStore> newDrawing();

  ~RecordStore();
  RecordStore(const RecordStore&) = delete;
  RecordStore& operator=(const RecordStore&) = delete;

  const Dialect& dialect() const { return dialect_; }
  const TextCodec& codec() const { return codec_; }
  /// The file that the drawing was read from or saved to; empty for a new one.
  const std::string& path() const;

  // Records by index. Indexes below originalCount() are the file's, in its order.
  RecordIndex count() const;
  RecordIndex originalCount() const;
  RecordKind kind(RecordIndex record) const;
  SectionKind section(RecordIndex record) const;
  /// Value of group 0, blanks trimmed. Valid as long as the record isn't changed.
  std::string_view typeName(RecordIndex record) const;
  /// 0: none.
  std::uint64_t handle(RecordIndex record) const;
  /// Handle in the group 330 outside 102 groups; 0: none.
  std::uint64_t owner(RecordIndex record) const;
  /// Group 66 isn't 0: attributes or vertices follow.
  bool attributesFollow(RecordIndex record) const;
  /// Group 67 isn't 0.
  bool paperSpace(RecordIndex record) const;
  /// Also true for a record whose insertion was undone.
  bool erased(RecordIndex record) const;
  /// The current bytes, also of an erased record. They lie in the store, or in `scratch`; valid
  /// until the record changes.
  std::string_view bytes(RecordIndex record, std::string& scratch) const;
  /// The bytes that the file has; only for indexes below originalCount().
  std::string_view originalBytes(RecordIndex record) const;
  /// Decodes a record into a draft, whose storage is reused.
  void load(RecordIndex record, RecordDraft& draft) const;

  /// The first record with this handle that isn't erased (else the first erased one); kNoRecord if
  /// there is none or `handle` is 0.
  RecordIndex find(std::uint64_t handle) const;

  // Order of the file, inserted records in their places, erased ones included.
  RecordIndex first() const;
  RecordIndex next(RecordIndex record) const;  ///< kNoRecord behind the last
  /// The record before; for kNoRecord the last one.
  RecordIndex previous(RecordIndex record) const;
  /// The last of the file's own records up to and including this one; kNoRecord if none is there.
  RecordIndex originalBefore(RecordIndex record) const;

  /// The record of the HEADER section, which holds all header variables; kNoRecord: none.
  RecordIndex headerRecord() const;
  /// Indexes of the records that make the structure (SECTION, ENDSEC, TABLE, ENDTAB, BLOCK, ENDBLK)
  /// in file order, those of the file only.
  const std::vector<RecordIndex>& structural() const;

  // Changes. Listeners are told of each.
  /// Replaces a record by a draft that was loaded from it. Groups whose value ends equal to the
  /// file's keep their bytes. Returns false if the record's bytes stayed what they were.
  bool replace(RecordIndex record, const RecordDraft& draft);
  /// Inserts a new record before another one (kNoRecord: at the end). It belongs to the section of
  /// the record that it follows.
  RecordIndex insertBefore(RecordIndex anchor, const RecordDraft& draft);
  void setErased(RecordIndex record, bool erased);
  /// For a journal: what a record is, and making it that again.
  RecordState state(RecordIndex record) const;
  void restore(RecordIndex record, const RecordState& state);

  /// A handle that no record has; 0 if the drawing has no handles.
  std::uint64_t newHandle();

  void addListener(StoreListener* listener);
  void removeListener(StoreListener* listener);

  /// The drawing differs from the file on disk (or from the new empty drawing); false again when
  /// all changes are undone.
  bool changed() const;

  /// The file's bytes as a save would write them.
  std::string toBytes() const;
  /// Writes the drawing: to a temporary file in the same folder, flushed, renamed over the old one.
  /// Mode kept, symbolic links followed. Errors: kNotWritable, kChangedOnDisk (the target is the
  /// store's file and isn't what was read or last saved). After an error the old file is intact.
  Result<void> saveTo(const std::string& path, const SaveOptions& options = {});

 private:
  struct Impl;
  RecordStore(std::unique_ptr<Impl> impl, Dialect dialect);
  static std::unique_ptr<RecordStore> make(FileBytes bytes, ScannedFile scanned);

  void mapHandles() const;
  void refreshFields(RecordIndex record);
  SectionKind sectionAt(RecordIndex anchor, const RecordDraft& draft) const;
  std::uint64_t headerSeed() const;
  std::string headerWithSeed(RecordIndex record) const;
  std::uint64_t insertionPoint(RecordIndex record) const;
  template <class Append>
  void writeTo(Append append) const;
  bool isOwnFile(const std::string& target) const;
  std::function<Result<void>()> unchangedOnDisk(const std::string& target) const;

  Dialect dialect_;
  TextCodec codec_;
  std::unique_ptr<Impl> impl_;
};

/// Opens a drawing and writes it to memory. Ok if every byte came back; else the error says why not
/// (as for readFile) or at which byte they differ first (kNotSupported).
Result<void> checkRoundTrip(const std::string& path);

}  // namespace kovra::dxf
