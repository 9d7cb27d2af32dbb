#pragma once
#include <QString>
#include <string_view>

namespace kovra::desktop {

/// A position in a text of the windows in memory, as one of a native widget. There a line break is
/// two characters, natively one; a character beyond the first plane is one there, natively two.
int nativePosition(std::wstring_view text, std::size_t position);
/// The way back; what lies behind the text is its end.
int positionInMemory(std::wstring_view text, int native);
/// The text with native line breaks.
QString nativeText(std::wstring_view text);

}  // namespace kovra::desktop
