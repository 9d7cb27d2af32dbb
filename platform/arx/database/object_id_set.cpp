#include "platform/arx/database/object_id_set.h"

#include <algorithm>
#include <bit>

namespace kovra::arx {
namespace {

constexpr std::uint32_t kBits = 64;

std::uint64_t markOf(AcDbObjectId id) {
  return std::uint64_t{1} << id.index() % kBits;
}

}  // namespace

const std::uint64_t* ObjectIdSet::word(AcDbObjectId id) const {
  for (const Marks& marks : marks_) {
    if (marks.serial != id.serial()) continue;
    const std::size_t at = id.index() / kBits;
    return at < marks.words.size() ? &marks.words[at] : nullptr;
  }
  return nullptr;
}

std::uint64_t* ObjectIdSet::word(AcDbObjectId id) {
  auto marks = std::ranges::find(marks_, id.serial(), &Marks::serial);
  if (marks == marks_.end()) marks = marks_.insert(marks_.end(), Marks{id.serial(), {}});
  const std::size_t at = id.index() / kBits;
  if (at >= marks->words.size()) marks->words.resize(at + 1);
  return &marks->words[at];
}

bool ObjectIdSet::insert(AcDbObjectId id) {
  std::uint64_t& marks = *word(id);
  if ((marks & markOf(id)) != 0) return false;
  marks |= markOf(id);
  ++size_;
  return true;
}

bool ObjectIdSet::erase(AcDbObjectId id) {
  if (!contains(id)) return false;
  *word(id) &= ~markOf(id);
  --size_;
  return true;
}

bool ObjectIdSet::contains(AcDbObjectId id) const {
  const std::uint64_t* marks = word(id);
  return marks != nullptr && (*marks & markOf(id)) != 0;
}

std::vector<AcDbObjectId> ObjectIdSet::ids() const {
  std::vector<AcDbObjectId> all;
  all.reserve(size_);
  for (const Marks& marks : marks_) {
    for (std::size_t at = 0; at < marks.words.size(); ++at) {
      for (std::uint64_t left = marks.words[at]; left != 0; left &= left - 1) {
        const std::size_t index = at * kBits + static_cast<std::size_t>(std::countr_zero(left));
        all.emplace_back(marks.serial, static_cast<std::uint32_t>(index));
      }
    }
  }
  return all;
}

}  // namespace kovra::arx
