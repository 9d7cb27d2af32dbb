#include "platform/dxf/record_overlay.h"

#include <algorithm>
#include <vector>

#include "platform/dxf/group_alignment.h"
#include "platform/dxf/group_format.h"
#include "platform/dxf/part_memory.h"

namespace kovra::dxf {

namespace {

bool isIndexed(int code) {
  switch (code) {
    case 0:
    case 5:
    case 105:
    case 330:
    case 66:
    case 67:
    case 100:
    case 101:
    case 102:
    case 1001:
      return true;
    default:
      return false;
  }
}

/// From the beginning of a group to the end of one behind it, or of itself.
std::size_t bytesBetween(const GroupView& first, const GroupView& last) {
  return static_cast<std::size_t>(last.end - first.begin);
}

}  // namespace

std::shared_ptr<RecordOverlay> newOverlay() {
  return std::allocate_shared<RecordOverlay>(PartAllocator<RecordOverlay>());
}

void OverlayBuilder::collectOld() {
  old_.clear();
  const std::string_view stretch = original_.substr(head_, original_.size() - head_ - tail_);
  forEachGroup(stretch, draft_->dialect(),
               [this](const GroupView& group) { old_.push_back(group); });
}

void OverlayBuilder::collectNew(std::uint32_t baseSize) {
  const auto& groups = draft_->groups_;
  const auto first =
      std::lower_bound(groups.begin(), groups.end(), head_,
                       [](const Group& group, std::uint32_t at) { return group.begin < at; });
  const std::uint32_t end = baseSize - tail_;
  auto last = first;
  while (last != groups.end() && last->end <= end) ++last;
  new_.assign(first, last);
}

bool OverlayBuilder::same(const GroupView& old, const Group& group) const {
  const std::string_view left = old.value();
  const std::string_view right = draft_->value(group);
  if (left == right) return true;  // as most are
  if (sameValue(draft_->dialect(), group.code, left, right)) return true;
  const bool text = group.code != 0 && valueType(group.code) == ValueType::kText;
  return text && codec_->sameText(left, right);
}

/// Gives back to the original what is equal at both ends of the stretch.
void OverlayBuilder::strip() {
  std::size_t front = 0;
  while (front < old_.size() && front < new_.size() && matches(front, front)) {
    head_ += static_cast<std::uint32_t>(old_[front].end - old_[front].begin);
    ++front;
  }
  std::size_t back = 0;
  // One group on each side is the pair that ended the way from the front.
  const auto onePairLeft = [&] {
    return front + back + 1 == old_.size() && front + back + 1 == new_.size();
  };
  while (front + back < old_.size() && front + back < new_.size() && !onePairLeft() &&
         matches(old_.size() - 1 - back, new_.size() - 1 - back)) {
    const GroupView& group = old_[old_.size() - 1 - back];
    tail_ += static_cast<std::uint32_t>(group.end - group.begin);
    ++back;
  }
  old_.erase(old_.end() - static_cast<std::ptrdiff_t>(back), old_.end());
  old_.erase(old_.begin(), old_.begin() + static_cast<std::ptrdiff_t>(front));
  new_.erase(new_.end() - static_cast<std::ptrdiff_t>(back), new_.end());
  new_.erase(new_.begin(), new_.begin() + static_cast<std::ptrdiff_t>(front));
}

/// Whether the groups that the store knows a record by differ in their order or their bytes.
bool OverlayBuilder::indexed() const {
  auto old = old_.begin();
  const auto toIndexed = [&] {
    while (old != old_.end() && !isIndexed(old->code)) ++old;
  };
  for (const Group& group : new_) {
    if (!isIndexed(group.code)) continue;
    toIndexed();
    if (old == old_.end() || old->code != group.code || old->value() != draft_->value(group))
      return true;
    ++old;
  }
  toIndexed();
  return old != old_.end();
}

/// Appends what stands for a group of the original, which has another value now.
void OverlayBuilder::appendChanged(const GroupView& old, const Group& group) {
  if (style_.binary) return appendGroup(style_, group.code, draft_->value(group), middle_);
  appendRevalued(old, draft_->value(group), style_, middle_);
}

/// A line that ended the file may lack its end.
void OverlayBuilder::endLine() {
  if (!middle_.empty() && middle_.back() != '\n') middle_.append(style_.lineEnd());
}

/// Puts the new groups together; those that are equal to neighbours in the original come along as
/// one piece.
void OverlayBuilder::fillMiddle() {
  middle_.clear();
  // Nothing can follow a last line that has no end.
  const bool cutLine = head_ > 0 && original_[head_ - 1] != '\n';
  if (cutLine && !new_.empty()) middle_ = style_.lineEnd();
  // Of pairs one is known to differ: the one that ended the run before it, and at the beginning the
  // one that strip() left.
  std::size_t differs = !new_.empty() && partners_.front() == 0 ? 0 : kNoGroup;
  const auto equalsPartner = [&](std::size_t n) {
    if (n != differs && same(old_[partners_[n]], new_[n])) return true;
    differs = n;
    return false;
  };
  for (std::size_t n = 0; n < new_.size();) {
    endLine();
    const std::size_t partner = partners_[n];
    std::size_t equal = 0;
    while (partner != kNoGroup && n + equal < new_.size() &&
           partners_[n + equal] == partner + equal && equalsPartner(n + equal))
      ++equal;
    if (equal > 0)
      middle_.append(old_[partner].begin, bytesBetween(old_[partner], old_[partner + equal - 1]));
    else if (partner != kNoGroup)
      appendChanged(old_[partner], new_[n]);
    else
      draft_->appendGroupBytes(new_[n], draftStyle_, middle_);
    n += std::max<std::size_t>(equal, 1);
  }
}

void OverlayBuilder::align() {
  partners_.assign(new_.size(), kNoGroup);
  oldCodes_.clear();
  newCodes_.clear();
  for (const GroupView& group : old_) oldCodes_.push_back(group.code);
  for (const Group& group : new_) newCodes_.push_back(group.code);
  if (oldCodes_ == newCodes_) {
    for (std::size_t n = 0; n < new_.size(); ++n) partners_[n] = n;
    return;
  }
  alignGroups({oldCodes_, newCodes_,
               [this](std::size_t a, std::size_t b) { return same(old_[a], new_[b]); }},
              partners_);
}

std::shared_ptr<const RecordOverlay> OverlayBuilder::build(std::string_view original,
                                                           const RecordOverlay* current,
                                                           const RecordDraft& draft,
                                                           const TextCodec& codec) {
  original_ = original;
  draft_ = &draft;
  codec_ = &codec;
  const auto baseSize = static_cast<std::uint32_t>(draft.base().size());
  head_ = std::min(draft.editBegin_, current != nullptr ? current->head : baseSize);
  tail_ = std::min(baseSize - draft.editEnd_, current != nullptr ? current->tail : baseSize);
  collectOld();
  collectNew(baseSize);
  strip();
  if (old_.empty() && new_.empty()) return nullptr;
  align();
  auto overlay = newOverlay();
  overlay->head = head_;
  overlay->tail = tail_;
  overlay->indexed = indexed();
  style_ = groupStyle(draft.dialect(), original_);
  const bool ofOriginal = draft.base().data() == original_.data();
  draftStyle_ = ofOriginal ? style_ : groupStyle(draft.dialect(), draft.base());
  fillMiddle();
  overlay->middle = middle_;
  return overlay;
}

}  // namespace kovra::dxf
