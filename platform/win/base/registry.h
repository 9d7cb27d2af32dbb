#pragma once

#include "platform/win/base/windows_types.h"

/// Reading of the registry, which is a text file in the form of an exported one, named by
/// runSettings().registry. It is read anew whenever a key under HKEY_LOCAL_MACHINE is opened.

using REGSAM = DWORD;
inline constexpr REGSAM KEY_QUERY_VALUE = 0x0001;
inline constexpr REGSAM KEY_READ = 0x20019;

inline constexpr DWORD REG_NONE = 0;
inline constexpr DWORD REG_SZ = 1;
inline constexpr DWORD REG_EXPAND_SZ = 2;
inline constexpr DWORD REG_BINARY = 3;
inline constexpr DWORD REG_DWORD = 4;
inline constexpr DWORD REG_MULTI_SZ = 7;
inline constexpr DWORD REG_QWORD = 11;

inline const HKEY HKEY_CLASSES_ROOT = reinterpret_cast<HKEY>(std::uintptr_t{0x80000000});
inline const HKEY HKEY_CURRENT_USER = reinterpret_cast<HKEY>(std::uintptr_t{0x80000001});
inline const HKEY HKEY_LOCAL_MACHINE = reinterpret_cast<HKEY>(std::uintptr_t{0x80000002});

/// Case and a trailing backslash don't count. ERROR_FILE_NOT_FOUND when there is no such key or the
/// file can't be read. `key` is set only on success and closed with RegCloseKey.
LSTATUS RegOpenKeyExW(HKEY parent, LPCWSTR name, DWORD options, REGSAM rights, HKEY* key);

/// `size` holds the buffer's bytes and gets the value's; a null `data` asks for type and size only.
/// Texts are handed over as wide characters with their null. ERROR_MORE_DATA when the buffer is too
/// small (`size` then says what is needed), ERROR_FILE_NOT_FOUND when there is no such value.
LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, DWORD* reserved, DWORD* type, BYTE* data,
                         DWORD* size);

LSTATUS RegCloseKey(HKEY key);
