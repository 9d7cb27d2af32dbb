#include "desktop/frame/unwinding.h"

#include <string>
#include <utility>

#include "desktop/loop/input_queue.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/interaction.h"

namespace kovra::desktop {
namespace {

namespace editor = arx::host;

/// Deeper nests of commands and dialogs than anybody has.
constexpr int kMostCancels = 50;

bool cancelOne() {
  const editor::Wait wait = editor::topWait();
  if (wait.modalOnTop) return win::Pump::instance().cancelTopWait();
  if (wait.kind == editor::WaitKind::kNone || wait.kind == editor::WaitKind::kIdle) return false;
  editor::answerCancel();
  return true;
}

void unwind(const std::function<void()>& act, int cancels) {
  if (cancels == kMostCancels || !cancelOne()) return act();
  inputQueue().add([act, cancels] { unwind(act, cancels + 1); });
}

}  // namespace

void unwindThen(std::function<void()> act) {
  unwind(act, 0);
}

void runCommand(const std::wstring& name) {
  inputQueue().add([name] {
    // With nothing to cancel, a cancel would drop what is selected for the command.
    const bool idle = editor::topWait().kind == editor::WaitKind::kIdle;
    const Result<void> typed = editor::typeText((idle ? L"" : L"\x03\x03") + name + L"\n");
    if (typed) return;
    win::interaction().freshLine();
    win::interaction().print(typed.error().message + "\n");
  });
}

}  // namespace kovra::desktop
