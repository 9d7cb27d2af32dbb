#include "host/lines/line_handlers.h"

#include <array>

namespace kovra::host {

std::span<const std::span<const LineHandler>> lineTables() {
  static const std::array kTables = {keyLines(),      pointerLines(), dialogLines(), answerLines(),
                                     documentLines(), pictureLines(), tableLines()};
  return kTables;
}

const LineHandler* findLineHandler(std::wstring_view name) {
  for (const auto& table : lineTables()) {
    for (const LineHandler& handler : table) {
      if (handler.name == name) return &handler;
    }
  }
  return nullptr;
}

Result<void> done(const win::InputResult& input) {
  if (input) return {};
  return Error{ErrorKind::kInvalidInput, input.error};
}

}  // namespace kovra::host
