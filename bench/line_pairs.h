#pragma once

#include <cstring>
#include <string_view>

/// A group code and its value as they stand, line ends included.
struct LinePair {
  std::string_view code;
  std::string_view value;
};

/// Takes one line with its end off the front of `rest`.
inline std::string_view takeLine(std::string_view& rest) {
  const void* end = std::memchr(rest.data(), '\n', rest.size());
  const std::size_t length =
      end == nullptr ? rest.size()
                     : static_cast<std::size_t>(static_cast<const char*>(end) - rest.data()) + 1;
  const std::string_view line = rest.substr(0, length);
  rest.remove_prefix(length);
  return line;
}

/// Takes one pair of lines off the front of `rest`; the value is empty when the file ends early.
inline LinePair takePair(std::string_view& rest) {
  const std::string_view code = takeLine(rest);
  return {code, takeLine(rest)};
}
