#pragma once

#include <vector>

#include "module/drawing/selection_set.h"

namespace kovra {

/// Copies that lie far off the drawing until the user has shown their place. Unless they are placed
/// they are removed at the end of the scope, whatever ends it and also on locked layers.
class HiddenCopies {
 public:
  HiddenCopies() = default;
  ~HiddenCopies();
  HiddenCopies(const HiddenCopies&) = delete;
  HiddenCopies& operator=(const HiddenCopies&) = delete;

  /// Makes room for `count` copies. False when the editor can't make a selection set.
  bool open(int count);
  /// Takes charge of a copy. One that the selection set doesn't take is removed at once.
  void add(const ads_name copy);

  /// Moves all of them with the platform's command. False, with the copies still hidden, when the
  /// command can't do it.
  bool move(const ads_point from, const ads_point to);

  const SelectionSet& set() const { return set_; }
  /// Hands over the copies once they lie in their place.
  SelectionSet release();

 private:
  struct Name {
    ads_name entity;
  };

  SelectionSet set_;
  std::vector<Name> copies_;
};

}  // namespace kovra
