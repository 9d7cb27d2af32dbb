#include "platform/arx/base/wildcard.h"

#include <optional>
#include <string>

#include "platform/arx/base/result_codes.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

wchar_t folded(wchar_t c) {
  if (c < 0x80) return c >= L'a' && c <= L'z' ? c - L'a' + L'A' : c;
  return win::upperCase(std::wstring_view(&c, 1)).front();
}

bool isDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

// Letters of every script; the program's locale may not know them all.
bool isLetter(wchar_t c) {
  if (c < 0x80) return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
  return c >= 0xaa && c != 0xd7 && c != 0xf7 && !(c >= 0x2000 && c <= 0x303f) &&
         !(c >= 0xff00 && c <= 0xff20);
}

/// One element of a pattern: what it accepts, and the pattern behind it.
struct Element {
  enum Kind { kLiteral, kDigit, kLetter, kOther, kAnyOne, kAnyRun, kSet } kind = kLiteral;
  wchar_t literal = 0;
  std::wstring_view set;  ///< between the brackets, without "~"
  bool negated = false;
  std::size_t length = 1;
};

/// Index of the "]" that ends a set which begins at `open`, or npos. A back-quote hides one
/// character.
std::size_t setEnd(std::wstring_view pattern, std::size_t open) {
  for (std::size_t i = open + 1; i < pattern.size(); ++i) {
    if (pattern[i] == L'`') {
      ++i;
    } else if (pattern[i] == L']') {
      return i;
    }
  }
  return std::wstring_view::npos;
}

Element setElement(std::wstring_view pattern, std::size_t end) {
  Element element;
  element.kind = Element::kSet;
  element.length = end + 1;
  element.set = pattern.substr(1, end - 1);
  if (!element.set.empty() && element.set.front() == L'~') {
    element.negated = true;
    element.set.remove_prefix(1);
  }
  return element;
}

Element elementAt(std::wstring_view pattern) {
  Element element;
  element.literal = pattern.front();
  switch (pattern.front()) {
    case L'#':
      element.kind = Element::kDigit;
      break;
    case L'@':
      element.kind = Element::kLetter;
      break;
    case L'.':
      element.kind = Element::kOther;
      break;
    case L'?':
      element.kind = Element::kAnyOne;
      break;
    case L'*':
      element.kind = Element::kAnyRun;
      break;
    case L'`':
      if (pattern.size() > 1) {
        element.literal = pattern[1];
        element.length = 2;
      }
      break;
    case L'[':
      // A bracket that nothing closes stands for itself.
      if (const std::size_t end = setEnd(pattern, 0); end != std::wstring_view::npos)
        return setElement(pattern, end);
      break;
    default:
      break;
  }
  return element;
}

class Matcher {
 public:
  explicit Matcher(bool ignoreCase) : ignoreCase_(ignoreCase) {}

  /// The whole text against one alternative without its "~". Going back to the latest "*" alone
  /// suffices: an earlier one could only take more.
  bool matches(std::wstring_view text, std::wstring_view pattern) const {
    std::size_t t = 0;
    std::size_t p = 0;
    std::optional<std::size_t> runPattern;
    std::size_t runText = 0;
    while (t < text.size()) {
      if (p < pattern.size()) {
        const Element element = elementAt(pattern.substr(p));
        if (element.kind == Element::kAnyRun) {
          runPattern = ++p;
          runText = t;
          continue;
        }
        if (accepts(element, text[t])) {
          p += element.length;
          ++t;
          continue;
        }
      }
      if (!runPattern) return false;
      p = *runPattern;
      t = ++runText;
    }
    while (p < pattern.size() && pattern[p] == L'*') ++p;
    return p == pattern.size();
  }

 private:
  bool same(wchar_t a, wchar_t b) const {
    return a == b || (ignoreCase_ && folded(a) == folded(b));
  }

  bool between(wchar_t low, wchar_t c, wchar_t high) const {
    if (low <= c && c <= high) return true;
    return ignoreCase_ && folded(low) <= folded(c) && folded(c) <= folded(high);
  }

  bool inSet(std::wstring_view set, wchar_t c) const {
    for (std::size_t i = 0; i < set.size(); ++i) {
      if (set[i] == L'`' && i + 1 < set.size()) ++i;
      const wchar_t low = set[i];
      // A hyphen at either end of the set stands for itself.
      if (i + 2 < set.size() && set[i + 1] == L'-') {
        i += 2;
        if (set[i] == L'`' && i + 1 < set.size()) ++i;
        if (between(low, c, set[i])) return true;
      } else if (same(low, c)) {
        return true;
      }
    }
    return false;
  }

  bool accepts(const Element& element, wchar_t c) const {
    switch (element.kind) {
      case Element::kDigit:
        return isDigit(c);
      case Element::kLetter:
        return isLetter(c);
      case Element::kOther:
        return !isDigit(c) && !isLetter(c);
      case Element::kAnyOne:
      case Element::kAnyRun:
        return true;
      case Element::kSet:
        return inSet(element.set, c) != element.negated;
      case Element::kLiteral:
        break;
    }
    return same(element.literal, c);
  }

  bool ignoreCase_;
};

/// Length of the first alternative: up to a comma outside brackets that no back-quote hides.
std::size_t alternativeLength(std::wstring_view pattern) {
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] == L',') return i;
    if (pattern[i] == L'`') {
      ++i;
    } else if (pattern[i] == L'[') {
      if (const std::size_t end = setEnd(pattern, i); end != std::wstring_view::npos) i = end;
    }
  }
  return pattern.size();
}

}  // namespace

bool wildcardMatch(std::wstring_view text, std::wstring_view pattern, bool ignoreCase) {
  const Matcher matcher(ignoreCase);
  while (true) {
    const std::size_t length = alternativeLength(pattern);
    std::wstring_view alternative = pattern.substr(0, length);
    const bool negated = !alternative.empty() && alternative.front() == L'~';
    if (negated) alternative.remove_prefix(1);
    if (matcher.matches(text, alternative) != negated) return true;
    if (length >= pattern.size()) return false;
    pattern.remove_prefix(length + 1);
  }
}

}  // namespace kovra::arx

bool acutWcMatchEx(const ACHAR* text, const ACHAR* pattern, bool ignoreCase) {
  return text != nullptr && pattern != nullptr &&
         kovra::arx::wildcardMatch(text, pattern, ignoreCase);
}

int acutWcMatch(const ACHAR* text, const ACHAR* pattern) {
  return acutWcMatchEx(text, pattern, false) ? RTNORM : RTERROR;
}
