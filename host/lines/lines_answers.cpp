// Lines that lay answers ready: message boxes, file choices, the clipboard.
#include <filesystem>

#include "host/lines/line_handlers.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

Result<void> answerLine(LineContext& context, Arguments& arguments) {
  const Result<std::wstring> name = arguments.word("an answer");
  if (!name) return name.error();
  if (const Result<void> end = arguments.end(); !end) return end;
  const std::string answer = win::toUtf8(win::lowerCase(name.value()));
  const int button = win::answerButton(answer);
  if (button == 0) return Error{ErrorKind::kInvalidInput, "'" + answer + "' is no answer"};
  context.hands.layAnswer(button);
  return {};
}

// Relative names start from the project's folder, without a project from the current one.
Result<void> filesLine(LineContext& context, Arguments& arguments) {
  const Result<std::vector<std::wstring>> names = arguments.words();
  if (!names) return names.error();
  const std::filesystem::path& project = win::runSettings().projectFolder;
  const auto base = project.empty() ? std::filesystem::current_path() : project;
  std::vector<std::filesystem::path> files;
  for (const std::wstring& name : names.value()) files.push_back(base / win::toUtf8(name));
  context.hands.layFiles(std::move(files));
  return {};
}

Result<void> clipboardLine(LineContext& context, Arguments& arguments) {
  if (!arguments.atEnd()) {
    Result<std::wstring> text = arguments.text("a text");
    if (!text) return text.error();
    win::interaction().setClipboard(std::move(text).value());
    return {};
  }
  win::interaction().freshLine();
  context.out << win::toUtf8(win::interaction().clipboard().value_or(L"")) << '\n';
  return {};
}

constexpr LineHandler kLines[] = {
    {L"answer", answerLine, false, L"ANSWER", L"lays an answer to the next message box ready"},
    {L"files", filesLine, false, L"[PROJECT-FILE...]",
     L"lays an answer to the next file choice ready"},
    {L"clipboard", clipboardLine, false, L"[TEXT]",
     L"puts a text on the clipboard, or prints what is there"},
};

}  // namespace

std::span<const LineHandler> answerLines() {
  return kLines;
}

}  // namespace kovra::host
