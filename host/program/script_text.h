#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dxf/result.h"

namespace kovra::host {

/// Reads what stands behind the name of an `@` line, piece by piece.
///
/// A word ends at a blank or tab. A text is all that is left, without the blanks at its ends.
/// Either may stand in double quotes, in which \n \t \b \e (code 3) \" \\ hold.
class Arguments {
 public:
  explicit Arguments(std::wstring_view rest) : rest_(rest) { skipBlanks(); }

  bool atEnd() const { return rest_.empty(); }
  /// Whether the next character is this one.
  bool startsWith(wchar_t c) const { return rest_.starts_with(c); }

  /// An error when nothing is left; `what` names what is missing: "a variable's name".
  Result<std::wstring> word(const char* what);
  Result<std::wstring> text(const char* what);
  Result<int> integer(const char* what);
  /// Coordinates with commas between them, "1.5,2" or "1.5,2,3"; at least `least`, at most `most`.
  Result<std::vector<double>> coordinates(std::size_t least, std::size_t most);
  /// A hexadecimal handle.
  Result<std::uint64_t> handle();
  /// All words that are left.
  Result<std::vector<std::wstring>> words();
  /// An error when something is left over.
  Result<void> end() const;

 private:
  void skipBlanks();
  Result<std::wstring> quoted();

  std::wstring_view rest_;
};

/// A decimal number with nothing around it; no infinity, no hexadecimal.
std::optional<double> parseNumber(std::wstring_view text);

/// UTF-8 to a wide text; nothing when the bytes aren't UTF-8.
std::optional<std::wstring> decodeUtf8(std::string_view bytes);

}  // namespace kovra::host
