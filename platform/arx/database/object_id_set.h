#pragma once

#include <cstdint>
#include <vector>

#include "platform/arx/database/object_id.h"

namespace kovra::arx {

/// Ids without an order. A bit for each record of a drawing up to the last one in the set: many
/// of a drawing's ids cost no heap request and little memory each.
class ObjectIdSet {
 public:
  /// False when the set has it already.
  bool insert(AcDbObjectId id);
  /// False when the set doesn't have it.
  bool erase(AcDbObjectId id);
  bool contains(AcDbObjectId id) const;
  bool empty() const { return size_ == 0; }
  std::size_t size() const { return size_; }
  /// By drawing, then as they stand in it.
  std::vector<AcDbObjectId> ids() const;

 private:
  struct Marks {
    std::uint32_t serial;  ///< of the database
    std::vector<std::uint64_t> words;
  };

  std::uint64_t* word(AcDbObjectId id);
  const std::uint64_t* word(AcDbObjectId id) const;

  std::vector<Marks> marks_;  ///< of one database, as a rule
  std::size_t size_ = 0;
};

}  // namespace kovra::arx
