#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win/base/windows_types.h"

namespace kovra::win {

/// A value as RegQueryValueExW hands it over: texts are wide characters with their null.
struct RegistryValue {
  DWORD type = 0;
  std::vector<std::byte> data;
};

/// Keys and values of an exported registry. Names are compared without regard to case.
class RegistryFile {
 public:
  /// Reads the text form ("Windows Registry Editor Version 5.00" or REGEDIT4, the header may be
  /// missing); UTF-8, or UTF-16 with a byte order mark. Lines that can't be read are passed over.
  static RegistryFile parse(std::string_view bytes);

  /// `key` is a whole path from the root on; a trailing backslash doesn't count.
  bool hasKey(std::wstring_view key) const;
  /// The empty name is the key's default value.
  const RegistryValue* value(std::wstring_view key, std::wstring_view name) const;

 private:
  using Values = std::map<std::wstring, RegistryValue>;

  void readValueLine(Values& values, std::wstring_view line);

  std::map<std::wstring, Values> keys_;  ///< by names in lower case
};

/// A key's path in the form in which paths are compared.
std::wstring normalizedKey(std::wstring_view key);

}  // namespace kovra::win
