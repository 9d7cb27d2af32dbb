// What became of each object in a deep clone.
#pragma once
#include <cstddef>
#include <unordered_map>
#include <vector>

#include "platform/arx/database/object_id.h"

/// An object and its clone.
class AcDbIdPair {
 public:
  AcDbIdPair() = default;
  AcDbIdPair(const AcDbObjectId& key, const AcDbObjectId& value, bool isCloned,
             bool isPrimary = false, bool isOwnerXlated = true)
      : key_(key),
        value_(value),
        isCloned_(isCloned),
        isPrimary_(isPrimary),
        isOwnerXlated_(isOwnerXlated) {}

  AcDbObjectId key() const { return key_; }
  AcDbObjectId value() const { return value_; }
  /// The value is a clone of the key; false for what references are merely led to.
  bool isCloned() const { return isCloned_; }
  /// The caller asked for this object.
  bool isPrimary() const { return isPrimary_; }
  /// The clone's owner is the one that it is to have.
  bool isOwnerXlated() const { return isOwnerXlated_; }
  void setKey(const AcDbObjectId& key) { key_ = key; }
  void setValue(const AcDbObjectId& value) { value_ = value; }

 private:
  AcDbObjectId key_;
  AcDbObjectId value_;
  bool isCloned_ = false;
  bool isPrimary_ = false;
  bool isOwnerXlated_ = true;
};

/// The pairs of a deep clone: those of the objects that were asked for, in the order asked. What
/// these own is copied along and isn't listed, so that every pair is one that the caller knows.
class AcDbIdMapping {
 public:
  /// Adds a pair. False when its key is mapped already.
  bool assign(const AcDbIdPair& pair);
  /// Fills the pair of its key. False for a key that isn't mapped.
  bool compute(AcDbIdPair& pair) const;

 private:
  friend class AcDbIdMappingIter;

  std::vector<AcDbIdPair> pairs_;
  std::unordered_map<AcDbObjectId, std::size_t> places_;
};

/// Walks a mapping, which must outlive it, from its first pair.
class AcDbIdMappingIter {
 public:
  explicit AcDbIdMappingIter(const AcDbIdMapping& mapping) : mapping_(mapping) {}
  void start() { at_ = 0; }
  bool done() const { return at_ >= mapping_.pairs_.size(); }
  /// True while there is a pair at hand.
  bool next();
  /// False behind the last pair.
  bool getMap(AcDbIdPair& pair) const;

 private:
  const AcDbIdMapping& mapping_;
  std::size_t at_ = 0;
};
