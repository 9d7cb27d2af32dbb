// Lines of the pointer in the drawing: clicks, moves, picks, selections.
#include "host/lines/line_handlers.h"
#include "platform/arx/editor/host_api.h"

namespace kovra::host {
namespace {

namespace editor = arx::host;

editor::PickPoint toPoint(const std::vector<double>& numbers) {
  return {numbers[0], numbers[1], numbers.size() > 2 ? numbers[2] : 0};
}

Result<void> pointLine(LineContext& context, Arguments& arguments) {
  const Result<std::vector<double>> numbers = arguments.coordinates(2, 3);
  if (!numbers) return numbers.error();
  if (const Result<void> end = arguments.end(); !end) return end;
  return context.hands.clickPoint(toPoint(numbers.value()));
}

Result<void> moveLine(LineContext& context, Arguments& arguments) {
  const Result<std::vector<double>> numbers = arguments.coordinates(2, 2);
  if (!numbers) return numbers.error();
  if (const Result<void> end = arguments.end(); !end) return end;
  return context.hands.moveCursor(toPoint(numbers.value()));
}

// A place has a comma, a handle has none.
bool looksLikePlace(Arguments arguments) {
  const Result<std::wstring> word = arguments.word("a place");
  return word && word.value().find(L',') != std::wstring::npos;
}

Result<void> pickLine(LineContext& context, Arguments& arguments) {
  if (looksLikePlace(arguments)) return pointLine(context, arguments);
  const Result<std::uint64_t> handle = arguments.handle();
  if (!handle) return handle.error();
  if (const Result<void> end = arguments.end(); !end) return end;
  return context.hands.pickEntity(handle.value());
}

Result<editor::SelectionInput> boxArguments(Arguments& arguments) {
  const Result<std::vector<double>> first = arguments.coordinates(2, 2);
  if (!first) return first.error();
  const Result<std::vector<double>> second = arguments.coordinates(2, 2);
  if (!second) return second.error();
  editor::SelectionInput input;
  input.box = {toPoint(first.value()), toPoint(second.value())};
  return input;
}

Result<editor::SelectionInput> selectionArguments(Arguments& arguments) {
  if (looksLikePlace(arguments)) return boxArguments(arguments);
  Arguments ahead = arguments;
  const Result<std::wstring> word = ahead.word("what to select");
  if (!word) return word.error();
  editor::SelectionInput input;
  if (word.value() == L"all") {
    arguments = ahead;
    input.all = true;
    return input;
  }
  while (!arguments.atEnd()) {
    const Result<std::uint64_t> handle = arguments.handle();
    if (!handle) return handle.error();
    input.handles.push_back(handle.value());
  }
  return input;
}

using Selecting = Result<void> (UserHands::*)(const editor::SelectionInput&);

Result<void> selectWith(const LineContext& context, Selecting select, Arguments& arguments) {
  const Result<editor::SelectionInput> input = selectionArguments(arguments);
  if (!input) return input.error();
  if (const Result<void> end = arguments.end(); !end) return end;
  return (context.hands.*select)(input.value());
}

Result<void> selectLine(LineContext& context, Arguments& arguments) {
  return selectWith(context, &UserHands::select, arguments);
}

Result<void> preselectLine(LineContext& context, Arguments& arguments) {
  return selectWith(context, &UserHands::preselect, arguments);
}

constexpr LineHandler kLines[] = {
    {L"point", pointLine, false, L"X,Y[,Z]", L"clicks there: answers a point prompt, ends a drag"},
    {L"move", moveLine, false, L"X,Y", L"moves the cursor there, a drag follows"},
    {L"pick", pickLine, false, L"X,Y|HANDLE", L"clicks on an entity"},
    {L"select", selectLine, false, L"X,Y X,Y|HANDLE...|all",
     L"answers a selection prompt; @enter ends it"},
    {L"preselect", preselectLine, false, L"X,Y X,Y|HANDLE...|all", L"selects before a command"},
};

}  // namespace

std::span<const LineHandler> pointerLines() {
  return kLines;
}

}  // namespace kovra::host
