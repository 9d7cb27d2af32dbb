#include "platform/arx/editor/documents/selection_sets.h"

namespace kovra::arx {

bool SelectionSet::add(AcDbObjectId id) {
  if (!present_.insert(id).second) return false;
  members_.push_back(id);
  return true;
}

bool SelectionSet::remove(AcDbObjectId id) {
  if (present_.erase(id) == 0) return false;
  std::erase(members_, id);
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
