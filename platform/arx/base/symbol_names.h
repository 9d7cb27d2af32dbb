#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kovra::arx {

/// Whether a table record may be called so: 1 to 255 characters, none of <>/\":;?*|,=` and no
/// control character, no blank at either end.
bool isSymbolName(std::wstring_view name);
/// A list of names between commas; empty pieces are dropped.
std::vector<std::wstring> splitNames(std::wstring_view list);

}  // namespace kovra::arx
