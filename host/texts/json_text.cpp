#include "host/texts/json_text.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace kovra::host {

void appendJson(std::string& out, const std::string& text) {
  // Most texts need no escapes; the others are the library's.
  const bool plain = std::all_of(text.begin(), text.end(), [](char c) {
    return c >= ' ' && c < '\x7f' && c != '"' && c != '\\';
  });
  if (plain) {
    out.append(1, '"').append(text).append(1, '"');
  } else {
    out += nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
  }
}

}  // namespace kovra::host
