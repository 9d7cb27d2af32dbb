#pragma once

#include <span>
#include <string>

#include "platform/win/base/windows_types.h"

namespace kovra::win {

/// Types of resources by their numbers.
enum class ResourceType : unsigned { icon = 3, dialog = 5, string = 6, groupIcon = 14 };

/// The bytes of a resource of a module, valid as long as it is loaded; empty if it has none.
std::span<const std::byte> findResource(HMODULE module, ResourceType type, unsigned id);

/// A string of the module's table; false if it has none. An empty string is none.
bool findString(HMODULE module, unsigned id, std::wstring& text);

}  // namespace kovra::win

/// The text cut to `capacity` - 1 characters and a null; gives its length, 0 if there is none (the
/// buffer is then empty). With a capacity of 0 `buffer` is a pointer that receives the address of
/// the text, which stays valid until the next such call.
int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int capacity);
