#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/dxf/dialect.h"
#include "platform/dxf/line_ends.h"
#include "platform/dxf/values.h"

// The two written forms of a group, ASCII and binary. All else in this folder works on codes and
// values and doesn't know which form a file has.
namespace kovra::dxf {

/// Begins every binary DXF file; 22 bytes, a NUL at their end.
inline constexpr std::string_view kBinarySentinel{"AutoCAD Binary DXF\r\n\x1a\0", 22};

/// The UTF-8 mark that some programs write before the first line of an ASCII file; empty if `file`
/// has none.
inline std::string_view byteOrderMark(std::string_view file) {
  constexpr std::string_view kUtf8Mark = "\xef\xbb\xbf";
  return file.substr(0, file.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0);
}

/// A group where it lies.
struct GroupView {
  std::int32_t code = 0;
  const char* begin = nullptr;
  const char* valueBegin = nullptr;
  const char* valueEnd = nullptr;
  const char* end = nullptr;  ///< behind the value's line end or NUL

  std::string_view value() const {
    return {valueBegin, static_cast<std::size_t>(valueEnd - valueBegin)};
  }
};

enum class GroupStatus : std::uint8_t {
  kOk,
  kEnd,      ///< nothing is left but blanks
  kCut,      ///< the text ends inside a group
  kBadCode,  ///< what should be a group code isn't one
};

/// Reads a group code line: an integer from -9999 to 9999, blanks around it allowed.
bool parseAnyCode(const char* begin, const char* end, std::int32_t& code);

/// The same. Nearly all lines are three columns wide with the code at their right, which is quickly
/// seen: a drawing has millions of them.
[[gnu::always_inline]] inline bool parseCode(const char* begin, const char* end,
                                             std::int32_t& code) {
  const char* last = end - begin > 3 && end[-1] == '\r' ? end - 1 : end;
  if (last - begin != 3) return parseAnyCode(begin, end, code);
  const int hundreds = begin[0] == ' ' ? 0 : begin[0] - '0';
  const int tens = begin[1] == ' ' && begin[0] == ' ' ? 0 : begin[1] - '0';
  const int ones = begin[2] - '0';
  const bool digits = static_cast<unsigned>(hundreds) < 10 && static_cast<unsigned>(tens) < 10 &&
                      static_cast<unsigned>(ones) < 10;
  code = hundreds * 100 + tens * 10 + ones;
  return digits || parseAnyCode(begin, end, code);
}

/// True if nothing but blanks, line ends and end-of-file characters is left.
bool onlyBlanks(std::string_view rest);

/// Reads the groups of an ASCII text that begins with a group.
class AsciiReader {
 public:
  explicit AsciiReader(std::string_view text)
      : ends_(text), at_(text.data()), end_(text.data() + text.size()) {}

  [[gnu::always_inline]] GroupStatus next(GroupView& group) {
    if (at_ == end_) return GroupStatus::kEnd;
    const char* codeEnd = ends_.next();
    if (!parseCode(at_, codeEnd, group.code)) return badCode();
    if (codeEnd == end_ || codeEnd + 1 == end_) return GroupStatus::kCut;
    const char* feed = ends_.next();
    group.begin = at_;
    group.valueBegin = codeEnd + 1;
    group.valueEnd = feed != end_ && feed != group.valueBegin && feed[-1] == '\r' ? feed - 1 : feed;
    at_ = feed == end_ ? feed : feed + 1;
    group.end = at_;
    return GroupStatus::kOk;
  }
  /// Where the next group begins; after an error where the faulty one does.
  const char* position() const { return at_; }

 private:
  GroupStatus badCode() const {
    const std::string_view rest(at_, static_cast<std::size_t>(end_ - at_));
    return onlyBlanks(rest) ? GroupStatus::kEnd : GroupStatus::kBadCode;
  }

  LineEnds ends_;
  const char* at_;
  const char* end_;
};

/// The same for the groups of a binary file.
class BinaryReader {
 public:
  BinaryReader(std::string_view text, bool wideCodes)
      : at_(text.data()), end_(text.data() + text.size()), wideCodes_(wideCodes) {}

  GroupStatus next(GroupView& group);
  const char* position() const { return at_; }

 private:
  bool readCode(const char*& at, std::int32_t& code) const;

  const char* at_;
  const char* end_;
  bool wideCodes_;
};

/// Calls `visit(group)` for each group of a record's bytes, up to the first fault.
template <class Visit>
[[gnu::always_inline]] inline void forEachGroup(std::string_view bytes, const Dialect& dialect,
                                                Visit visit) {
  GroupView group;
  if (dialect.binary) {
    BinaryReader reader(bytes, dialect.wideCodes);
    while (reader.next(group) == GroupStatus::kOk) visit(group);
  } else {
    AsciiReader reader(bytes);
    while (reader.next(group) == GroupStatus::kOk) visit(group);
  }
}

// Values as they stand in the file. A value that isn't of the wanted type reads as 0.
double decodeReal(const Dialect& dialect, int code, std::string_view value);
std::int64_t decodeInteger(const Dialect& dialect, int code, std::string_view value);
std::uint64_t decodeHandle(std::string_view value);
/// The bytes that a binary value stands for.
std::string decodeBinary(const Dialect& dialect, std::string_view value);
/// True if two values of a code are the same bytes or the same number.
bool sameValue(const Dialect& dialect, int code, std::string_view left, std::string_view right);

// The same, for writing; each appends the value without its line end.
void encodeReal(const Dialect& dialect, int code, double value, std::string& out);
void encodeInteger(const Dialect& dialect, int code, std::int64_t value, std::string& out);
void encodeHandle(const Dialect& dialect, int code, std::uint64_t value, std::string& out);
void encodeBinary(const Dialect& dialect, std::string_view bytes, std::string& out);
/// From the text that an ASCII file has.
void encodeAscii(const Dialect& dialect, int code, std::string_view text, std::string& out);

/// How groups that are new are written.
struct GroupStyle {
  bool binary = false;
  bool wideCodes = false;
  bool crlf = false;
  std::size_t codeWidth = 3;  ///< codes are right-aligned in so many columns

  std::string_view lineEnd() const { return binary ? "" : crlf ? "\r\n" : "\n"; }
};

GroupStyle groupStyle(const Dialect& dialect);
/// The style of a record, taken from its first line.
GroupStyle groupStyle(const Dialect& dialect, std::string_view record);

/// Appends a whole group with an encoded value.
void appendGroup(const GroupStyle& style, int code, std::string_view value, std::string& out);

/// Appends a group of an ASCII file with another value. The end that a file's last line lacks is
/// added only to an empty value, which wouldn't be a line without it.
void appendRevalued(const GroupView& group, std::string_view value, const GroupStyle& style,
                    std::string& out);

}  // namespace kovra::dxf
