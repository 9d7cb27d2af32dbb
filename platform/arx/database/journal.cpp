#include "platform/arx/database/journal.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "platform/dxf/record_overlay.h"

namespace kovra::arx {

Journal::Journal(dxf::RecordStore& store) : store_(store) {
  store_.addListener(this);
}

Journal::~Journal() {
  store_.removeListener(this);
}

void Journal::beforeChange(dxf::RecordIndex record) {
  if (restoring_) return;
  undone_.clear();
  const std::size_t boundary = boundaries_.empty() ? 0 : boundaries_.back().position;
  const std::size_t transaction = transactions_.empty() ? 0 : transactions_.back();
  const bool noted =
      entries_.size() > std::max(boundary, transaction) && entries_.back().record == record;
  if (!noted) entries_.push_back({record, store_.state(record)});
}

void Journal::addBoundary(BoundaryKind kind, std::wstring name) {
  boundaries_.push_back({entries_.size(), kind, std::move(name)});
}

void Journal::beginStep(std::wstring name) {
  addBoundary(BoundaryKind::kStep, std::move(name));
}

void Journal::setMark() {
  addBoundary(BoundaryKind::kMark, boundaries_.empty() ? std::wstring() : boundaries_.back().name);
}

void Journal::beginGroup() {
  if (groupOpen_) endGroup();
  addBoundary(BoundaryKind::kGroup, L"GROUP");
  groupOpen_ = true;
}

void Journal::endGroup() {
  if (!groupOpen_) return;
  groupOpen_ = false;
  while (boundaries_.back().kind != BoundaryKind::kGroup) boundaries_.pop_back();
  boundaries_.back().kind = BoundaryKind::kStep;
  // What follows in the same command is outside the group.
  addBoundary(BoundaryKind::kStep, boundaries_.back().name);
}

bool Journal::hasMark() const {
  return std::any_of(boundaries_.begin(), boundaries_.end(),
                     [](const Boundary& b) { return b.kind == BoundaryKind::kMark; });
}

bool Journal::differs(const Entry& entry) const {
  const dxf::RecordState now = store_.state(entry.record);
  if (now.erased != entry.state.erased) return true;
  // An erased record may hold anything.
  if (now.erased || now.overlay == entry.state.overlay) return false;
  // Without an overlay a record is as in the file, with one it is not.
  if (now.overlay == nullptr || entry.state.overlay == nullptr) return true;
  return !(*now.overlay == *entry.state.overlay);
}

/// Restores everything behind the position; says whether a record ended other than it was.
bool Journal::takeBack(std::size_t position, Undone& undone) {
  const std::size_t first = undone.entries.size();
  restoring_ = true;
  while (entries_.size() > position) {
    const Entry entry = std::move(entries_.back());
    entries_.pop_back();
    undone.entries.push_back({entry.record, store_.state(entry.record)});
    store_.restore(entry.record, entry.state);
  }
  restoring_ = false;
  // Of several entries of one record the first has its newest state.
  std::unordered_set<dxf::RecordIndex> seen;
  for (std::size_t i = first; i < undone.entries.size(); ++i)
    if (seen.insert(undone.entries[i].record).second && differs(undone.entries[i])) return true;
  return false;
}

std::size_t Journal::groupFloor() const {
  if (!groupOpen_) return 0;
  const auto group = std::find_if(boundaries_.rbegin(), boundaries_.rend(),
                                  [](const Boundary& b) { return b.kind == BoundaryKind::kGroup; });
  return group->position;
}

bool Journal::takeBackStep(Undone& undone, std::wstring& name) {
  const std::size_t floor = groupFloor();
  while (entries_.size() > floor) {
    while (!boundaries_.empty() && boundaries_.back().position == entries_.size()) {
      undone.boundaries.push_back(std::move(boundaries_.back()));
      boundaries_.pop_back();
    }
    const std::size_t position = boundaries_.empty() ? 0 : boundaries_.back().position;
    name = boundaries_.empty() ? std::wstring() : boundaries_.back().name;
    if (takeBack(position, undone)) return true;
  }
  return false;
}

void Journal::keepUndone(Undone undone) {
  if (!undone.entries.empty()) {
    undone_.push_back(std::move(undone));
  } else {
    std::move(undone.boundaries.rbegin(), undone.boundaries.rend(),
              std::back_inserter(boundaries_));
  }
}

std::vector<std::wstring> Journal::undo(int count) {
  std::vector<std::wstring> names;
  if (!transactions_.empty()) return names;
  Undone undone;
  std::wstring name;
  while (static_cast<int>(names.size()) < count && takeBackStep(undone, name))
    names.push_back(name);
  undone.name = name;
  keepUndone(std::move(undone));
  return names;
}

bool Journal::undoBack() {
  if (!transactions_.empty()) return false;
  groupOpen_ = false;
  Undone undone;
  while (!boundaries_.empty()) {
    undone.boundaries.push_back(std::move(boundaries_.back()));
    boundaries_.pop_back();
    if (undone.boundaries.back().kind == BoundaryKind::kMark) break;
  }
  const bool atMark =
      !undone.boundaries.empty() && undone.boundaries.back().kind == BoundaryKind::kMark;
  const bool changed = takeBack(atMark ? undone.boundaries.back().position : 0, undone);
  keepUndone(std::move(undone));
  return changed;
}

bool Journal::redo() {
  if (undone_.empty() || !transactions_.empty()) return false;
  Undone undone = std::move(undone_.back());
  undone_.pop_back();
  restoring_ = true;
  for (auto entry = undone.entries.rbegin(); entry != undone.entries.rend(); ++entry) {
    entries_.push_back({entry->record, store_.state(entry->record)});
    store_.restore(entry->record, entry->state);
  }
  restoring_ = false;
  std::move(undone.boundaries.rbegin(), undone.boundaries.rend(), std::back_inserter(boundaries_));
  return true;
}

/// Whether a record is other than it was there. Of several entries of one record the first has its
/// oldest state.
bool Journal::changedSince(std::size_t position) const {
  std::unordered_set<dxf::RecordIndex> seen;
  for (std::size_t i = position; i < entries_.size(); ++i)
    if (seen.insert(entries_[i].record).second && differs(entries_[i])) return true;
  return false;
}

std::optional<std::wstring> Journal::undoName() const {
  const std::size_t floor = groupFloor();
  std::size_t end = entries_.size();
  for (auto boundary = boundaries_.rbegin(); end > floor && boundary != boundaries_.rend();
       ++boundary) {
    if (boundary->position == end) continue;
    end = boundary->position;
    if (changedSince(end)) return boundary->name;
  }
  if (end > floor && changedSince(floor)) return std::wstring();
  return std::nullopt;
}

std::optional<std::wstring> Journal::redoName() const {
  if (undone_.empty()) return std::nullopt;
  return undone_.back().name;
}

void Journal::startTransaction() {
  transactions_.push_back(entries_.size());
}

bool Journal::endTransaction() {
  if (transactions_.empty()) return false;
  transactions_.pop_back();
  return true;
}

bool Journal::abortTransaction() {
  if (transactions_.empty()) return false;
  const std::size_t position = transactions_.back();
  transactions_.pop_back();
  Undone dropped;
  takeBack(position, dropped);
  while (!boundaries_.empty() && boundaries_.back().position > position) {
    if (boundaries_.back().kind == BoundaryKind::kGroup) groupOpen_ = false;
    boundaries_.pop_back();
  }
  return true;
}

}  // namespace kovra::arx
