#pragma once

#include <array>

/// The three numberings of text attachments. The index is the place in every attachment combo box
/// (strings 2809 to 2821, and 2119 to 2131); the code is 1 to 9 for the nine positions of a box, 10
/// to 12 for those on the base line, 13 aligned, 14 middle, 15 fit; the mode pair is what a text
/// holds (groups 72 and 73).
namespace kovra {

inline constexpr int kAttachments = 13;

/// Attachment code by index.
inline constexpr std::array<int, kAttachments> AttachCodes = {10, 11, 12, 14, 1, 2, 3,
                                                              4,  5,  6,  7,  8, 9};

/// Index of an attachment code; -1 for a code that no combo box offers: aligned, fit, no code.
int AttachIndex(int code);

/// @return 0; -1 for a number that is no index, with both modes 0
int AttachIndexToModes(int index, int& horizontal, int& vertical);

/// The reverse; -1 for modes that no index has: aligned, fit, middle beside a row of the box.
int ModesToAttachIndex(int horizontal, int vertical);

/// The same for a combo box that is to show something: the modes beside a row of the box (middle)
/// go on counting as if the rows did. -1 for aligned, fit, and what lies behind the last index.
int NearestAttachIndex(int horizontal, int vertical);

/// @return the code; -1 for a number that is no horizontal mode, -2 for one that is no vertical
/// mode
int ModesToAttachCode(int horizontal, int vertical);

/// Whether the insertion point fixes a text of these modes: left on the base line, aligned and fit.
/// All others hang on their alignment point.
bool IsPlacedByPosition(int horizontal, int vertical);

}  // namespace kovra
