#pragma once

#include <map>
#include <vector>

#include "platform/arx/base/ads.h"
#include "platform/arx/database/object_id_set.h"

namespace kovra::arx {

/// Entities in the order in which they were added, none twice.
class SelectionSet {
 public:
  /// False when the set has it already.
  bool add(AcDbObjectId id);
  bool remove(AcDbObjectId id);
  bool contains(AcDbObjectId id) const;
  const std::vector<AcDbObjectId>& members() const { return members_; }

 private:
  std::vector<AcDbObjectId> members_;
  ObjectIdSet present_;  ///< the members once they are more than a few
};

/// The second word of a set's name; an entity's is 0.
inline constexpr Adesk::IntPtr kSetMark = 1;

/// The selection sets that commands hold, by their names.
class SelectionSets {
 public:
  static SelectionSets& instance();

  /// A new set; its name goes to `name`.
  SelectionSet& create(ads_name name);
  /// Null for a name that is no set or was freed.
  SelectionSet* find(const ads_name name);
  bool free(const ads_name name);
  size_t count() const { return sets_.size(); }

 private:
  std::map<Adesk::IntPtr, SelectionSet> sets_;
  Adesk::IntPtr last_ = 0;
};

}  // namespace kovra::arx
