#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

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

/// The overlay that turns the original record into the draft; null if nothing differs.
///
/// `current` is the overlay that the draft was loaded with. Groups of the draft that stand for a
/// group of the original and have an equal value get the original's bytes.
std::shared_ptr<const RecordOverlay> buildOverlay(std::string_view original,
                                                  const RecordOverlay* current,
                                                  const RecordDraft& draft, const TextCodec& codec);

}  // namespace kovra::dxf
