// Lines of the keyboard.
#include "host/lines/line_handlers.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/pump.h"
#include "platform/win/desktop/desktop.h"
#include "platform/win/desktop/user_input.h"

namespace kovra::host {
namespace {

// A prompt that runs inside a modal dialog is the top wait, so that it gets the keys.
bool modalDialogHasKeys() {
  const win::Wait* top = win::Pump::instance().topWait();
  return top != nullptr && top->kind == win::WaitKind::modalDialog;
}

// Whether a control has the focus, rather than the drawing.
bool controlHasKeys() {
  const HWND focused = win::focusedControl();
  return focused != nullptr && focused != win::drawingWindow() && focused != win::frameWindow();
}

Result<void> pressKey(const LineContext& context, Arguments& arguments, const char* key,
                      const wchar_t* character) {
  if (const Result<void> end = arguments.end(); !end) return end;
  if (!modalDialogHasKeys()) return context.hands.typeText(character);
  const HWND dialog = win::topDialog();
  if (dialog == nullptr) return Error{ErrorKind::kInvalidInput, "no dialog is open"};
  return done(context.hands.pressKeyInDialog(dialog, *win::keyNamed(key)));
}

Result<void> enterLine(LineContext& context, Arguments& arguments) {
  return pressKey(context, arguments, "Enter", L"\n");
}

Result<void> escapeLine(LineContext& context, Arguments& arguments) {
  return pressKey(context, arguments, "Esc", L"\x03");
}

Result<void> keysLine(LineContext& context, Arguments& arguments) {
  const Result<std::wstring> text = arguments.text("a text");
  if (!text) return text.error();
  if (modalDialogHasKeys() || controlHasKeys()) {
    return done(context.hands.typeCharacters(text.value()));
  }
  return context.hands.typeText(text.value());
}

constexpr LineHandler kLines[] = {
    {L"enter", enterLine, false, L"", L"presses Enter in the dialog on top or at the command line"},
    {L"esc", escapeLine, false, L"", L"presses Esc there"},
    {L"keys", keysLine, false, L"TEXT", L"types characters without Enter"},
};

}  // namespace

std::span<const LineHandler> keyLines() {
  return kLines;
}

}  // namespace kovra::host
