#pragma once

#include <cstdarg>
#include <string>

#include "platform/win/base/windows_types.h"

/// The platform's wide text class. Indexes are in characters; positions out of range are brought
/// into it where the platform does so, and never read beyond the text.
class CString {
 public:
  CString() = default;
  CString(LPCWSTR text);
  CString(LPCWSTR text, int length);
  CString(WCHAR character, int count = 1);
  /// A narrow text is UTF-8.
  explicit CString(const char* utf8);

  CString& operator=(LPCWSTR text);
  CString& operator=(WCHAR character);

  operator LPCWSTR() const { return text_.c_str(); }
  LPCWSTR GetString() const { return text_.c_str(); }

  int GetLength() const { return static_cast<int>(text_.size()); }
  bool IsEmpty() const { return text_.empty(); }
  void Empty() { text_.clear(); }
  WCHAR GetAt(int index) const;
  WCHAR operator[](int index) const { return GetAt(index); }
  void SetAt(int index, WCHAR character);

  CString& operator+=(const CString& other);
  CString& operator+=(LPCWSTR other);
  CString& operator+=(WCHAR other);
  void Append(LPCWSTR other) { *this += other; }
  void AppendChar(WCHAR other) { *this += other; }

  CString Mid(int first) const;
  CString Mid(int first, int count) const;
  CString Left(int count) const;
  CString Right(int count) const;
  /// The longest beginning of characters that are in the set, or aren't.
  CString SpanIncluding(LPCWSTR set) const;
  CString SpanExcluding(LPCWSTR set) const;

  int Find(WCHAR character, int start = 0) const;
  int Find(LPCWSTR text, int start = 0) const;
  int ReverseFind(WCHAR character) const;
  int FindOneOf(LPCWSTR set) const;

  int Insert(int index, LPCWSTR text);
  int Insert(int index, WCHAR character);
  int Delete(int index, int count = 1);
  /// Gives the number of places that were replaced or removed.
  int Replace(WCHAR old, WCHAR replacement);
  int Replace(LPCWSTR old, LPCWSTR replacement);
  int Remove(WCHAR character);

  CString& MakeUpper();
  CString& MakeLower();
  CString& MakeReverse();
  CString& Trim();
  CString& Trim(WCHAR character);
  CString& Trim(LPCWSTR set);
  CString& TrimLeft();
  CString& TrimLeft(WCHAR character);
  CString& TrimLeft(LPCWSTR set);
  CString& TrimRight();
  CString& TrimRight(WCHAR character);
  CString& TrimRight(LPCWSTR set);

  /// The next piece between characters of `set`, empty pieces skipped; `start` moves behind it and
  /// becomes -1 when there is none.
  CString Tokenize(LPCWSTR set, int& start) const;

  int Compare(LPCWSTR other) const;
  int CompareNoCase(LPCWSTR other) const;
  int Collate(LPCWSTR other) const { return Compare(other); }

  /// printf by the rules of the platform's wide formats: %s is wide text.
  void Format(LPCWSTR format, ...);
  void Format(UINT formatId, ...);
  void FormatV(LPCWSTR format, std::va_list arguments);
  void AppendFormat(LPCWSTR format, ...);
  /// Numbered arguments: %1, %2!d!.
  void FormatMessage(LPCWSTR format, ...);
  void FormatMessage(UINT formatId, ...);

  /// The string of the resource chain, or of a module; false, and an empty text, if there is none.
  BOOL LoadString(UINT id);
  BOOL LoadString(HINSTANCE module, UINT id);

  /// Room for at least `capacity` characters and a null; ends with ReleaseBuffer.
  LPWSTR GetBuffer(int capacity = 0);
  LPWSTR GetBufferSetLength(int length);
  /// The length of the text now in the buffer; -1: up to its null.
  void ReleaseBuffer(int length = -1);
  void Preallocate(int capacity) { text_.reserve(static_cast<std::size_t>(capacity)); }
  void FreeExtra() { text_.shrink_to_fit(); }

 private:
  explicit CString(std::wstring text) : text_(std::move(text)) {}

  std::wstring text_;
};

CString operator+(const CString& a, const CString& b);
CString operator+(const CString& a, LPCWSTR b);
CString operator+(LPCWSTR a, const CString& b);
CString operator+(const CString& a, WCHAR b);
CString operator+(WCHAR a, const CString& b);

inline bool operator==(const CString& a, const CString& b) {
  return a.Compare(b) == 0;
}
inline bool operator==(const CString& a, LPCWSTR b) {
  return a.Compare(b) == 0;
}
inline bool operator==(LPCWSTR a, const CString& b) {
  return b.Compare(a) == 0;
}
inline bool operator!=(const CString& a, const CString& b) {
  return a.Compare(b) != 0;
}
inline bool operator!=(const CString& a, LPCWSTR b) {
  return a.Compare(b) != 0;
}
inline bool operator!=(LPCWSTR a, const CString& b) {
  return b.Compare(a) != 0;
}
inline bool operator<(const CString& a, const CString& b) {
  return a.Compare(b) < 0;
}

/// The string of the resource chain with %1, %2 replaced.
void AfxFormatString1(CString& result, UINT id, LPCWSTR first);
void AfxFormatString2(CString& result, UINT id, LPCWSTR first, LPCWSTR second);
