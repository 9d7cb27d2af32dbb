#include "desktop/mirror/text_positions.h"

#include "desktop/loop/texts.h"

namespace kovra::desktop {
namespace {

int nativeLength(wchar_t character) {
  constexpr wchar_t kFirstPlane = 0xFFFF;
  if (character == L'\r') return 0;
  return character > kFirstPlane ? 2 : 1;
}

}  // namespace

int nativePosition(std::wstring_view text, std::size_t position) {
  int native = 0;
  for (const wchar_t character : text.substr(0, position)) native += nativeLength(character);
  return native;
}

int positionInMemory(std::wstring_view text, int native) {
  std::size_t position = 0;
  for (int passed = 0; position < text.size(); ++position) {
    passed += nativeLength(text[position]);
    if (passed > native) break;
  }
  // Never between the two characters of a break.
  const bool inBreak = position > 0 && position < text.size() && text[position] == L'\n';
  if (inBreak && text[position - 1] == L'\r') --position;
  return static_cast<int>(position);
}

QString nativeText(std::wstring_view text) {
  QString native = toQt(text);
  return native.remove(QLatin1Char('\r'));
}

}  // namespace kovra::desktop
