#include "platform/dxf/record_table.h"

#include <bit>
#include <new>
#include <random>
#include <utility>

namespace kovra::dxf {

void RecordTable::reserve(std::size_t records) {
  if (records <= capacity_) return;
  if (!entries_.resize(records * sizeof(RecordEntry)) ||
      !slots_.resize(records * sizeof(std::uint32_t))) {
    throw std::bad_alloc();
  }
  capacity_ = records;
}

void FieldCollector::addFlag(RecordFlag flag, std::string_view value) {
  std::int64_t number = 0;
  if (binary_) {
    number = value.find_first_not_of('\0') != std::string_view::npos ? 1 : 0;
  } else {
    parseInteger(value, number);
  }
  if (number != 0) fields_.flags |= flag;
}

void FieldCollector::collect(std::int32_t code, std::string_view value) {
  switch (code) {
    case 5:
    case 105:
      if (fields_.handle == 0 && (code == 105) == (fields_.kind == RecordKind::kDimStyle)) {
        fields_.handle = decodeHandle(value);
      }
      break;
    case 330:
      if (ownerOpen_ && !inAppGroup_) {
        fields_.owner = decodeHandle(value);
        ownerOpen_ = false;
      }
      break;
    case 66:
      addFlag(kAttributesFollow, value);
      break;
    case 67:
      addFlag(kPaperSpace, value);
      break;
    case 100:
      fields_.flags |= kMarkers;
      inAppGroup_ = false;
      if (value != "AcDbEntity" && value != "AcDbSymbolTableRecord") ownerOpen_ = false;
      break;
    case 102:
      inAppGroup_ = !value.empty() && value.front() == '{';
      break;
    case 101:
    case 1001:
      open_ = false;
      break;
    default:
      break;
  }
}

RecordFields fieldsOf(std::string_view record, const Dialect& dialect) {
  FieldCollector collector;
  collector.binary_ = dialect.binary;
  bool first = true;
  forEachGroup(record, dialect, [&](const GroupView& group) {
    if (first) {
      collector.start(group.value());
    } else {
      collector.add(group.code, group.value());
    }
    first = false;
  });
  return collector.fields();
}

std::size_t HandleMap::slotOf(std::uint64_t handle) const {
  // Sixteen handles in a row share a cache line: drawings number their records in order. The
  // multiplier is random, so that nobody can prepare a file whose handles all collide; mixing
  // before it keeps an unlucky one from heaping up rows of lines.
  constexpr std::uint64_t kGoldenRatio = 0x9e3779b97f4a7c15;  // 2^64 / phi
  std::uint64_t line = (handle >> 4U) * kGoldenRatio;
  line = (line ^ (line >> 32U)) * multiplier_;
  line = (line ^ (line >> 32U)) & (capacity_ / 16 - 1);
  return line * 16 + (handle & 15U);
}

void HandleMap::rehash(std::size_t capacity) {
  LargeMemory memory;
  if (!memory.resize(capacity * sizeof(RecordIndex))) throw std::bad_alloc();
  std::swap(memory, memory_);
  const auto* old = slots_;
  const std::size_t oldCapacity = capacity_;
  slots_ = reinterpret_cast<RecordIndex*>(memory_.data());
  if (multiplier_ == 0) {
    std::random_device random;
    multiplier_ = (std::uint64_t{random()} << 32U | random()) | 1U;
  }
  capacity_ = capacity;
  size_ = 0;
  for (std::size_t n = 0; n < oldCapacity; ++n) {
    if (old[n] != 0) add(old[n] - 1);
  }
}

void HandleMap::reserve(std::size_t handles) {
  constexpr std::size_t kSmallest = 64;
  const std::size_t capacity = std::bit_ceil(handles + handles / 2 + kSmallest);
  if (capacity > capacity_) rehash(capacity);
}

void HandleMap::add(RecordIndex record) {
  const std::uint64_t handle = records_.handle(record);
  if (handle == 0) return;
  if ((size_ + 1) * 3 > capacity_ * 2) reserve(size_ * 2 + 1);
  std::size_t slot = slotOf(handle);
  while (slots_[slot] != 0) {
    if (slots_[slot] == record + 1) return;
    if (records_.handle(slots_[slot] - 1) == handle) {
      duplicates_ = true;
      return;
    }
    slot = (slot + 1) & (capacity_ - 1);
  }
  slots_[slot] = record + 1;
  ++size_;
}

RecordIndex HandleMap::find(std::uint64_t handle) const {
  if (capacity_ == 0 || handle == 0) return kNoRecord;
  for (std::size_t slot = slotOf(handle); slots_[slot] != 0; slot = (slot + 1) & (capacity_ - 1)) {
    const RecordIndex record = slots_[slot] - 1;
    if (records_.handle(record) == handle) return record;
  }
  return kNoRecord;
}

}  // namespace kovra::dxf
