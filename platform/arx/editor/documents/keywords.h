#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kovra::arx {

/// A prompt's keywords, from the platform's list form: words separated by blanks, capital letters
/// for the shortest form that is accepted, and behind a lone "_" or from the first word that begins
/// with "_" on the global names of the words before it. A list of nothing but such words has them
/// as they stand.
class KeywordList {
 public:
  KeywordList() = default;
  explicit KeywordList(std::wstring_view list);

  bool empty() const { return words_.empty(); }
  size_t size() const { return words_.size(); }
  /// Index of the keyword that a user's text names, if it does: in any case, a local word, its
  /// capitals, a beginning not shorter than these; after "_" the same of the global name.
  std::optional<size_t> match(std::wstring_view typed) const;
  /// The keyword as a user types it, its capitals being the shortest form.
  const std::wstring& localName(size_t index) const { return words_[index].local; }
  /// What commands are given: the global name, the word itself without one.
  const std::wstring& globalName(size_t index) const { return words_[index].global; }

 private:
  struct Word {
    std::wstring local;
    std::wstring global;
  };

  std::vector<Word> words_;
};

}  // namespace kovra::arx
