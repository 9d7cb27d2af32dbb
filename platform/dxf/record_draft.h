#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dxf/dialect.h"
#include "platform/dxf/record_kind.h"
#include "platform/dxf/values.h"

namespace kovra::dxf {

class TextCodec;
struct GroupStyle;

/// No such group.
inline constexpr std::size_t kNoGroup = static_cast<std::size_t>(-1);

/// Which part of a record a group belongs to.
enum class GroupPart : std::uint8_t {
  kData,      ///< the type's own groups
  kAppGroup,  ///< between 102 "{NAME" and 102 "}", both included (not in XRECORD)
  kEmbedded,  ///< from 101 "Embedded Object" on
  kXData,     ///< from 1001 on
};

/// A record of a store at a moment; equal to no other one's, and never again once the store
/// changed.
struct RecordVersion {
  std::uint64_t moment = 0;  ///< 0: none
  RecordIndex record = kNoRecord;

  bool operator==(const RecordVersion&) const = default;
};

/// The decoded groups of one record, to be read and changed. Changes reach the drawing only through
/// RecordStore::replace or RecordStore::insertBefore.
///
/// A draft of a stored record looks into the store's bytes: it is valid until that record changes.
/// Storage is reused from record to record, so keep one draft and load it again and again.
/// Views that text() gives are valid until the next change of the draft.
class RecordDraft {
 public:
  /// An empty draft; load it with RecordStore::load or start a new record with start().
  RecordDraft() = default;

  /// Starts a new record: group 0, the handle (105 for DIMSTYLE; none if `handle` is 0 or the
  /// dialect has none), the owner (none if 0 or the dialect has none).
  void start(const Dialect& dialect, std::string_view typeName, std::uint64_t handle,
             std::uint64_t owner);
  /// Appends group 100 if the dialect divides records by subclass markers.
  void appendMarker(std::string_view name);

  /// Decodes the groups of a record from its bytes; both must outlive the draft's use.
  void decode(std::string_view bytes, const Dialect& dialect);
  /// The same; `fill(std::string&)` puts the bytes into storage of the draft.
  template <class Fill>
  void decodeOwned(const Dialect& dialect, Fill fill) {
    clear(dialect);
    fill(owned_);
    ownsBase_ = true;
    readGroups();
  }

  const Dialect& dialect() const { return *dialect_; }
  RecordKind kind() const { return kind_; }
  /// Value of group 0, blanks trimmed.
  std::string_view typeName() const;

  // Groups by position, group 0 first.
  std::size_t size() const { return groups_.size(); }
  /// -1 for kNoGroup.
  int code(std::size_t group) const { return group < size() ? groups_[group].code : -1; }
  GroupPart part(std::size_t group) const { return groups_[group].part; }
  ValueType type(std::size_t group) const { return valueType(code(group)); }

  // Values; a value that isn't of the wanted type, and that of kNoGroup, reads as 0 or empty. Reals
  // and integers may stand for one another, as real files have it.
  double real(std::size_t group) const;
  std::int64_t integer(std::size_t group) const;
  std::uint64_t handle(std::size_t group) const;
  /// Bytes of a text value as the file has them, blanks kept. Of other types: the text in ASCII
  /// files, empty in binary ones.
  std::string_view text(std::size_t group) const;
  /// The value as the text that an ASCII file would have, whatever the type and the form.
  std::string asciiText(std::size_t group) const;
  /// The bytes that a binary value stands for.
  std::string binary(std::size_t group) const;

  // Lookup. The groups of the type itself are searched: neither 102 groups (other than of XRECORD)
  // nor embedded objects nor XDATA.
  /// The `occurrence`th (from 0) group of this code; kNoGroup if there is none.
  std::size_t find(int code, std::size_t occurrence = 0) const;
  /// The same among the groups that stand below a marker 100 of this name (all such markers count
  /// as one). In records without any marker the whole record is searched.
  std::size_t find(std::string_view subclass, int code, std::size_t occurrence = 0) const;
  /// True if a marker 100 of this name is there.
  bool hasMarker(std::string_view subclass) const;
  /// Where groups appended to a subclass belong: behind its last data group (the last marker of
  /// that name). Without such a marker: behind the last data group of the record.
  std::size_t endOf(std::string_view subclass) const;

