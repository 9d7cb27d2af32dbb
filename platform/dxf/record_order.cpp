#include "platform/dxf/record_order.h"

namespace kovra::dxf {

RecordIndex RecordOrder::enter(RecordIndex original) const {
  if (!chains_.empty()) {
    const auto chain = chains_.find(original);
    if (chain != chains_.end()) return chain->second.first;
  }
  return original < originals_ ? original : kNoRecord;
}

RecordIndex RecordOrder::next(RecordIndex record) const {
  if (record < originals_) return enter(record + 1);
  const Link& at = link(record);
  if (at.after != kNoRecord) return at.after;
  return at.anchor < originals_ ? at.anchor : kNoRecord;
}

RecordIndex RecordOrder::previous(RecordIndex record) const {
  const bool inserted = record != kNoRecord && record >= originals_;
  if (inserted && link(record).before != kNoRecord) return link(record).before;
  const RecordIndex original = anchor(record);
  if (!inserted && !chains_.empty()) {
    const auto chain = chains_.find(original);
    if (chain != chains_.end()) return chain->second.last;
  }
  return original == 0 ? kNoRecord : original - 1;
}

void RecordOrder::insert(RecordIndex record, RecordIndex anchor) {
  Link at;
  if (anchor != kNoRecord && anchor >= originals_) {
    at.anchor = link(anchor).anchor;
    at.after = anchor;
    at.before = link(anchor).before;
  } else {
    at.anchor = this->anchor(anchor);
    const auto chain = chains_.find(at.anchor);
    if (chain != chains_.end()) at.before = chain->second.last;
  }
  Chain& chain = chains_[at.anchor];
  if (at.before == kNoRecord) chain.first = record;
  if (at.after == kNoRecord) chain.last = record;
  links_.push_back(at);
  if (at.before != kNoRecord) link(at.before).after = record;
  if (at.after != kNoRecord) link(at.after).before = record;
}

}  // namespace kovra::dxf
