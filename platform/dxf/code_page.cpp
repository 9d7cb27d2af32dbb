#include "platform/dxf/code_page.h"

#include <iconv.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <memory>

namespace kovra::dxf {

namespace {

/// An open converter, closed at the end of its scope.
class Converter {
 public:
  Converter(const std::string& to, const std::string& from)
      : handle_(::iconv_open(to.c_str(), from.c_str())) {}
  ~Converter() {
    if (valid()) ::iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  // iconv_open says "failed" with the pointer value -1.
  bool valid() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

  /// Converts all of `in`; the number of bytes written, or -errno.
  std::int64_t convert(std::string_view in, char* out, std::size_t size) const {
    ::iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    char* from = const_cast<char*>(in.data());
    std::size_t left = in.size();
    char* to = out;
    if (::iconv(handle_, &from, &left, &to, &size) != 0) return -errno;
    return to - out;
  }

 private:
  iconv_t handle_;
};

constexpr const char* kUnicode = "UTF-32LE";

/// One character of a page, or -errno of the conversion.
std::int64_t convertOne(const Converter& converter, std::string_view bytes, char32_t& character) {
  char32_t converted[4] = {};
  const std::int64_t size =
      converter.convert(bytes, reinterpret_cast<char*>(converted), sizeof converted);
  if (size == static_cast<std::int64_t>(sizeof(char32_t))) character = converted[0];
  return size == 0 || size > static_cast<std::int64_t>(sizeof(char32_t)) ? -EILSEQ : size;
}

}  // namespace

CodePage::CodePage(const std::string& converterName)
    : name_(converterName.empty() ? "ISO-8859-1" : converterName) {}

CodePage::Table& CodePage::table() const {
  if (table_ == nullptr) {
    table_ = std::make_unique<Table>();
    fill(*table_);
  }
  return *table_;
}

void CodePage::fill(Table& table) const {
  const Converter converter(kUnicode, name_);
  for (unsigned n = 0; n < table.upper.size(); ++n) {
    const char byte = static_cast<char>(0x80 + n);
    char32_t& entry = table.upper[n];
    entry = 0x80 + n;
    if (converter.valid()) {
      const std::int64_t size = convertOne(converter, {&byte, 1}, entry);
      if (size < 0) entry = size == -EINVAL ? kLead : kInvalid;
    }
    if (entry == kLead) table.twoBytes = true;
    if (entry < kUnknown) table.bytes.emplace(entry, static_cast<unsigned char>(byte));
  }
}

char32_t CodePage::pair(unsigned char lead, unsigned char trail) const {
  constexpr std::size_t kPairs = 0x8000;
  std::vector<char32_t>& pairs = table().pairs;
  if (pairs.empty()) pairs.assign(kPairs, kUnknown);
  char32_t& entry = pairs[((lead & 0x7fU) << 8U) | trail];
  if (entry == kUnknown) {
    const char bytes[] = {static_cast<char>(lead), static_cast<char>(trail)};
    if (convertOne(Converter(kUnicode, name_), {bytes, 2}, entry) < 0) entry = kInvalid;
  }
  return entry;
}

bool CodePage::decode(std::string_view bytes, std::size_t& at, char32_t& character) const {
  const auto first = static_cast<unsigned char>(bytes[at]);
  if (first < 0x80) {
    character = first;
    ++at;
    return true;
  }
  char32_t entry = table().upper[first - 0x80U];
  std::size_t size = 1;
  if (entry == kLead) {
    if (at + 1 == bytes.size()) return false;
    entry = pair(first, static_cast<unsigned char>(bytes[at + 1]));
    size = 2;
  }
  if (entry == kInvalid) return false;
  character = entry;
  at += size;
  return true;
}

bool CodePage::encode(char32_t character, std::string& out) const {
  if (character < 0x80) {
    out.push_back(static_cast<char>(character));
    return true;
  }
  const Table& known = table();
  if (const auto found = known.bytes.find(character); found != known.bytes.end()) {
    out.push_back(static_cast<char>(found->second));
    return true;
  }
  if (!known.twoBytes) return false;
  const Converter converter(name_, kUnicode);
  char bytes[8];
  const std::string_view from(reinterpret_cast<const char*>(&character), sizeof character);
  if (!converter.valid() || converter.convert(from, bytes, sizeof bytes) != 2) return false;
  // Only what reads back the same is written.
  if (pair(static_cast<unsigned char>(bytes[0]), static_cast<unsigned char>(bytes[1])) !=
      character) {
    return false;
  }
  out.append(bytes, 2);
  return true;
}

std::string converterName(std::string_view dwgCodePage) {
  std::string name;
  for (const char c : dwgCodePage) {
    if (c != ' ' && c != '\t')
      name.push_back(static_cast<char>(std::toupper(static_cast<unsigned char>(c))));
  }
  const auto numberBehind = [&name](std::string_view prefix) {
    const std::string rest = name.starts_with(prefix) ? name.substr(prefix.size()) : std::string();
    const bool digits = rest.find_first_not_of("0123456789") == std::string::npos;
    return digits && rest.size() <= 5 ? rest : std::string();
  };
  if (name == "MAC-ROMAN" || name == "MACINTOSH") return "MACINTOSH";
  if (name == "JOHAB" || name == "ANSI_1361" || name == "DOS1361") return "JOHAB";
  if (name == "BIG5") return "CP950";
  if (name == "GB2312") return "CP936";
  if (name == "KSC5601" || name == "KSC_5601") return "CP949";
  for (const std::string_view prefix : {"ANSI_", "DOS", "CP", "WINDOWS-"}) {
    if (const std::string number = numberBehind(prefix); !number.empty()) return "CP" + number;
  }
  for (const std::string_view prefix : {"ISO8859-", "ISO_8859-", "ISO-8859-", "ISO8859_"}) {
    if (const std::string number = numberBehind(prefix); !number.empty()) {
      return "ISO-8859-" + number;
    }
  }
  return {};
}

const CodePage* multibytePage(char digit) {
  static constexpr const char* kNames[] = {"CP932", "CP950", "CP949", "JOHAB", "CP936"};
  static std::array<std::unique_ptr<CodePage>, std::size(kNames)> pages;
  if (digit < '1' || digit > '5') return nullptr;
  const auto number = static_cast<std::size_t>(digit - '1');
  if (pages[number] == nullptr) pages[number] = std::make_unique<CodePage>(kNames[number]);
  return pages[number].get();
}

}  // namespace kovra::dxf
