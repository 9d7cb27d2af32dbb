#include <algorithm>
#include <cmath>

#include "platform/dxf/group_format.h"
#include "platform/dxf/record_draft.h"
#include "platform/dxf/text_codec.h"

// How a draft is changed: new values are encoded into the draft's pool, and the range of the base
// that they stand in is noted.
namespace kovra::dxf {

namespace {

std::string_view firstLine(std::string_view value) {
  return value.substr(0, value.find_first_of(std::string_view("\r\n\0", 3)));
}

}  // namespace

void RecordDraft::start(const Dialect& dialect, std::string_view typeName, std::uint64_t handle,
                        std::uint64_t owner) {
  clear(dialect);
  ownsBase_ = true;
  kind_ = recordKind(typeName);
  appendText(0, typeName);
  const int handleCode = kind_ == RecordKind::kDimStyle ? 105 : 5;
  if (dialect.handles && handle != 0) appendHandle(handleCode, handle);
  if (dialect.owners && owner != 0) appendHandle(330, owner);
}

void RecordDraft::appendMarker(std::string_view name) {
  if (dialect_->subclassMarkers) appendText(100, name);
}

void RecordDraft::markEdited(std::uint32_t begin, std::uint32_t end) {
  const bool first = !edited();
  editBegin_ = first ? begin : std::min(editBegin_, begin);
  editEnd_ = first ? end : std::max(editEnd_, end);
}

std::uint32_t RecordDraft::beginPool() {
  return static_cast<std::uint32_t>(pool_.size());
}

/// Gives a group the value that was just appended to the pool, unless it is what the group has.
void RecordDraft::setPooled(std::size_t at, std::uint32_t poolBegin) {
  if (at >= size()) {
    pool_.resize(poolBegin);
    return;
  }
  const std::string_view encoded = std::string_view(pool_).substr(poolBegin);
  if (sameValue(*dialect_, groups_[at].code, value(groups_[at]), encoded)) {
    pool_.resize(poolBegin);
    return;
  }
  putPooled(at, poolBegin);
}

/// The same for a value that is known to differ from the group's.
void RecordDraft::putPooled(std::size_t at, std::uint32_t poolBegin) {
  Group& group = groups_[at];
  const std::string_view encoded = std::string_view(pool_).substr(poolBegin);
  if (group.pooled && encoded.size() == group.poolEnd - group.poolBegin) {
    // Binary numbers stay in their place, so a text that is dragged about doesn't grow.
    std::copy(encoded.begin(), encoded.end(), pool_.begin() + group.poolBegin);
    pool_.resize(poolBegin);
  } else {
    group.poolBegin = poolBegin;
    group.poolEnd = static_cast<std::uint32_t>(pool_.size());
    group.pooled = true;
  }
  markEdited(group.begin, group.end);
  if (group.code >= 100 && group.code <= 102) classifyFrom(at);
}

void RecordDraft::insertPooled(std::size_t at, int code, std::uint32_t poolBegin) {
  at = std::min(at, groups_.size());
  Group group;
  group.code = code;
  const std::uint32_t place = at < groups_.size() ? groups_[at].begin
                              : groups_.empty()   ? 0
                                                  : groups_.back().end;
  group.begin = group.valueBegin = group.valueEnd = group.end = place;
  group.poolBegin = poolBegin;
  group.poolEnd = static_cast<std::uint32_t>(pool_.size());
  group.pooled = true;
  groups_.insert(groups_.begin() + static_cast<std::ptrdiff_t>(at), group);
  markEdited(place, place);
  classifyFrom(at);
}

/// Integers are often right-aligned; a new one is put into the columns of the old one, or of a
/// neighbour of its kind.
void RecordDraft::alignInteger(std::uint32_t poolBegin, std::string_view like) {
  const std::size_t width = pool_.size() - poolBegin;
  constexpr std::size_t kWidest = 12;
  if (dialect_->binary || like.size() <= width || like.size() > kWidest || like[0] != ' ') return;
  pool_.insert(poolBegin, like.size() - width, ' ');
}

std::string_view RecordDraft::integerLike(ValueType type) const {
  for (const Group& group : groups_) {
    if (!group.pooled && valueType(group.code) == type) return value(group);
  }
  return {};
}

void RecordDraft::setReal(std::size_t group, double value) {
  // As numbers they are compared without being written.
  const bool asNumbers = group < size() && !dialect_->binary && type(group) == ValueType::kReal &&
                         std::isfinite(value);
  double present = 0;
  if (asNumbers && parseReal(valueAt(group), present) && present == value) return;
  const std::uint32_t begin = beginPool();
  encodeReal(*dialect_, code(group), value, pool_);
  asNumbers ? putPooled(group, begin) : setPooled(group, begin);
}

void RecordDraft::setInteger(std::size_t group, std::int64_t value) {
  const std::uint32_t begin = beginPool();
  encodeInteger(*dialect_, code(group), value, pool_);
  alignInteger(begin, valueAt(group));
  setPooled(group, begin);
}

void RecordDraft::setHandle(std::size_t group, std::uint64_t value) {
  const std::uint32_t begin = beginPool();
  encodeHandle(*dialect_, code(group), value, pool_);
  setPooled(group, begin);
}

void RecordDraft::setText(std::size_t group, std::wstring_view text, const TextCodec& codec) {
  if (codec.decode(valueAt(group)) != text) setText(group, codec.encode(text));
}

void RecordDraft::setBinary(std::size_t group, std::string_view bytes) {
  const std::uint32_t begin = beginPool();
  encodeBinary(*dialect_, bytes, pool_);
  setPooled(group, begin);
}

void RecordDraft::setText(std::size_t group, std::string_view value) {
  const std::uint32_t begin = beginPool();
  encodeAscii(*dialect_, code(group), firstLine(value), pool_);
  setPooled(group, begin);
}

void RecordDraft::insertReal(std::size_t at, int code, double value) {
  const std::uint32_t begin = beginPool();
  encodeReal(*dialect_, code, value, pool_);
  insertPooled(at, code, begin);
}

void RecordDraft::insertInteger(std::size_t at, int code, std::int64_t value) {
  const std::uint32_t begin = beginPool();
  encodeInteger(*dialect_, code, value, pool_);
  alignInteger(begin, integerLike(valueType(code)));
  insertPooled(at, code, begin);
}

void RecordDraft::insertHandle(std::size_t at, int code, std::uint64_t value) {
  const std::uint32_t begin = beginPool();
  encodeHandle(*dialect_, code, value, pool_);
  insertPooled(at, code, begin);
}

void RecordDraft::insertText(std::size_t at, int code, std::wstring_view text,
                             const TextCodec& codec) {
  insertText(at, code, codec.encode(text));
}

void RecordDraft::insertBinary(std::size_t at, int code, std::string_view bytes) {
  const std::uint32_t begin = beginPool();
  encodeBinary(*dialect_, bytes, pool_);
  insertPooled(at, code, begin);
}

void RecordDraft::insertText(std::size_t at, int code, std::string_view value) {
  const std::uint32_t begin = beginPool();
  encodeAscii(*dialect_, code, firstLine(value), pool_);
  insertPooled(at, code, begin);
}

void RecordDraft::erase(Range range) {
  range.end = std::min(range.end, groups_.size());
  if (range.begin >= range.end) return;
  markEdited(groups_[range.begin].begin, groups_[range.end - 1].end);
  groups_.erase(groups_.begin() + static_cast<std::ptrdiff_t>(range.begin),
                groups_.begin() + static_cast<std::ptrdiff_t>(range.end));
  classifyFrom(range.begin);
}

}  // namespace kovra::dxf
