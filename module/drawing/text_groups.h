#pragma once

#include "module/frame/seam.h"

/// What stands where in the list of a text, an attribute or an attribute definition.
namespace kovra {

inline constexpr int kTypeGroup = 0;
inline constexpr int kStyleGroup = 7;
inline constexpr int kLayerGroup = 8;
inline constexpr int kPositionGroup = 10;
inline constexpr int kAlignmentPointGroup = 11;
inline constexpr int kHeightGroup = 40;
inline constexpr int kWidthFactorGroup = 41;
inline constexpr int kRotationGroup = 50;  ///< radians in a list
inline constexpr int kHorizontalGroup = 72;
inline constexpr int kTextVerticalGroup = 73;
inline constexpr int kAttributeVerticalGroup = 74;

enum class TextKind { other, text, attribute, definition };

/// What the list is that of; `other` also for a list that is null or doesn't say.
TextKind TextKindOf(resbuf* list);

/// Groups 72 and 73, of attributes 72 and 74; 0 stands for a missing group.
struct TextModes {
  int horizontal = 0;
  int vertical = 0;
};
TextModes TextModesOf(resbuf* list, TextKind kind);

/// Index of the attachment that a list of attachments shows for the text: the first for an aligned
/// or fitted one; -1 for modes that stand for nothing.
int ShownAttachIndex(resbuf* list, TextKind kind);

/// Degrees of a rotation in radians from 0 to a full turn; those above a half turn are negative.
double SignedDegrees(double radians);

}  // namespace kovra
