#include <clocale>
#include <cwctype>
#include <string>

#include <locale.h>

#include "platform/dxf/text_codec.h"

namespace kovra::dxf {

namespace {

/// The C library's own Unicode locale: names fold the same on every machine.
locale_t unicodeLocale() {
  static const locale_t locale = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{});
  return locale;
}

wchar_t folded(wchar_t c) {
  if (c < 0x80) return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 0x20) : c;
  const locale_t locale = unicodeLocale();
  if (locale == locale_t{}) return c;
  // By way of the capital, so that letters with two small forms meet.
  const wint_t upper = ::towupper_l(static_cast<wint_t>(c), locale);
  return static_cast<wchar_t>(::towlower_l(upper, locale));
}

}  // namespace

std::wstring foldCase(std::wstring_view name) {
  std::wstring out(name);
  for (wchar_t& c : out) c = folded(c);
  return out;
}

bool equalNames(std::wstring_view left, std::wstring_view right) {
  if (left.size() != right.size()) return false;
  for (std::size_t n = 0; n < left.size(); ++n) {
    if (left[n] != right[n] && folded(left[n]) != folded(right[n])) return false;
  }
  return true;
}

std::wstring decodeCarets(std::wstring_view text) {
  std::wstring out;
  out.reserve(text.size());
  for (std::size_t n = 0; n < text.size(); ++n) {
    const wchar_t next = text[n] == L'^' && n + 1 < text.size() ? text[n + 1] : L'\0';
    if (next == L' ') {
      out.push_back(L'^');
      ++n;
    } else if (next >= L'@' && next <= L'_') {
      out.push_back(static_cast<wchar_t>(next - L'@'));
      ++n;
    } else {
      out.push_back(text[n]);
    }
  }
  return out;
}

std::wstring encodeCarets(std::wstring_view text) {
  std::wstring out;
  out.reserve(text.size());
  for (const wchar_t c : text) {
    if (c < L' ') {
      out.push_back(L'^');
      out.push_back(static_cast<wchar_t>(c + L'@'));
    } else if (c == L'^') {
      out.append(L"^ ");
    } else {
      out.push_back(c);
    }
  }
  return out;
}

}  // namespace kovra::dxf
