#include "platform/mfc/cstring.h"

#include <algorithm>
#include <cwchar>
#include <string_view>

#include "platform/mfc/extension_module.h"
#include "platform/win/base/wide_format.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/resources/resources.h"

namespace {

// White space of the platform's iswspace as far as users type it: the full-width blank, too.
constexpr LPCWSTR kBlanks = L" \t\n\v\f\r\x3000";

std::wstring_view viewOf(LPCWSTR text) {
  return text != nullptr ? std::wstring_view(text) : std::wstring_view();
}

int indexOf(std::size_t position) {
  return position == std::wstring::npos ? -1 : static_cast<int>(position);
}

/// A place brought into 0 to `end`.
std::size_t within(int place, std::size_t end) {
  return place < 0 ? 0 : std::min(static_cast<std::size_t>(place), end);
}

}  // namespace

CString::CString(LPCWSTR text) : text_(viewOf(text)) {}
CString::CString(LPCWSTR text, int length) {
  if (text != nullptr && length > 0) text_.assign(text, static_cast<std::size_t>(length));
}
CString::CString(WCHAR character, int count)
    : text_(count > 0 ? static_cast<std::size_t>(count) : 0, character) {}
CString::CString(const char* utf8) : text_(utf8 != nullptr ? kovra::win::fromUtf8(utf8) : L"") {}

CString& CString::operator=(LPCWSTR text) {
  text_ = std::wstring(viewOf(text));  // `text` may lie in this very string
  return *this;
}

CString& CString::operator=(WCHAR character) {
  text_.assign(1, character);
  return *this;
}

WCHAR CString::GetAt(int index) const {
  const bool inside = index >= 0 && static_cast<std::size_t>(index) < text_.size();
  return inside ? text_[static_cast<std::size_t>(index)] : WCHAR{0};
}

void CString::SetAt(int index, WCHAR character) {
  if (index >= 0 && index < GetLength()) text_[static_cast<std::size_t>(index)] = character;
}

CString& CString::operator+=(const CString& other) {
  text_ += other.text_;
  return *this;
}
CString& CString::operator+=(LPCWSTR other) {
  text_ += std::wstring(viewOf(other));
  return *this;
}
CString& CString::operator+=(WCHAR other) {
  text_ += other;
  return *this;
}

CString CString::Mid(int first) const {
  return CString(text_.substr(within(first, text_.size())));
}
CString CString::Mid(int first, int count) const {
  if (count <= 0) return {};
  return CString(text_.substr(within(first, text_.size()), static_cast<std::size_t>(count)));
}
CString CString::Left(int count) const {
  return CString(text_.substr(0, within(count, text_.size())));
}
CString CString::Right(int count) const {
  return CString(text_.substr(text_.size() - within(count, text_.size())));
}
CString CString::SpanIncluding(LPCWSTR set) const {
  return CString(text_.substr(0, text_.find_first_not_of(viewOf(set))));
}
CString CString::SpanExcluding(LPCWSTR set) const {
  return CString(text_.substr(0, text_.find_first_of(viewOf(set))));
}

int CString::Find(WCHAR character, int start) const {
  return indexOf(text_.find(character, within(start, text_.size())));
}
int CString::Find(LPCWSTR text, int start) const {
  return indexOf(text_.find(viewOf(text), within(start, text_.size())));
}
int CString::ReverseFind(WCHAR character) const {
  return indexOf(text_.rfind(character));
}
int CString::FindOneOf(LPCWSTR set) const {
  return indexOf(text_.find_first_of(viewOf(set)));
}

int CString::Insert(int index, LPCWSTR text) {
  text_.insert(within(index, text_.size()), std::wstring(viewOf(text)));
  return GetLength();
}
int CString::Insert(int index, WCHAR character) {
  text_.insert(within(index, text_.size()), 1, character);
  return GetLength();
}
int CString::Delete(int index, int count) {
  if (count > 0) text_.erase(within(index, text_.size()), static_cast<std::size_t>(count));
  return GetLength();
}

int CString::Replace(WCHAR old, WCHAR replacement) {
  const auto count = std::count(text_.begin(), text_.end(), old);
  std::replace(text_.begin(), text_.end(), old, replacement);
  return static_cast<int>(count);
}
int CString::Replace(LPCWSTR old, LPCWSTR replacement) {
  const std::wstring wanted(viewOf(old));
  const std::wstring with(viewOf(replacement));
  if (wanted.empty()) return 0;
  int count = 0;
  for (std::size_t at = 0; (at = text_.find(wanted, at)) != std::wstring::npos; ++count) {
    text_.replace(at, wanted.size(), with);
    at += with.size();
  }
  return count;
}
int CString::Remove(WCHAR character) {
  return static_cast<int>(std::erase(text_, character));
}

