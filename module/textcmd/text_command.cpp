#include "module/frame/commands.h"
#include "module/frame/gates.h"
#include "module/frame/reporting.h"
#include "module/textcmd/text_run.h"
#include "module/textcmd/text_states.h"

namespace kovra {
namespace {

constexpr UINT kAlreadyRunning = 2734;

}  // namespace

void TextCommand() {
  if (CurrentProjectAtLeast(L"7.00")) {
    RunText7Command();
    return;
  }
  TextRun run;
  const int started = StartTextCommand(run);
  if (started == 1) ShowMessage(kAlreadyRunning);
  if (started != 0) return;
  run.TextState = kValueState;
  RunTextStates(run);
  EndTextCommand(run);
}

}  // namespace kovra
