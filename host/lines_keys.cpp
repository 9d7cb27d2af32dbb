// Lines of the keyboard.
#include "host/line_handlers.h"
#include "platform/arx/host_api.h"

namespace kovra::host {
namespace {

Result<void> enterLine(LineContext&, Arguments& arguments) {
  if (const Result<void> end = arguments.end(); !end) return end;
  return arx::host::typeText(L"\n");
}

Result<void> escapeLine(LineContext&, Arguments& arguments) {
  if (const Result<void> end = arguments.end(); !end) return end;
  return arx::host::typeText(L"\x03");
}

Result<void> keysLine(LineContext&, Arguments& arguments) {
  const Result<std::wstring> text = arguments.text("a text");
  if (!text) return text.error();
  return arx::host::typeText(text.value());
}

constexpr LineHandler kLines[] = {
    {L"enter", enterLine},
    {L"esc", escapeLine},
    {L"keys", keysLine},
};

}  // namespace

std::span<const LineHandler> keyLines() {
  return kLines;
}

}  // namespace kovra::host
