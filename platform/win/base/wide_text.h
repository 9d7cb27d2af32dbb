#pragma once

#include <string>
#include <string_view>

#include "platform/win/base/windows_types.h"

namespace kovra::win {

/// UTF-8 of a wide text and back. Bytes that aren't UTF-8 become U+FFFD each; so do surrogates.
std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view bytes);

/// UTF-16 code units (as resource files hold them) to a wide text.
std::wstring fromUtf16(const char16_t* units, std::size_t count);

/// The length of `text` cut down to at most `limit` bytes without splitting a character.
std::size_t utf8Cut(std::string_view text, std::size_t limit);

/// Character by character, without a language's rules beyond simple case folding.
int compareNoCase(std::wstring_view a, std::wstring_view b);
bool equalNoCase(std::wstring_view a, std::wstring_view b);
std::wstring upperCase(std::wstring_view text);
std::wstring lowerCase(std::wstring_view text);

}  // namespace kovra::win

inline constexpr UINT CP_ACP = 0;
inline constexpr UINT CP_THREAD_ACP = 3;
inline constexpr UINT CP_UTF8 = 65001;

/// Leading white space, a sign and ASCII digits; 0 without digits, saturated at INT_MIN and
/// INT_MAX.
int _wtoi(const wchar_t* text);
/// Leading white space and a decimal number with an optional exponent; what follows is ignored,
/// nothing readable gives 0. No infinity, no "nan", no hexadecimal.
double _wtof(const wchar_t* text);
double _wcstod(const wchar_t* text, wchar_t** end);
int _atoi(const char* text);

int lstrcmpiW(const wchar_t* a, const wchar_t* b);
int lstrcmpW(const wchar_t* a, const wchar_t* b);
int _wcsicmp(const wchar_t* a, const wchar_t* b);
int _wcsnicmp(const wchar_t* a, const wchar_t* b, std::size_t count);
int lstrlenW(const wchar_t* text);

/// The narrow texts are UTF-8, in which no byte leads a double-byte character.
int _ismbblead(unsigned int byte);

/// Conversions between UTF-8 (for every code page) and wide texts as the platform has them: a
/// length of -1 takes the text up to and with its null; a capacity of 0 asks for the length. 0 when
/// the capacity doesn't suffice.
int MultiByteToWideChar(UINT codePage, DWORD flags, const char* text, int length, wchar_t* wide,
                        int capacity);
int WideCharToMultiByte(UINT codePage, DWORD flags, const wchar_t* text, int length, char* bytes,
                        int capacity, const char* replacement, BOOL* replaced);
