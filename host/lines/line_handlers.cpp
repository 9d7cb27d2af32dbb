#include "host/lines/line_handlers.h"

namespace kovra::host {

const LineHandler* findLineHandler(std::wstring_view name) {
  for (const auto& table : {documentLines(), keyLines(), answerLines(), pointerLines(),
                            dialogLines(), pictureLines()}) {
    for (const LineHandler& handler : table) {
      if (handler.name == name) return &handler;
    }
  }
  return nullptr;
}

}  // namespace kovra::host
