#include "platform/arx/editor/documents/keywords.h"

#include <cwctype>

#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

std::vector<std::wstring> splitAtBlanks(std::wstring_view text) {
  std::vector<std::wstring> words;
  size_t at = 0;
  while ((at = text.find_first_not_of(L' ', at)) != std::wstring_view::npos) {
    const size_t end = std::min(text.find(L' ', at), text.size());
    words.emplace_back(text.substr(at, end - at));
    at = end;
  }
  return words;
}

bool isCapital(wchar_t c) {
  return std::iswupper(static_cast<wint_t>(c)) != 0 || std::iswdigit(static_cast<wint_t>(c)) != 0;
}

/// The run of capitals of a keyword: where it begins and ends. The whole word without any.
std::pair<size_t, size_t> capitals(std::wstring_view word) {
  size_t begin = 0;
  while (begin < word.size() && !isCapital(word[begin])) ++begin;
  if (begin == word.size()) return {0, word.size()};
  size_t end = begin;
  while (end < word.size() && isCapital(word[end])) ++end;
  return {begin, end};
}

bool names(std::wstring_view typed, std::wstring_view word) {
  if (typed.empty()) return false;
  const auto [begin, end] = capitals(word);
  if (win::equalNoCase(typed, word.substr(begin, end - begin))) return true;
  return typed.size() >= end && typed.size() <= word.size() &&
         win::equalNoCase(typed, word.substr(0, typed.size()));
}

}  // namespace

KeywordList::KeywordList(std::wstring_view list) {
  const std::vector<std::wstring> words = splitAtBlanks(list);
  size_t locals = 0;
  while (locals < words.size() && words[locals].front() != L'_') ++locals;
  if (locals == 0) {
    for (const std::wstring& word : words) words_.push_back({word, word});
    return;
  }
  for (size_t i = 0; i < locals; ++i) words_.push_back({words[i], words[i]});
  size_t at = locals;
  for (size_t i = 0; i < locals && at < words.size(); ++i, ++at) {
    std::wstring global = words[at];
    if (i == 0) global.erase(0, 1);
    if (global.empty() && ++at < words.size()) global = words[at];
    if (!global.empty()) words_[i].global = global;
  }
}

std::optional<size_t> KeywordList::match(std::wstring_view typed) const {
  for (size_t i = 0; i < words_.size(); ++i)
    if (names(typed, words_[i].local)) return i;
  if (typed.empty() || typed.front() != L'_') return std::nullopt;
  for (size_t i = 0; i < words_.size(); ++i)
    if (names(typed.substr(1), words_[i].global)) return i;
  return std::nullopt;
}

}  // namespace kovra::arx