CString& CString::MakeUpper() {
  text_ = kovra::win::upperCase(text_);
  return *this;
}
CString& CString::MakeLower() {
  text_ = kovra::win::lowerCase(text_);
  return *this;
}
CString& CString::MakeReverse() {
  std::reverse(text_.begin(), text_.end());
  return *this;
}

CString& CString::Trim() {
  return Trim(kBlanks);
}
CString& CString::Trim(WCHAR character) {
  return TrimRight(character).TrimLeft(character);
}
CString& CString::Trim(LPCWSTR set) {
  return TrimRight(set).TrimLeft(set);
}
CString& CString::TrimLeft() {
  return TrimLeft(kBlanks);
}
CString& CString::TrimLeft(WCHAR character) {
  text_.erase(0, std::min(text_.find_first_not_of(character), text_.size()));
  return *this;
}
CString& CString::TrimLeft(LPCWSTR set) {
  text_.erase(0, std::min(text_.find_first_not_of(viewOf(set)), text_.size()));
  return *this;
}
CString& CString::TrimRight() {
  return TrimRight(kBlanks);
}
CString& CString::TrimRight(WCHAR character) {
  text_.erase(text_.find_last_not_of(character) + 1);
  return *this;
}
CString& CString::TrimRight(LPCWSTR set) {
  text_.erase(text_.find_last_not_of(viewOf(set)) + 1);
  return *this;
}

CString CString::Tokenize(LPCWSTR set, int& start) const {
  if (start < 0) return {};
  const auto first = text_.find_first_not_of(viewOf(set), static_cast<std::size_t>(start));
  if (first == std::wstring::npos) {
    start = -1;
    return {};
  }
  const auto end = std::min(text_.find_first_of(viewOf(set), first), text_.size());
  start = static_cast<int>(end) + 1;
  return CString(text_.substr(first, end - first));
}

int CString::Compare(LPCWSTR other) const {
  return lstrcmpW(text_.c_str(), other);
}
int CString::CompareNoCase(LPCWSTR other) const {
  return lstrcmpiW(text_.c_str(), other);
}

void CString::FormatV(LPCWSTR format, std::va_list arguments) {
  text_ = kovra::win::formatWideV(format, arguments);
}

void CString::Format(LPCWSTR format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  FormatV(format, arguments);
  va_end(arguments);
}

void CString::Format(UINT formatId, ...) {
  CString format;
  format.LoadString(formatId);
  std::va_list arguments;
  va_start(arguments, formatId);
  FormatV(format, arguments);
  va_end(arguments);
}

void CString::AppendFormat(LPCWSTR format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  text_ += kovra::win::formatWideV(format, arguments);
  va_end(arguments);
}

void CString::FormatMessage(LPCWSTR format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  text_ = kovra::win::formatNumberedV(format, arguments);
  va_end(arguments);
}

void CString::FormatMessage(UINT formatId, ...) {
  CString format;
  format.LoadString(formatId);
  std::va_list arguments;
  va_start(arguments, formatId);
  text_ = kovra::win::formatNumberedV(format, arguments);
  va_end(arguments);
}

BOOL CString::LoadString(UINT id) {
  return LoadString(AfxFindStringHandle(id), id);
}

BOOL CString::LoadString(HINSTANCE module, UINT id) {
  return kovra::win::findString(module, id, text_) ? TRUE : FALSE;
}

LPWSTR CString::GetBuffer(int capacity) {
  const std::size_t length = std::wcslen(text_.c_str());
  text_.resize(std::max(text_.size(), within(capacity, text_.max_size())));
  // Where the former text ended its null stays, so that ReleaseBuffer without a length finds it.
  std::fill(text_.begin() + static_cast<std::ptrdiff_t>(length), text_.end(), WCHAR{0});
  return text_.data();
}

LPWSTR CString::GetBufferSetLength(int length) {
  text_.resize(within(length, text_.max_size()));
  return text_.data();
}

void CString::ReleaseBuffer(int length) {
  text_.resize(length < 0 ? std::wcslen(text_.c_str()) : within(length, text_.size()));
}

CString operator+(const CString& a, const CString& b) {
  return CString(a) += b;
}
CString operator+(const CString& a, LPCWSTR b) {
  return CString(a) += b;
}
CString operator+(LPCWSTR a, const CString& b) {
  return CString(a) += b;
}
CString operator+(const CString& a, WCHAR b) {
  return CString(a) += b;
}
CString operator+(WCHAR a, const CString& b) {
  return CString(a) += b;
}

void AfxFormatString1(CString& result, UINT id, LPCWSTR first) {
  result.FormatMessage(id, first);
}

void AfxFormatString2(CString& result, UINT id, LPCWSTR first, LPCWSTR second) {
  result.FormatMessage(id, first, second);
}
