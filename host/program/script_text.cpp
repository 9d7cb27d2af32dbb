#include "host/program/script_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "launch/quoted_text.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

constexpr std::wstring_view kBlanks = L" \t";

Error invalid(std::string message) {
  return {ErrorKind::kInvalidInput, std::move(message)};
}

template <typename Number, typename... Base>
std::optional<Number> parseAscii(std::wstring_view text, Base... base) {
  std::string narrow;
  for (const wchar_t c : text) {
    if (c <= L' ' || c > L'~') return std::nullopt;
    narrow.push_back(static_cast<char>(c));
  }
  Number value{};
  const char* end = narrow.data() + narrow.size();
  const auto [at, error] = std::from_chars(narrow.data(), end, value, base...);
  if (error != std::errc() || at != end) return std::nullopt;
  return value;
}

std::wstring_view withoutPlus(std::wstring_view text) {
  if (text.size() > 1 && text[0] == L'+' && text[1] != L'-') text.remove_prefix(1);
  return text;
}

}  // namespace

void Arguments::skipBlanks() {
  const size_t at = rest_.find_first_not_of(kBlanks);
  rest_.remove_prefix(at == std::wstring_view::npos ? rest_.size() : at);
}

Result<std::wstring> Arguments::quoted() {
  std::wstring text;
  for (size_t i = 1; i < rest_.size(); ++i) {
    if (rest_[i] == L'"') {
      rest_.remove_prefix(i + 1);
      if (!rest_.empty() && kBlanks.find(rest_[0]) == std::wstring_view::npos) {
        return invalid("a blank is missing behind a closing quote");
      }
      skipBlanks();
      return text;
    }
    if (rest_[i] != L'\\') {
      text.push_back(rest_[i]);
      continue;
    }
    const auto c = i + 1 < rest_.size() ? launch::escapedCharacter(rest_[i + 1]) : std::nullopt;
    if (!c) return invalid("in quotes only \\n \\t \\b \\e \\\" and \\\\ may follow a backslash");
    text.push_back(*c);
    ++i;
  }
  return invalid("a closing quote is missing");
}

Result<std::wstring> Arguments::word(const char* what) {
  if (atEnd()) return invalid(std::string(what) + " is missing");
  if (startsWith(L'"')) return quoted();
  const size_t end = std::min(rest_.find_first_of(kBlanks), rest_.size());
  std::wstring word(rest_.substr(0, end));
  rest_.remove_prefix(end);
  skipBlanks();
  return word;
}

Result<std::wstring> Arguments::text(const char* what) {
  if (atEnd()) return invalid(std::string(what) + " is missing");
  if (startsWith(L'"')) {
    Result<std::wstring> text = quoted();
    if (text && !atEnd()) return invalid("nothing may follow a text in quotes");
    return text;
  }
  std::wstring text(rest_.substr(0, rest_.find_last_not_of(kBlanks) + 1));
  rest_ = {};
  return text;
}

Result<int> Arguments::integer(const char* what) {
  Result<std::wstring> text = word(what);
  if (!text) return text.error();
  const auto value = parseAscii<int>(withoutPlus(text.value()), 10);
  if (!value) return invalid(std::string(what) + " must be a whole number");
  return *value;
}

Result<std::vector<double>> Arguments::coordinates(std::size_t least, std::size_t most) {
  Result<std::wstring> point = word("a point");
  if (!point) return point.error();
  std::vector<double> numbers;
  std::wstring_view left = point.value();
  for (bool more = true; more;) {
    const size_t comma = left.find(L',');
    const auto number = parseNumber(left.substr(0, comma));
    if (!number) return invalid("'" + win::toUtf8(point.value()) + "' is no point");
    numbers.push_back(*number);
    more = comma != std::wstring_view::npos;
    if (more) left.remove_prefix(comma + 1);
  }
  if (numbers.size() < least || numbers.size() > most) {
    return invalid("'" + win::toUtf8(point.value()) + "' is no point");
  }
  return numbers;
}

Result<std::uint64_t> Arguments::handle() {
  Result<std::wstring> text = word("a handle");
  if (!text) return text.error();
  const auto value = parseAscii<std::uint64_t>(text.value(), 16);
  if (!value || *value == 0) return invalid("'" + win::toUtf8(text.value()) + "' is no handle");
  return *value;
}

Result<std::vector<std::wstring>> Arguments::words() {
  std::vector<std::wstring> all;
  while (!atEnd()) {
    Result<std::wstring> next = word("a word");
    if (!next) return next.error();
    all.push_back(std::move(next).value());
  }
  return all;
}

Result<void> Arguments::end() const {
  if (!atEnd()) return invalid("too much on the line: '" + win::toUtf8(rest_) + "'");
  return {};
}

std::optional<double> parseNumber(std::wstring_view text) {
  const auto value = parseAscii<double>(withoutPlus(text));
  if (!value || !std::isfinite(*value)) return std::nullopt;
  return value;
}

std::optional<std::wstring> decodeUtf8(std::string_view bytes) {
  std::wstring wide = win::fromUtf8(bytes);
  if (win::toUtf8(wide) != bytes) return std::nullopt;
  return wide;
}

}  // namespace kovra::host
