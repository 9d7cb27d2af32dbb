#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// A number as the user wrote it, with its value.
class NumberText {
 public:
  explicit NumberText(const ACHAR* text) { set(text); }

  /// Keeps the text, with the value that it begins with; 0 for a text that is no number. Null gives
  /// an empty text.
  void set(const ACHAR* text);
  /// Keeps the number; the text has as many places as the drawing's LUPREC.
  void set(double value);
  /// Keeps both as they are, for a number whose text is in another unit.
  void set(double value, const CString& text);

  const CString& text() const { return text_; }
  double value() const { return value_; }

 private:
  CString text_;
  double value_ = 0;
};

/// Bits of TextPropertySet::Mask. Bit 2, the text style, is kept in stored sets; nothing applies
/// it.
inline constexpr unsigned kLayerBit = 1;
inline constexpr unsigned kHeightBit = 4;
inline constexpr unsigned kWidthFactorBit = 8;
inline constexpr unsigned kRotationBit = 16;
inline constexpr unsigned kAlignmentBit = 32;

/// Properties that are given to texts, and which of them are.
struct TextPropertySet {
  unsigned Mask = 0;
  CString Layer = L"0";
  CString TextStyle = L"Standard";
  NumberText Height{L"2.5"};
  NumberText WidthFactor{L"1.0"};
  NumberText Rotation{L"0"};  ///< the text in degrees
  int HorizontalMode = 0;     ///< 0, 1, 2 or 4
  int VerticalMode = 0;       ///< 0 to 3
  bool RefScale = true;       ///< the height counts times the drawing's dimension scale

  bool has(unsigned bit) const { return (Mask & bit) != 0; }

  /// Aligned, fit and numbers that are no mode are passed over.
  void takeHorizontalMode(int mode);
  /// Numbers that are no mode are passed over.
  void takeVerticalMode(int mode);
};

}  // namespace kovra
