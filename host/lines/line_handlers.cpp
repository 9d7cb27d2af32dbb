#include "host/lines/line_handlers.h"

#include <array>

namespace kovra::host {

std::span<const std::span<const LineHandler>> lineTables() {
  static const std::array kTables = {keyLines(),    pointerLines(),  dialogLines(),
                                     answerLines(), documentLines(), pictureLines()};
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

}  // namespace kovra::host
