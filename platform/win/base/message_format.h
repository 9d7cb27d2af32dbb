// Messages with numbered inserts.
#pragma once

#include <cstdarg>

#include "platform/win/base/windows_types.h"

inline constexpr DWORD FORMAT_MESSAGE_FROM_STRING = 0x0400;
inline constexpr DWORD FORMAT_MESSAGE_ARGUMENT_ARRAY = 0x2000;

/// Writes the message that `source` is the format of (formatNumberedV) into `buffer`.
/// @param flags FORMAT_MESSAGE_FROM_STRING; with FORMAT_MESSAGE_ARGUMENT_ARRAY `arguments` is an
///        array of DWORD_PTR, else the address of a va_list. Others aren't supported.
/// @param capacity of the buffer in characters, with the null that ends the text
/// @return the characters written without the null; 0, with the buffer left alone, when the text
///         doesn't fit or an argument is null
DWORD FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD languageId, LPWSTR buffer,
                     DWORD capacity, std::va_list* arguments);
