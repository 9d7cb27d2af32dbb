#include "module/propcopy/tag_patterns.h"

namespace kovra {

std::wstring wildCardPattern(std::wstring_view tagPattern) {
  if (!tagPattern.ends_with(L'+')) return std::wstring(tagPattern);
  const std::wstring stem(tagPattern.substr(0, tagPattern.size() - 1));
  return stem + L"," + stem + L"[0-9]";
}

TagPatterns splitTagList(std::wstring_view list) {
  TagPatterns patterns;
  std::wstring_view rest = list.substr(0, kTagListLength);
  while (!rest.empty()) {
    const std::size_t comma = rest.find(L',');
    patterns.push_back(wildCardPattern(rest.substr(0, comma)));
    rest = comma == std::wstring_view::npos ? L"" : rest.substr(comma + 1);
  }
  return patterns;
}

}  // namespace kovra
