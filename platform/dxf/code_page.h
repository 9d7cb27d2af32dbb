#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kovra::dxf {

/// One legacy code page: characters of one or two bytes that agree with ASCII below 0x80. Its table
/// is made with the first character beyond ASCII: many drawings have none. Not safe to share
/// between threads.
class CodePage {
 public:
  /// `converterName` is a name that iconv knows. A page that iconv doesn't know becomes Latin-1.
  explicit CodePage(const std::string& converterName);

  /// Reads one character at `at` and moves `at` behind it. False for a byte that begins no
  /// character: `at` doesn't move.
  bool decode(std::string_view bytes, std::size_t& at, char32_t& character) const;
  /// Appends the character's bytes; false if the page doesn't have it.
  bool encode(char32_t character, std::string& out) const;

 private:
  static constexpr char32_t kInvalid = 0xffffffff;
  static constexpr char32_t kLead = 0xfffffffe;
  static constexpr char32_t kUnknown = 0xfffffffd;

  struct Table {
    std::array<char32_t, 128> upper;  ///< what the bytes from 0x80 on are
    std::unordered_map<char32_t, unsigned char> bytes;
    bool twoBytes = false;
    std::vector<char32_t> pairs;  ///< by both bytes, filled as pairs are met
  };

  Table& table() const;
  void fill(Table& table) const;
  char32_t pair(unsigned char lead, unsigned char trail) const;

  std::string name_;
  mutable std::unique_ptr<Table> table_;
};

/// The iconv name for a $DWGCODEPAGE value (ANSI_932, dos850, MAC-ROMAN ...); empty for names that
/// aren't known and for ASCII and UNDEFINED.
std::string converterName(std::string_view dwgCodePage);

/// The double-byte page that the digit of a \M+N escape means; null for other digits. Made on first
/// use and kept for the life of the process.
const CodePage* multibytePage(char digit);

}  // namespace kovra::dxf
