#include <algorithm>
#include <charconv>
#include <limits>
#include <string_view>

#include "companions/text.h"
#include "module/frame/companions/project_lib.h"
#include "platform/win/base/wide_text.h"

namespace {

// Numbers between dots, without zeros at the end; nothing for a text of another form.
std::vector<unsigned long long> parseVersion(std::string_view text) {
  text = kovra::companions::trimBlanks(text);
  std::vector<unsigned long long> parts;
  while (true) {
    unsigned long long part = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), part);
    if (error == std::errc::invalid_argument) return {};
    if (error != std::errc()) part = std::numeric_limits<unsigned long long>::max();
    parts.push_back(part);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    if (text.empty()) break;
    if (text[0] != '.') return {};
    text.remove_prefix(1);
  }
  while (!parts.empty() && parts.back() == 0) parts.pop_back();
  return parts;
}

}  // namespace

DataVersion::DataVersion() = default;
DataVersion::DataVersion(const DataVersion&) = default;
DataVersion& DataVersion::operator=(const DataVersion&) = default;
DataVersion::~DataVersion() = default;

DataVersion::DataVersion(const char* text) : parts_(parseVersion(text ? text : "")) {}

DataVersion::DataVersion(const wchar_t* text)
    : parts_(parseVersion(kovra::win::toUtf8(text ? text : L""))) {}

bool DataVersion::operator<(const DataVersion& other) const {
  return parts_ < other.parts_;
}

bool DataVersion::operator>=(const DataVersion& other) const {
  return !(*this < other);
}
