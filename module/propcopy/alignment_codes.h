#pragma once

#include <string_view>

namespace kovra {

/// Modes of a text, in the numbers of group codes 72 and 73 (an attribute's 74): horizontal 0 left,
/// 1 center, 2 right, 3 aligned, 4 middle, 5 fit; vertical 0 base line, 1 bottom, 2 middle, 3 top.
struct CodeModes {
  int vertical;
  int horizontal;  ///< kKeepHorizontal: the text's own stays
  bool operator==(const CodeModes&) const = default;
};

inline constexpr int kKeepHorizontal = -1;

/// Modes that an alignment code sets; case doesn't matter. A text that is no code stands for left
/// on the base line.
CodeModes alignmentModes(std::wstring_view code);

/// The code of an attachment by its place in the combo boxes; empty for a number that is none.
std::wstring_view AlignmentCode(int attachIndex);

/// What fixes a text in the drawing.
enum class Anchor {
  position,  ///< its insertion point: left, aligned and fit texts on the base line
  point      ///< its alignment point: all others
};

/// The property copy's own rule; aligned and fit texts count as anchored at their position.
Anchor anchorOf(const CodeModes& modes);

}  // namespace kovra
