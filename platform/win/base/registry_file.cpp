#include "platform/win/base/registry_file.h"

#include <cstring>

#include "platform/win/base/wide_text.h"

namespace kovra::win {
namespace {

std::wstring decodeFile(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    const bool bigEndian = bytes.front() == '\xFE';
    std::u16string units;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
      const auto first = static_cast<unsigned char>(bytes[i]);
      const auto second = static_cast<unsigned char>(bytes[i + 1]);
      units += static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
    }
    return fromUtf16(units.data(), units.size());
  }
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  return fromUtf8(bytes);
}

std::wstring_view trimmed(std::wstring_view text) {
  const auto first = text.find_first_not_of(L" \t\r\n");
  if (first == std::wstring_view::npos) return {};
  return text.substr(first, text.find_last_not_of(L" \t\r\n") - first + 1);
}

/// Lines with those joined that a backslash at the end continues.
std::vector<std::wstring> joinedLines(std::wstring_view text) {
  std::vector<std::wstring> lines;
  bool goesOn = false;
  while (!text.empty()) {
    const auto end = text.find(L'\n');
    std::wstring line(trimmed(text.substr(0, end)));
    text.remove_prefix(end == std::wstring_view::npos ? text.size() : end + 1);
    const bool more = line.ends_with(L",\\");
    if (more) line.pop_back();
    if (goesOn) {
      lines.back() += line;
    } else {
      lines.push_back(std::move(line));
    }
    goesOn = more;
  }
  return lines;
}

/// A quoted text at the beginning of `line`, which moves behind it.
std::optional<std::wstring> readQuoted(std::wstring_view& line) {
  if (!line.starts_with(L'"')) return std::nullopt;
  std::wstring text;
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i] == L'"') {
      line.remove_prefix(i + 1);
      return text;
    }
    if (line[i] == L'\\' && i + 1 < line.size()) ++i;
    text += line[i];
  }
  return std::nullopt;
}

int hexDigit(wchar_t c) {
  if (c >= L'0' && c <= L'9') return c - L'0';
  if (c >= L'a' && c <= L'f') return c - L'a' + 10;
  if (c >= L'A' && c <= L'F') return c - L'A' + 10;
  return -1;
}

template <typename T>
std::vector<std::byte> bytesOf(const T* data, std::size_t count) {
  std::vector<std::byte> bytes(count * sizeof(T));
  if (!bytes.empty()) std::memcpy(bytes.data(), data, bytes.size());
  return bytes;
}

std::optional<RegistryValue> readDword(std::wstring_view digits) {
  if (digits.empty() || digits.size() > 8) return std::nullopt;
  DWORD number = 0;
  for (const wchar_t c : digits) {
    const int digit = hexDigit(c);
    if (digit < 0) return std::nullopt;
    number = number * 16 + static_cast<DWORD>(digit);
  }
  return RegistryValue{4, bytesOf(&number, 1)};
}

std::optional<std::vector<std::byte>> readHexBytes(std::wstring_view text) {
  std::vector<std::byte> bytes;
  while (!(text = trimmed(text)).empty()) {
    const auto end = text.find(L',');
    const std::wstring_view pair = trimmed(text.substr(0, end));
    if (pair.size() != 2 || hexDigit(pair[0]) < 0 || hexDigit(pair[1]) < 0) return std::nullopt;
    bytes.push_back(static_cast<std::byte>(hexDigit(pair[0]) * 16 + hexDigit(pair[1])));
    text.remove_prefix(end == std::wstring_view::npos ? text.size() : end + 1);
  }
  return bytes;
}

/// Texts in hexadecimal form are UTF-16; they're handed over as wide characters.
std::vector<std::byte> widened(const std::vector<std::byte>& utf16) {
  std::vector<char16_t> units(utf16.size() / 2);
  if (!units.empty()) std::memcpy(units.data(), utf16.data(), units.size() * 2);
  const std::wstring text = fromUtf16(units.data(), units.size());
  return bytesOf(text.data(), text.size());
}

/// "hex:01,02", "hex(2):41,00,00,00" behind the equals sign.
std::optional<RegistryValue> readHex(std::wstring_view text) {
  constexpr DWORD kBinary = 3;
  RegistryValue value{kBinary, {}};
  text.remove_prefix(3);
  if (text.starts_with(L'(')) {
    const auto close = text.find(L')');
    const auto type = readDword(text.substr(1, close == std::wstring_view::npos ? 0 : close - 1));
    if (!type) return std::nullopt;
    std::memcpy(&value.type, type->data.data(), sizeof(value.type));
    text.remove_prefix(close + 1);
  }
  if (!text.starts_with(L':')) return std::nullopt;
  const auto bytes = readHexBytes(text.substr(1));
  if (!bytes) return std::nullopt;
  const bool isText = value.type == 1 || value.type == 2 || value.type == 7;
  value.data = isText ? widened(*bytes) : *bytes;
  return value;
}

std::optional<RegistryValue> readValue(std::wstring_view text) {
  if (text.starts_with(L'"')) {
    const auto content = readQuoted(text);
    if (!content) return std::nullopt;
    return RegistryValue{1, bytesOf(content->c_str(), content->size() + 1)};
  }
  const std::wstring lower = lowerCase(text);
  if (lower.starts_with(L"dword:")) return readDword(trimmed(text.substr(6)));
  if (lower.starts_with(L"hex")) return readHex(text);
  return std::nullopt;
}

}  // namespace

std::wstring normalizedKey(std::wstring_view key) {
  while (key.ends_with(L'\\')) key.remove_suffix(1);
  return lowerCase(key);
}

void RegistryFile::readValueLine(Values& values, std::wstring_view line) {
  std::optional<std::wstring> name;
  if (line.starts_with(L'@')) {
    name.emplace();
    line.remove_prefix(1);
  } else {
    name = readQuoted(line);
  }
  line = trimmed(line);
  if (!name || !line.starts_with(L'=')) return;
  line = trimmed(line.substr(1));
  if (line == L"-") values.erase(lowerCase(*name));
  if (auto value = readValue(line)) values[lowerCase(*name)] = std::move(*value);
}

RegistryFile RegistryFile::parse(std::string_view bytes) {
  RegistryFile file;
  Values* values = nullptr;
  for (const std::wstring& line : joinedLines(decodeFile(bytes))) {
    if (line.starts_with(L'[') && line.ends_with(L']')) {
      const std::wstring_view name = trimmed(std::wstring_view(line).substr(1, line.size() - 2));
      const bool removed = name.starts_with(L'-');
      values = removed ? nullptr : &file.keys_[normalizedKey(name)];
      if (removed) file.keys_.erase(normalizedKey(name.substr(1)));
    } else if (values != nullptr && !line.starts_with(L';')) {
      file.readValueLine(*values, line);
    }
  }
  return file;
}

bool RegistryFile::hasKey(std::wstring_view key) const {
  const std::wstring wanted = normalizedKey(key);
  if (keys_.contains(wanted)) return true;
  // A key exists also when only one below it is written down.
  const auto next = keys_.lower_bound(wanted + L'\\');
  return next != keys_.end() && next->first.starts_with(wanted + L'\\');
}

const RegistryValue* RegistryFile::value(std::wstring_view key, std::wstring_view name) const {
  const auto found = keys_.find(normalizedKey(key));
  if (found == keys_.end()) return nullptr;
  const auto value = found->second.find(lowerCase(name));
  return value == found->second.end() ? nullptr : &value->second;
}

}  // namespace kovra::win
