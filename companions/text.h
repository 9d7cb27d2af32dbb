#pragma once

#include <string>
#include <string_view>

namespace kovra::companions {

/// UTF-8 to wide text, losing nothing: a byte that isn't UTF-8 becomes U+DC00 plus the byte, which
/// narrow() turns back into it. So narrow(wide(bytes)) == bytes for all bytes.
std::wstring wide(std::string_view bytes);
/// Wide text to UTF-8; see wide(). What no text can hold (other lone surrogates) becomes U+FFFD.
std::string narrow(std::wstring_view text);

/// A form of UTF-8 text that is equal for texts that differ only in case, by Unicode's simple
/// mappings.
std::string foldCase(std::string_view text);

/// Without the blanks and tabs at both ends.
std::string_view trimBlanks(std::string_view text);

}  // namespace kovra::companions
