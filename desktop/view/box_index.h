// Boxes by their place.
#pragma once
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "desktop/view/shapes.h"

namespace kovra::desktop {

/// An R-tree of numbered boxes.
class BoxIndex {
 public:
  using Entry = std::pair<Box, std::uint32_t>;

  BoxIndex();
  ~BoxIndex();
  BoxIndex(BoxIndex&& other) noexcept;
  BoxIndex& operator=(BoxIndex&& other) noexcept;

  /// Packs all of them anew.
  void build(const std::vector<Entry>& entries);
  void insert(const Entry& entry);
  void remove(const Entry& entry);
  /// Appends the numbers of the boxes that touch this one, in no special order.
  void find(const Box& box, std::vector<std::uint32_t>& found) const;

 private:
  class Tree;
  std::unique_ptr<Tree> tree_;
};

}  // namespace kovra::desktop