  /// A range of positions [begin, end).
  struct Range {
    std::size_t begin = 0;
    std::size_t end = 0;
    bool empty() const { return begin == end; }
  };
  /// The embedded object, its 101 included; empty if there is none.
  Range embedded() const;
  /// XDATA of an application, its 1001 included; empty if there is none.
  Range xdata(std::string_view application) const;
  /// All XDATA.
  Range xdata() const;
  /// The 102 group of a name such as "{ACAD_REACTORS", both 102 included.
  Range appGroup(std::string_view name) const;
  /// First group of a code within a range; kNoGroup if there is none.
  std::size_t findIn(Range range, int code, std::size_t occurrence = 0) const;

  // Changes. Setting a value that the group has already, or setting kNoGroup, changes nothing.
  void setReal(std::size_t group, double value);
  void setInteger(std::size_t group, std::int64_t value);
  void setHandle(std::size_t group, std::uint64_t value);
  /// Bytes in the drawing's own encoding; line breaks and NUL are cut off. For codes of other types
  /// as an ASCII file has the value.
  void setText(std::size_t group, std::string_view bytes);
  /// Leaves the bytes alone when they already read as `text`.
  void setText(std::size_t group, std::wstring_view text, const TextCodec& codec);
  void setBinary(std::size_t group, std::string_view bytes);

  // Insertion before a position (size(): at the end). The value takes the type of the code.
  void insertReal(std::size_t at, int code, double value);
  void insertInteger(std::size_t at, int code, std::int64_t value);
  void insertHandle(std::size_t at, int code, std::uint64_t value);
  void insertText(std::size_t at, int code, std::string_view bytes);
  void insertText(std::size_t at, int code, std::wstring_view text, const TextCodec& codec);
  void insertBinary(std::size_t at, int code, std::string_view bytes);

  // The same at the end.
  void appendReal(int code, double value) { insertReal(size(), code, value); }
  void appendInteger(int code, std::int64_t value) { insertInteger(size(), code, value); }
  void appendHandle(int code, std::uint64_t value) { insertHandle(size(), code, value); }
  void appendText(int code, std::string_view bytes) { insertText(size(), code, bytes); }
  void appendText(int code, std::wstring_view text, const TextCodec& codec) {
    insertText(size(), code, text, codec);
  }

  void erase(std::size_t group) { erase(Range{group, group + 1}); }
  void erase(Range range);

  /// False while no group was changed, inserted or erased since loading.
  bool edited() const { return editBegin_ <= editEnd_; }

  /// Appends the record's bytes as they stand now.
  void appendBytes(std::string& out) const;

 private:
  friend class OverlayBuilder;
  friend class RecordStore;

  struct Group {
    std::int32_t code = 0;
    // Where it lies in the base. An inserted group has an empty range at its place.
    std::uint32_t begin = 0;
    std::uint32_t valueBegin = 0;
    std::uint32_t valueEnd = 0;
    std::uint32_t end = 0;
    // A new value lies in the pool.
    std::uint32_t poolBegin = 0;
    std::uint32_t poolEnd = 0;
    GroupPart part = GroupPart::kData;
    bool pooled = false;
    bool marked = false;  ///< a group 100 stands before it
    bool inserted() const { return pooled && begin == end; }
  };

  std::string_view base() const { return ownsBase_ ? std::string_view(owned_) : borrowed_; }
  std::string_view value(const Group& group) const {
    if (group.pooled) return {pool_.data() + group.poolBegin, group.poolEnd - group.poolBegin};
    return {base().data() + group.valueBegin, group.valueEnd - group.valueBegin};
  }
  std::string_view valueAt(std::size_t group) const {
    return group < size() ? value(groups_[group]) : std::string_view();
  }
  void clear(const Dialect& dialect);
  void readGroups();
  void classify(std::size_t group);
  void classifyFrom(std::size_t group);
  void markEdited(std::uint32_t begin, std::uint32_t end);
  std::uint32_t beginPool();
  void setPooled(std::size_t group, std::uint32_t poolBegin);
  void putPooled(std::size_t group, std::uint32_t poolBegin);
  void insertPooled(std::size_t at, int code, std::uint32_t poolBegin);
  void alignInteger(std::uint32_t poolBegin, std::string_view like);
  std::string_view integerLike(ValueType type) const;
  void appendGroupBytes(const Group& group, const GroupStyle& style, std::string& out) const;

  const Dialect* dialect_ = nullptr;
  std::string_view borrowed_;
  std::string owned_;
  bool ownsBase_ = false;
  RecordKind kind_ = RecordKind::kOther;
  std::vector<Group> groups_;
  std::string pool_;
  RecordVersion loaded_;
  std::uint32_t editBegin_ = 1;  ///< range of the base that changes lie in; begin > end: none
  std::uint32_t editEnd_ = 0;
};

}  // namespace kovra::dxf
