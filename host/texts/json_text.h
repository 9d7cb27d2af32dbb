#pragma once

#include <string>

namespace kovra::host {

/// Appends a text as a JSON string. Bytes that aren't UTF-8 become U+FFFD.
void appendJson(std::string& out, const std::string& text);

}  // namespace kovra::host
