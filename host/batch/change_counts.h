#pragma once

#include <string>

namespace kovra::host {

/// Whether two files are equal byte for byte. False also when one can't be read.
bool haveSameBytes(const std::string& before, const std::string& after);

/// What differs between two drawing files, counted by kind: a JSON array of objects with change,
/// type, records, and groups, which has for each group code in how many records it differs. Records
/// that were added or erased have no groups. "null" when one of the files can't be read.
std::string changesJson(const std::string& before, const std::string& after);

}  // namespace kovra::host
