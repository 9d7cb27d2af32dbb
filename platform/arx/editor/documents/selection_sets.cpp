#include "platform/arx/editor/documents/selection_sets.h"

#include <algorithm>

namespace kovra::arx {
namespace {

/// Commands that others run select an entity or two, which are looked through more quickly.
constexpr std::size_t kFew = 8;

}  // namespace

bool SelectionSet::contains(AcDbObjectId id) const {
  if (present_.empty()) return std::find(members_.begin(), members_.end(), id) != members_.end();
  return present_.contains(id);
}

bool SelectionSet::add(AcDbObjectId id) {
  if (contains(id)) return false;
  members_.push_back(id);
  if (!present_.empty())
    present_.insert(id);
  else if (members_.size() > kFew)
    for (const AcDbObjectId& member : members_) present_.insert(member);
  return true;
}

bool SelectionSet::remove(AcDbObjectId id) {
  if (!contains(id)) return false;
  std::erase(members_, id);
  present_.erase(id);
  return true;
}

SelectionSets& SelectionSets::instance() {
  static SelectionSets sets;
  return sets;
}

SelectionSet& SelectionSets::create(ads_name name) {
  name[0] = ++last_;
  name[1] = kSetMark;
  return sets_[last_];
}

SelectionSet* SelectionSets::find(const ads_name name) {
  if (name == nullptr || name[1] != kSetMark) return nullptr;
  const auto found = sets_.find(name[0]);
  return found != sets_.end() ? &found->second : nullptr;
}

bool SelectionSets::free(const ads_name name) {
  return name != nullptr && name[1] == kSetMark && sets_.erase(name[0]) == 1;
}

}  // namespace kovra::arx
