#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kovra::dxf {

/// The type of a group's value; it follows from the group code alone.
enum class ValueType : std::uint8_t {
  kText,
  kHandle,  ///< hexadecimal text, compared as a number
  kReal,
  kInt16,
  kInt32,
  kInt64,
  kBool,    ///< 290 to 299; one byte in binary files
  kBinary,  ///< 310 to 319 and 1004; hexadecimal text in ASCII files
};

/// Type of the values of a group code. Codes outside all documented ranges are text.
ValueType valueType(int code);

/// True for the x code of a point (10 to 18, 110 to 112, 210 to 213, 1010 to 1013); y is at +10, z,
/// which may be missing, at +20. Codes 38 and 39 and the like are plain reals.
bool isPointCode(int code);

/// Reads a real; blanks around it are allowed, and a whole number too.
/// False (and `value` untouched) when the text isn't one finite number.
bool parseReal(std::string_view text, double& value);

/// Reads an integer; blanks around it are allowed, and a real that is whole too.
bool parseInteger(std::string_view text, std::int64_t& value);

/// The value of a hexadecimal digit in either case; -1 for other characters.
inline int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const int letter = (c | ('a' - 'A')) - 'a';
  return letter >= 0 && letter < 6 ? letter + 10 : -1;
}

/// Reads a hexadecimal handle of up to 16 digits; blanks around it are allowed.
bool parseHandle(std::string_view text, std::uint64_t& value);

/// Appends the shortest decimal text that reads back as the same double; whole numbers end in
/// ".0". Values that aren't finite become 0.0, since no reader accepts them.
void appendReal(std::string& out, double value);
void appendInteger(std::string& out, std::int64_t value);
/// Upper case, without leading zeros.
void appendHandle(std::string& out, std::uint64_t value);

std::string formatReal(double value);
std::string formatHandle(std::uint64_t value);

/// `text` without blanks and tabs at its ends.
std::string_view trimmed(std::string_view text);

}  // namespace kovra::dxf
