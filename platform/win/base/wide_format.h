#pragma once

#include <cstdarg>
#include <cstdint>
#include <optional>
#include <string>

namespace kovra::win {

/// printf into a wide text, by the platform's rules: %s is wide text, %S and %hs narrow UTF-8, %c a
/// wide and %C a narrow character; `l` before an integer is 32 bits wide, `ll` and `I64` are 64;
/// a null text shows as "(null)". Width and precision count characters. %n writes nothing.
std::wstring formatWide(const wchar_t* format, ...);
std::wstring formatWideV(const wchar_t* format, std::va_list arguments);

/// The numbered form of the platform's message formats: %1 to %99 with an optional printf format
/// between exclamation marks ("%1!d!", without one text), %n a line break, %t a tab, %0 the end of
/// the text; any other character behind a percent sign stands for itself. Line breaks come out as
/// CR LF. Arguments are taken as the first use of each number says.
std::wstring formatNumberedV(const wchar_t* format, std::va_list arguments);
/// The same from an array with a word for each argument. Nothing without a format, or when the
/// format has inserts and there is no array.
std::optional<std::wstring> formatNumbered(const wchar_t* format, const std::uintptr_t* arguments);

/// formatWide into a buffer of `capacity` characters, cut at its end and always ended by a null.
/// Gives the length written, -1 when the text was cut.
int formatWideInto(wchar_t* buffer, std::size_t capacity, const wchar_t* format, ...);

}  // namespace kovra::win
