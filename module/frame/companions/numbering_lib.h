#pragma once

#include <memory>

/// A number inside a text, counted up and down in a numbering system. The number is the last run of
/// digits of the radix in the text; what stands before and after it stays. It may be of any length.
///
/// Codes: 8, 10 and 16 are those bases. 26 counts as column names do (A to Z, AA to ZZ ..., no
/// zero), 24 the same without I and O. 80 and 160 are addresses of a word in decimal and a bit,
/// which is the last digit, octal (80) or hexadecimal (160); 11856 and 11936 are the same with the
/// bit, one digit, behind a ".". Other codes parse nothing.
///
/// Texts that it gives belong to it and stay valid until its next operation.
class RadixNumber {
 public:
  explicit RadixNumber(int radixCode);
  ~RadixNumber();
  RadixNumber(const RadixNumber&) = delete;
  RadixNumber& operator=(const RadixNumber&) = delete;

  /// Changes the radix and keeps the value, which is then spelled without leading zeros.
  void SetRadix(int radixCode);

  /// Reads the text from `first` on, at most `length` characters (-1: to its end). False when there
  /// is no number of the radix; the counter is then empty.
  bool Parse(const wchar_t* text, int first, int length);

  /// Counts up by a count above 0. Leading zeros are used up before the number becomes longer. New
  /// letters follow the case of those that were there; upper case if there were none.
  void Step(int count);
  /// Counts down by a count above 0. False, with nothing changed, below the first value of the
  /// radix.
  bool StepBack(int count);

  /// The number alone, with the leading zeros of the parsed text; "" for an empty counter. Column
  /// names have no zero: a value of 0 that SetRadix brings there is "".
  const wchar_t* Text() const;
  /// Takes this spelling of the number as its form, so that Result isn't padded to the former
  /// width.
  void SetFormat(const wchar_t* digits);
  /// The whole text with the new number in it; null when the counter holds no valid value.
  const wchar_t* Result() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};
