#include "platform/arx/database/id_mapping.h"

bool AcDbIdMapping::assign(const AcDbIdPair& pair) {
  if (!places_.try_emplace(pair.key(), pairs_.size()).second) return false;
  pairs_.push_back(pair);
  return true;
}

bool AcDbIdMapping::compute(AcDbIdPair& pair) const {
  const auto found = places_.find(pair.key());
  if (found == places_.end()) return false;
  pair = pairs_[found->second];
  return true;
}

bool AcDbIdMappingIter::next() {
  if (!done()) ++at_;
  return !done();
}

bool AcDbIdMappingIter::getMap(AcDbIdPair& pair) const {
  if (done()) return false;
  pair = mapping_.pairs_[at_];
  return true;
}
