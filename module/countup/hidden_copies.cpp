#include "module/countup/hidden_copies.h"

#include "module/drawing/auto_var.h"
#include "module/drawing/group_list.h"
#include "module/drawing/layer_snapshot.h"

namespace kovra {
namespace {

/// Unlocks the layers of the drawing that holds an entity. A copy on a locked layer could neither
/// be moved nor removed.
class UnlockedLayers {
 public:
  explicit UnlockedLayers(const ads_name entity) {
    AcDbObjectId id;
    if (acdbGetObjectId(id, entity) != Acad::eOk || id.database() == nullptr) return;
    layers_.Capture(id.database());
    layers_.UnlockAll();
  }
  ~UnlockedLayers() { layers_.Restore(); }
  UnlockedLayers(const UnlockedLayers&) = delete;
  UnlockedLayers& operator=(const UnlockedLayers&) = delete;

 private:
  LayerSnapshot layers_;
};

}  // namespace

HiddenCopies::~HiddenCopies() {
  if (copies_.empty()) return;
  const UnlockedLayers unlocked(copies_.front().entity);
  while (!copies_.empty()) {
    acdbEntDel(copies_.back().entity);
    copies_.pop_back();
  }
}

bool HiddenCopies::open(int count) {
  copies_.reserve(static_cast<std::size_t>(count));
  return set_.create();
}

void HiddenCopies::add(const ads_name copy) {
  Name name = {};
  ads_name_set(copy, name.entity);
  if (set_.add(copy)) {
    copies_.push_back(name);
  } else {
    const UnlockedLayers unlocked(copy);
    acdbEntDel(copy);
  }
}

bool HiddenCopies::move(const ads_point from, const ads_point to) {
  if (copies_.empty()) return false;
  const GroupList command(acutBuildList(RTSTR, L".MOVE", RTPICKS, set_.name(), RTSTR, L"", RTPOINT,
                                        from, RTPOINT, to, RTNONE));
  if (command == nullptr) return false;
  const UnlockedLayers unlocked(copies_.front().entity);
  CAutoVar snap;
  snap.Set(L"AUTOSNAP", 0);
  return acedCmdS(command.get()) == RTNORM;
}

SelectionSet HiddenCopies::release() {
  copies_.clear();
  return std::move(set_);
}

}  // namespace kovra
