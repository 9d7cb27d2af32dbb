#pragma once

#include <unordered_map>
#include <vector>

#include "platform/dxf/record_kind.h"

namespace kovra::dxf {

/// Where inserted records stand. The file's own records are in the order of their indexes; inserted
/// ones, whose indexes lie above, form chains in front of the file's records.
class RecordOrder {
 public:
  explicit RecordOrder(RecordIndex originals) : originals_(originals) {}

  RecordIndex first() const { return enter(0); }
  RecordIndex next(RecordIndex record) const;
  /// The record before; for kNoRecord the last one.
  RecordIndex previous(RecordIndex record) const;
  /// The file's record that an inserted one stands before, the number of the file's records for the
  /// end; of a record of the file itself.
  RecordIndex anchor(RecordIndex record) const {
    if (record == kNoRecord) return originals_;
    return record < originals_ ? record : link(record).anchor;
  }
  /// Puts the next new record before `anchor` (kNoRecord: at the end). `record` must be the number
  /// of originals and insertions so far.
  void insert(RecordIndex record, RecordIndex anchor);

 private:
  struct Link {
    RecordIndex anchor = 0;  ///< the file's record behind the chain; the number of them for the end
    RecordIndex before = kNoRecord;
    RecordIndex after = kNoRecord;
  };
  struct Chain {
    RecordIndex first = kNoRecord;
    RecordIndex last = kNoRecord;
  };

  Link& link(RecordIndex record) { return links_[record - originals_]; }
  const Link& link(RecordIndex record) const { return links_[record - originals_]; }
  /// The chain in front of an original, if it has one, else the original itself.
  RecordIndex enter(RecordIndex original) const;

  RecordIndex originals_;
  std::vector<Link> links_;
  std::unordered_map<RecordIndex, Chain> chains_;
};

}  // namespace kovra::dxf
