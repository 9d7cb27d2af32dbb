#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "platform/dxf/dialect.h"
#include "platform/dxf/group_format.h"
#include "platform/dxf/large_memory.h"
#include "platform/dxf/record_kind.h"

namespace kovra::dxf {

// What the store knows of a record without decoding it.

enum RecordFlag : std::uint8_t {
  kAttributesFollow = 1,  ///< group 66 isn't 0
  kPaperSpace = 2,        ///< group 67 isn't 0
  kMarkers = 4,           ///< has subclass markers
  kInsertedBefore = 8,    ///< inserted records stand before it
};

/// The fields of a record that are found while its groups pass by.
struct RecordFields {
  std::uint64_t handle = 0;
  std::uint64_t owner = 0;
  RecordKind kind = RecordKind::kOther;
  std::uint8_t flags = 0;
};

/// One record; 16 bytes, since a drawing has millions.
struct RecordEntry {
  static constexpr std::uint64_t kEndOfBegins = std::uint64_t{1} << 40U;

  /// In the file, below kEndOfBegins; 0 for inserted records.
  std::uint64_t begin() const { return std::uint64_t{beginHigh} << 32U | beginLow; }
  void setBegin(std::uint64_t begin) {
    beginLow = static_cast<std::uint32_t>(begin);
    beginHigh = static_cast<std::uint8_t>(begin >> 32U);
  }

  std::uint32_t beginLow = 0;
  std::uint8_t beginHigh = 0;
  RecordKind kind = RecordKind::kOther;
  SectionKind section = SectionKind::kNone;
  std::uint8_t flags = 0;
  std::uint32_t shortHandle = 0;  ///< the table tells the handle itself
  std::uint32_t shortOwner = 0;
};
static_assert(sizeof(RecordEntry) == 16);

/// The records by index.
class RecordTable {
 public:
  std::uint64_t handle(std::size_t n) const { return whole(entries()[n].shortHandle, n, handles_); }
  std::uint64_t owner(std::size_t n) const { return whole(entries()[n].shortOwner, n, owners_); }
  void setHandle(std::size_t n, std::uint64_t handle) {
    entries()[n].shortHandle = keep(handle, n, handles_);
  }
  void setOwner(std::size_t n, std::uint64_t owner) {
    entries()[n].shortOwner = keep(owner, n, owners_);
  }
  /// The number of its state, if it was ever changed; 0: as in the file.
  std::uint32_t slot(std::size_t n) const { return slots()[n]; }
  void setSlot(std::size_t n, std::uint32_t slot) { slots()[n] = slot; }

  std::size_t size() const { return size_; }
  RecordEntry& operator[](std::size_t n) { return entries()[n]; }
  const RecordEntry& operator[](std::size_t n) const { return entries()[n]; }
  RecordEntry& back() { return entries()[size_ - 1]; }
  void push(const RecordEntry& entry) {
    if (size_ == capacity_) reserve(capacity_ + capacity_ / 2 + 64);
    entries()[size_++] = entry;
  }
  /// Memory that isn't used isn't taken, so a generous guess costs nothing.
  void reserve(std::size_t records);

 private:
  /// Handles of more than 32 bits, which hardly any drawing has, by record.
  using WideHandles = std::unordered_map<std::size_t, std::uint64_t>;
  static constexpr std::uint32_t kWide = 0xffffffff;  ///< stands for them in the entries

  static std::uint64_t whole(std::uint32_t kept, std::size_t n, const WideHandles& wide) {
    return kept != kWide ? kept : wide.at(n);
  }
  static std::uint32_t keep(std::uint64_t handle, std::size_t n, WideHandles& wide) {
    if (handle < kWide) return static_cast<std::uint32_t>(handle);
    wide[n] = handle;
    return kWide;
  }
  RecordEntry* entries() const { return reinterpret_cast<RecordEntry*>(entries_.data()); }
  std::uint32_t* slots() const { return reinterpret_cast<std::uint32_t*>(slots_.data()); }

  LargeMemory entries_;
  LargeMemory slots_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
  WideHandles handles_;
  WideHandles owners_;
};

/// Sections whose records have handles and owners of their own; elsewhere 5 and 330 are data.
inline bool recordsHaveHandles(SectionKind section) {
  return section == SectionKind::kTables || section == SectionKind::kBlocks ||
         section == SectionKind::kEntities || section == SectionKind::kObjects;
}

/// Collects the fields of one record from its groups in their order.
///
/// The handle is the first group 5 (105 in DIMSTYLE), the owner the first 330 outside 102 groups
/// and before the type's own subclasses; neither counts behind an embedded object or in XDATA.
class FieldCollector {
 public:
  void start(std::string_view typeName) {
    fields_ = {};
    fields_.kind = recordKind(typeName);
    open_ = true;
    ownerOpen_ = true;
    inAppGroup_ = false;
  }
  /// Any group but 0.
  void add(std::int32_t code, std::string_view value) {
    if (open_) collect(code, value);
  }
  const RecordFields& fields() const { return fields_; }

 private:
  void collect(std::int32_t code, std::string_view value);
  void addFlag(RecordFlag flag, std::string_view value);

  friend RecordFields fieldsOf(std::string_view record, const Dialect& dialect);
  friend class RecordScanner;

  RecordFields fields_;
  bool binary_ = false;
  bool open_ = false;
  bool ownerOpen_ = false;
  bool inAppGroup_ = false;
};

/// The fields of a record's bytes.
RecordFields fieldsOf(std::string_view record, const Dialect& dialect);

/// Finds records by handle. Holds indexes only; four to six bytes a handle.
class HandleMap {
 public:
  explicit HandleMap(const RecordTable& records) : records_(records) {}

  /// Takes in a record; if its handle is there already, the earlier record stays and duplicates()
  /// becomes true.
  void add(RecordIndex record);
  /// kNoRecord if there is none.
  RecordIndex find(std::uint64_t handle) const;
  bool duplicates() const { return duplicates_; }
  void reserve(std::size_t handles);

 private:
  std::size_t slotOf(std::uint64_t handle) const;
  void rehash(std::size_t capacity);

  const RecordTable& records_;
  LargeMemory memory_;
  RecordIndex* slots_ = nullptr;  ///< index + 1; 0: free
  std::size_t capacity_ = 0;      ///< a power of two
  std::size_t size_ = 0;
  std::uint64_t multiplier_ = 0;
  bool duplicates_ = false;
};

}  // namespace kovra::dxf
