#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dxf/group_format.h"
#include "platform/dxf/record_draft.h"
#include "platform/dxf/text_codec.h"

namespace kovra::dxf {

/// How a changed record differs from the file: its bytes are the first `head` bytes of the
/// original, `middle`, and the last `tail` bytes of the original. A few bytes for a typical change.
/// All of an inserted record is middle. Never changes once it is made.
struct RecordOverlay {
  std::uint32_t head = 0;
  std::uint32_t tail = 0;
  bool indexed = false;  ///< may change what the store knows of the record (handle, owner, flags)
  std::string middle;

  bool operator==(const RecordOverlay&) const = default;
};

/// An empty overlay, in the memory of parts.
std::shared_ptr<RecordOverlay> newOverlay();

/// Makes overlays; its storage is reused from one to the next.
class OverlayBuilder {
 public:
  /// The overlay that turns the original record into the draft; null if nothing differs.
  ///
  /// `current` is the overlay that the draft was loaded with. Groups of the draft that stand for a
  /// group of the original and have an equal value get the original's bytes.
  std::shared_ptr<const RecordOverlay> build(std::string_view original,
                                             const RecordOverlay* current, const RecordDraft& draft,
                                             const TextCodec& codec);

 private:
  using Group = RecordDraft::Group;

  void collectOld();
  void collectNew(std::uint32_t baseSize);
  bool same(const GroupView& old, const Group& group) const;
  bool matches(std::size_t oldGroup, std::size_t newGroup) const {
    return old_[oldGroup].code == new_[newGroup].code && same(old_[oldGroup], new_[newGroup]);
  }
  void strip();
  bool indexed() const;
  void align();
  void appendChanged(const GroupView& old, const Group& group);
  void endLine();
  void fillMiddle();

  std::string_view original_;
  const RecordDraft* draft_ = nullptr;
  const TextCodec* codec_ = nullptr;
  std::uint32_t head_ = 0;
  std::uint32_t tail_ = 0;
  std::vector<GroupView> old_;
  std::vector<Group> new_;
  std::vector<std::size_t> partners_;  ///< by new group: the old one that it stands for
  std::vector<int> oldCodes_;
  std::vector<int> newCodes_;
  GroupStyle style_;       ///< of the original record
  GroupStyle draftStyle_;  ///< of the record that the draft was decoded from
  std::string middle_;
};

}  // namespace kovra::dxf
