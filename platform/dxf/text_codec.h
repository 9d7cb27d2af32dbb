#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/dxf/dialect.h"

namespace kovra::dxf {

/// Converts the texts of one drawing between the bytes of the file and wide text.
///
/// Files from AC1021 on are UTF-8, older ones in $DWGCODEPAGE; a page that is unknown or missing
/// counts as Latin-1, so that nothing is lost. \U+XXXX and \M+NXXXX (N 1 to 5 is code page 932,
/// 950, 949, 1361, 936) are read, \U+XXXX is written for what the page can't hold (two for
/// characters beyond U+FFFF).
///
/// A byte b that doesn't decode is read as the lone surrogate U+DC00 + b and written as the byte
/// again, so encode(decode(bytes)) keeps such bytes.
///
/// Never to be used on group 0 values. Not safe to share between threads.
class TextCodec {
 public:
  explicit TextCodec(const Dialect& dialect);
  ~TextCodec();
  TextCodec(TextCodec&&) noexcept;
  TextCodec& operator=(TextCodec&&) noexcept;

  std::wstring decode(std::string_view bytes) const;
  /// The same into storage that the caller reuses.
  void decode(std::string_view bytes, std::wstring& out) const;
  /// Line breaks can't stand in a value: CR and LF are written as "^M" and "^J".
  std::string encode(std::wstring_view text) const;

  /// True if both values read as the same text.
  bool sameText(std::string_view left, std::string_view right) const;

 private:
  class Page;
  std::unique_ptr<Page> page_;
};

/// True for bytes that read the same in every encoding: ASCII in which no escape can begin.
bool isPlainText(std::string_view bytes);

/// Reads caret sequences: "^J" is a line feed, "^I" a tab, "^ " a caret, "^M" a carriage return; in
/// general "^" and a character from "@" to "_" is the control character. Texts of TEXT, ATTRIB and
/// ATTDEF have them.
std::wstring decodeCarets(std::wstring_view text);

/// Writes control characters as caret sequences and "^" as "^ ".
std::wstring encodeCarets(std::wstring_view text);

/// Folds the case of a name for comparison, without regard to the program's locale.
std::wstring foldCase(std::wstring_view name);

/// True if two names are equal without regard to case.
bool equalNames(std::wstring_view left, std::wstring_view right);

}  // namespace kovra::dxf
