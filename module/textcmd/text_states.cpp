#include "module/textcmd/text_states.h"

#include <algorithm>

#include "module/frame/reporting.h"
#include "module/textcmd/entity_jig.h"
#include "module/textcmd/pick_states.h"
#include "module/textcmd/placing.h"
#include "module/textcmd/text_ids.h"

namespace kovra {

using namespace textdlg;

namespace {

constexpr UINT kValuePrompt = 2722;
constexpr UINT kPointPrompt = 2723;

struct Request {
  int number;
  std::uint32_t state;
};
constexpr Request kRequests[] = {
    {kStyleRequest, 3},      {kHeightRequest, 4},        {kWidthFactorRequest, 5},
    {kRotationRequest, 6},   {kJustificationRequest, 7}, {kAllRequest, 8},
    {kEndRequest, kRunEnds},
};

void takeValue(TextRun& run, const TextInput& value) {
  if (value[0] == ACHAR{}) return;
  std::copy_n(value, kTextInputLength, run.TextBuffer);
  TextPreview->setTextString(value);
  run.TextState = kPointState;
}

/// Request 0 goes back, which in the first state ends the run.
void answerRequest(TextRun& run, int request) {
  run.TextReturnState = kValueState;
  run.TextState = request == kBackRequest ? kRunEnds : StateOfRequest(request, kValueState);
}

int askValue(TextRun& run) {
  constexpr int kPointPlace = 3;  // of a request line: "_. .3"
  TextInput line;
  std::copy_n(run.TextBuffer, kTextInputLength, line);
  switch (ReadTextInput(ResourceText(kValuePrompt).GetString(), line)) {
    case RTNORM:
      takeValue(run, line);
      break;
    case kDialogRequest:
      if (line[kPointPlace] == L'.') {
        answerRequest(run, _wtoi(line + kPointPlace + 1));
      } else {
        takeValue(run, line);
      }
      break;
    case RTCAN:
      run.TextState = kRunEnds;
      break;
    default:
      TraceError(L"Text error GetString");
  }
  return 0;
}

int askPoint(TextRun& run) {
  int request = 0;
  const CString prompt = ResourceText(kPointPrompt);
  switch (GetInsertPoint(prompt.GetString(), run.TextPoint, request, kCrosshairCursor)) {
    case 0:
      run.TextState = kPlacingState;
      break;
    case 1:
      run.TextState = kValueState;
      break;
    case 2:
      run.TextReturnState = kPointState;
      run.TextState = StateOfRequest(request, kPointState);
      break;
    default:
      TraceError(L"Text error GetPoint");
  }
  return 0;
}

struct State {
  std::uint32_t first;
  std::uint32_t last;
  int (*run)(TextRun& run);  ///< negative: the run ends
};
constexpr State kStates[] = {
    {kValueState, kValueState, askValue},
    {kPointState, kPointState, askPoint},
    {kFirstPickState, kLastPickState, RunPickState},
    {kPlacingState, kPlacingState, PlaceText},
};

const State* findState(std::uint32_t number) {
  const auto* found = std::find_if(std::begin(kStates), std::end(kStates), [=](const State& state) {
    return number >= state.first && number <= state.last;
  });
  return found != std::end(kStates) ? found : nullptr;
}

}  // namespace

std::uint32_t StateOfRequest(int request, std::uint32_t otherwise) {
  for (const auto& [number, state] : kRequests) {
    if (number == request) return state;
  }
  return otherwise;
}

void RunTextStates(TextRun& run) {
  while (const State* state = findState(run.TextState)) {
    if (state->run(run) < 0) run.TextState = kRunEnds;
  }
}

}  // namespace kovra
