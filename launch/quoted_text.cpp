#include "launch/quoted_text.h"

#include <algorithm>
#include <iterator>

namespace kovra::launch {
namespace {

struct Escape {
  wchar_t letter;
  wchar_t character;
};

constexpr Escape kEscapes[] = {{L'n', L'\n'},   {L't', L'\t'}, {L'b', L'\b'},
                               {L'e', L'\x03'}, {L'"', L'"'},  {L'\\', L'\\'}};

}  // namespace

std::optional<wchar_t> escapedCharacter(wchar_t letter) {
  for (const Escape& escape : kEscapes) {
    if (escape.letter == letter) return escape.character;
  }
  return std::nullopt;
}

std::wstring quotedText(std::wstring_view text) {
  std::wstring quoted = L"\"";
  for (size_t i = 0; i < text.size(); ++i) {
    const wchar_t c = text[i];
    if (c == L'\r' && text.substr(i + 1).starts_with(L'\n')) continue;
    const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                      [c](const Escape& entry) { return entry.character == c; });
    if (escape == std::end(kEscapes)) {
      quoted.push_back(c);
    } else {
      quoted.append({L'\\', escape->letter});
    }
  }
  return quoted + L'"';
}

}  // namespace kovra::launch
