#include "platform/dxf/record_draft.h"

#include "platform/dxf/group_format.h"

namespace kovra::dxf {

namespace {

/// Groups with these codes may begin or end a part of a record.
bool changesPart(std::int32_t code) {
  return (code >= 100 && code <= 102) || code == 1001;
}

}  // namespace

void RecordDraft::clear(const Dialect& dialect) {
  dialect_ = &dialect;
  borrowed_ = {};
  owned_.clear();
  ownsBase_ = false;
  kind_ = RecordKind::kOther;
  groups_.clear();
  pool_.clear();
  loaded_ = {};
  editBegin_ = 1;
  editEnd_ = 0;
}

void RecordDraft::decode(std::string_view bytes, const Dialect& dialect) {
  clear(dialect);
  borrowed_ = bytes;
  readGroups();
}

void RecordDraft::readGroups() {
  // Most records have no more, so that a new draft takes its memory at once.
  constexpr std::size_t kUsual = 32;
  groups_.reserve(kUsual);
  const char* origin = base().data();
  const auto offset = [origin](const char* at) { return static_cast<std::uint32_t>(at - origin); };
  bool plain = false;  // nothing but data so far in this record, so a usual group is data too
  bool marked = false;
  forEachGroup(
      base(), *dialect_, [&](const GroupView& view) __attribute__((always_inline)) {
        groups_.push_back({view.code, offset(view.begin), offset(view.valueBegin),
                           offset(view.valueEnd), offset(view.end), 0, 0, GroupPart::kData, false,
                           marked});
        if (plain && !changesPart(view.code)) return;
        if (groups_.size() == 1) kind_ = recordKind(view.value());
        classify(groups_.size() - 1);
        plain = groups_.back().part == GroupPart::kData;
        marked = groups_.back().marked;
      });
}

void RecordDraft::classify(std::size_t at) {
  Group& group = groups_[at];
  if (at == 0) {
    group.part = GroupPart::kData;
    return;
  }
  const Group& before = groups_[at - 1];
  group.marked = before.marked || group.code == 100;
  if (group.code == 1001) {
    group.part = GroupPart::kXData;
  } else if (group.code == 101) {
    group.part = GroupPart::kEmbedded;
  } else if (before.part == GroupPart::kXData || before.part == GroupPart::kEmbedded) {
    group.part = before.part;
  } else {
    const bool closed = before.code == 102 && value(before).starts_with('}');
    const bool inside = before.part == GroupPart::kAppGroup && !closed && group.code != 100;
    const bool data = kind_ == RecordKind::kXRecord && group.marked;
    const bool opens = group.code == 102 && value(group).starts_with('{') && !data;
    group.part = inside || opens ? GroupPart::kAppGroup : GroupPart::kData;
  }
}

void RecordDraft::classifyFrom(std::size_t at) {
  for (; at < groups_.size(); ++at) {
    const GroupPart part = groups_[at].part;
    const bool marked = groups_[at].marked;
    classify(at);
    // A group says all about its successors, so the rest stays as it is.
    if (part == groups_[at].part && marked == groups_[at].marked && !groups_[at].pooled) break;
  }
}

std::string_view RecordDraft::typeName() const {
  return groups_.empty() ? std::string_view() : trimmed(value(groups_[0]));
}

double RecordDraft::real(std::size_t group) const {
  return decodeReal(*dialect_, code(group), valueAt(group));
}

std::int64_t RecordDraft::integer(std::size_t group) const {
  return decodeInteger(*dialect_, code(group), valueAt(group));
}

std::uint64_t RecordDraft::handle(std::size_t group) const {
  return decodeHandle(valueAt(group));
}

std::string_view RecordDraft::text(std::size_t group) const {
  if (!dialect_->binary) return valueAt(group);
  const ValueType valueType = type(group);
  const bool isText = valueType == ValueType::kText || valueType == ValueType::kHandle;
  return isText ? valueAt(group) : std::string_view();
}

std::string RecordDraft::asciiText(std::size_t group) const {
  const std::string_view bytes = valueAt(group);
  if (!dialect_->binary) return std::string(bytes);
  std::string text;
  switch (type(group)) {
    case ValueType::kText:
    case ValueType::kHandle:
      text = bytes;
      break;
    case ValueType::kReal:
      dxf::appendReal(text, real(group));
      break;
    case ValueType::kBinary:
      encodeBinary(Dialect{}, bytes, text);
      break;
    default:
      dxf::appendInteger(text, integer(group));
      break;
  }
  return text;
}

std::string RecordDraft::binary(std::size_t group) const {
  return decodeBinary(*dialect_, valueAt(group));
}

std::size_t RecordDraft::find(int code, std::size_t occurrence) const {
  for (const Group& group : groups_) {
    const bool found = group.code == code && group.part == GroupPart::kData;
    if (found && occurrence-- == 0) return static_cast<std::size_t>(&group - groups_.data());
  }
  return kNoGroup;
}

std::size_t RecordDraft::find(std::string_view subclass, int code, std::size_t occurrence) const {
  const Group* marker = nullptr;
  std::size_t left = occurrence;
  for (const Group& group : groups_) {
    if ((group.code != code && group.code != 100) || group.part != GroupPart::kData) continue;
    if (group.code == 100) {
      marker = &group;
    } else if (marker != nullptr && value(*marker) == subclass && left-- == 0) {
      return static_cast<std::size_t>(&group - groups_.data());
    }
  }
  return marker != nullptr ? kNoGroup : find(code, occurrence);
}

bool RecordDraft::hasMarker(std::string_view subclass) const {
  for (const Group& group : groups_) {
    if (group.code != 100 || group.part != GroupPart::kData) continue;
    if (value(group) == subclass) return true;
  }
  return false;
}

std::size_t RecordDraft::endOf(std::string_view subclass) const {
  std::size_t endOfData = 0;
  std::size_t endOfSubclass = kNoGroup;
  bool inside = false;
  for (std::size_t n = 0; n < groups_.size(); ++n) {
    const Group& group = groups_[n];
    if (group.part != GroupPart::kData) continue;
    endOfData = n + 1;
    if (group.code == 100) inside = value(group) == subclass;
    if (inside) endOfSubclass = n + 1;
  }
  return endOfSubclass != kNoGroup ? endOfSubclass : endOfData;
}

RecordDraft::Range RecordDraft::embedded() const {
  Range range;
  while (range.begin < size() && part(range.begin) != GroupPart::kEmbedded) ++range.begin;
  range.end = range.begin;
  while (range.end < size() && part(range.end) == GroupPart::kEmbedded) ++range.end;
  return range;
}

RecordDraft::Range RecordDraft::xdata() const {
  Range range;
  while (range.begin < size() && part(range.begin) != GroupPart::kXData) ++range.begin;
  range.end = range.begin;
  while (range.end < size() && part(range.end) == GroupPart::kXData) ++range.end;
  return range;
}

RecordDraft::Range RecordDraft::xdata(std::string_view application) const {
  const auto begins = [this](std::size_t n) {
    return part(n) == GroupPart::kXData && code(n) == 1001;
  };
  for (std::size_t n = 0; n < size(); ++n) {
    if (!begins(n) || value(groups_[n]) != application) continue;
    Range range{n, n + 1};
    while (range.end < size() && part(range.end) == GroupPart::kXData && !begins(range.end)) {
      ++range.end;
    }
    return range;
  }
  return {};
}

RecordDraft::Range RecordDraft::appGroup(std::string_view name) const {
  for (std::size_t n = 0; n < size(); ++n) {
    if (part(n) != GroupPart::kAppGroup || code(n) != 102 || value(groups_[n]) != name) continue;
    Range range{n, n + 1};
    while (range.end < size() && part(range.end) == GroupPart::kAppGroup) {
      if (code(range.end++) == 102) break;
    }
    return range;
  }
  return {};
}

std::size_t RecordDraft::findIn(Range range, int code, std::size_t occurrence) const {
  for (std::size_t n = range.begin; n < range.end && n < size(); ++n) {
    if (groups_[n].code == code && occurrence-- == 0) return n;
  }
  return kNoGroup;
}

/// `style` is that of the base.
void RecordDraft::appendGroupBytes(const Group& group, const GroupStyle& style,
                                   std::string& out) const {
  const std::string_view bytes = base();
  if (!group.pooled) {
    out.append(bytes.substr(group.begin, group.end - group.begin));
  } else if (group.inserted() || style.binary) {
    if (!style.binary && !out.empty() && out.back() != '\n') out.append(style.lineEnd());
    appendGroup(style, group.code, value(group), out);
  } else {
    GroupView like;
    like.begin = bytes.data() + group.begin;
    like.valueBegin = bytes.data() + group.valueBegin;
    like.valueEnd = bytes.data() + group.valueEnd;
    like.end = bytes.data() + group.end;
    appendRevalued(like, value(group), style, out);
  }
}

void RecordDraft::appendBytes(std::string& out) const {
  if (out.empty()) {
    const GroupStyle style = groupStyle(*dialect_, base());
    for (const Group& group : groups_) appendGroupBytes(group, style, out);
    return;
  }
  std::string record;
  appendBytes(record);
  out.append(record);
}

}  // namespace kovra::dxf
