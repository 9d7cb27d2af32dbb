#pragma once

#include <string_view>

namespace kovra {

/// Modes of a text, in the numbers of group codes 72 and 73 (an attribute's 74): horizontal 0 left,
/// 1 center, 2 right, 3 aligned, 4 middle, 5 fit; vertical 0 base line, 1 bottom, 2 middle, 3 top.
struct TextModes {
  int vertical;
  int horizontal;  ///< kKeepHorizontal: the text's own stays
  bool operator==(const TextModes&) const = default;
};

inline constexpr int kKeepHorizontal = -1;

/// Modes that an alignment code sets; case doesn't matter. A text that is no code stands for left
/// on the base line.
TextModes alignmentModes(std::wstring_view code);

/// What fixes a text in the drawing.
enum class Anchor {
  position,  ///< its insertion point: left, aligned and fit texts on the base line
  point      ///< its alignment point: all others
};

/// The property copy's own rule; aligned and fit texts count as anchored at their position.
Anchor anchorOf(const TextModes& modes);

}  // namespace kovra
