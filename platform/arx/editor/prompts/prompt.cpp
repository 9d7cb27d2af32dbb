#include "platform/arx/editor/prompts/prompt.h"

#include <algorithm>

#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/prompts/command_tokens.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/pump.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

constexpr wchar_t kCancelKey = 3;
constexpr wchar_t kBackspace = 8;

bool inputIsShown = true;

std::vector<ActivePrompt*>& prompts() {
  static std::vector<ActivePrompt*> waiting;
  return waiting;
}

std::wstring_view withoutLeadingBreaks(std::wstring_view text) {
  const size_t begin = text.find_first_not_of(L"\r\n");
  return begin == std::wstring_view::npos ? std::wstring_view() : text.substr(begin);
}

}  // namespace

bool inputShown() {
  return inputIsShown;
}

void showInput(bool shown) {
  inputIsShown = shown;
}

const std::vector<ActivePrompt*>& waitingPrompts() {
  return prompts();
}

ActivePrompt* innermostPrompt() {
  return prompts().empty() ? nullptr : prompts().back();
}

ActivePrompt* topPrompt() {
  ActivePrompt* prompt = innermostPrompt();
  const bool onTop = prompt != nullptr && prompt->pumpDepth_ == win::Pump::instance().depth();
  return onTop ? prompt : nullptr;
}

ActivePrompt::ActivePrompt(uint32_t document, const Question& question)
    : document_(document), question_(question) {
  prompts().push_back(this);
}

ActivePrompt::~ActivePrompt() {
  std::erase(prompts(), this);
}

AcApDocument* ActivePrompt::document() const {
  DocumentList& documents = DocumentList::instance();
  return isIdle() ? documents.current() : documents.find(document_);
}

Answer ActivePrompt::takeAnswer() {
  Answer taken = answer_ ? std::move(*answer_) : Answer{};
  answer_.reset();
  return taken;
}

void ActivePrompt::show() {
  const std::wstring_view text = withoutLeadingBreaks(question_.prompt);
  if (isIdle() || !inputIsShown || text.empty()) return;
  win::interaction().freshLine();
  win::interaction().print(text);
}

bool ActivePrompt::wait(const std::function<bool()>& stop) {
  win::Pump& pump = win::Pump::instance();
  pumpDepth_ = pump.depth() + 1;
  show();
  win::Wait wait;
  wait.kind = isIdle() ? win::WaitKind::idleHost : win::WaitKind::prompt;
  wait.what = win::toUtf8(withoutLeadingBreaks(question_.prompt));
  if (!isIdle()) wait.cancel = [this] { cancel(); };
  return pump.runUntil([&] { return answered() || (stop && stop()); }, std::move(wait));
}

bool ActivePrompt::blankAccepts() const {
  if (question_.blanks == Blanks::kText) return false;
  if (question_.blanks == Blanks::kAccept) return true;
  const std::wstring& line = document()->input().line;
  return std::count(line.begin(), line.end(), L'"') % 2 == 0;
}

bool ActivePrompt::readCharacter() {
  AcApDocument* asked = document();
  if (answered() || asked == nullptr || asked->input().queue.empty()) return false;
  DocumentInput& input = asked->input();
  const QueuedCharacter next = input.queue.front();
  input.queue.pop_front();
  input.lineShown = (input.line.empty() || input.lineShown) && next.echo;
  switch (next.character) {
    case kCancelKey:
      cancel();
      break;
    case kBackspace:
      if (!input.line.empty()) input.line.pop_back();
      break;
    case L'\n':
    case L'\r':
      accept();
      break;
    case L' ':
    case L'\t':
      if (blankAccepts())
        accept();
      else
        input.line += next.character;
      break;
    default:
      input.line += next.character;
  }
  return true;
}

void ActivePrompt::accept() {
  DocumentInput& input = document()->input();
  Answer given;
  given.kind = AnswerKind::kText;
  given.text = std::move(input.line);
  input.line.clear();
  if (inputIsShown && input.lineShown) {
    if (isIdle() && !given.text.empty()) {
      win::interaction().freshLine();
      win::interaction().print(question_.prompt);
    }
    win::interaction().print(given.text);
  }
  if (inputIsShown) win::interaction().freshLine();
  answer(std::move(given));
}

void ActivePrompt::answer(Answer given) {
  if (AcApDocument* asked = document(); asked != nullptr) asked->input().line.clear();
  answer_ = std::move(given);
}

void ActivePrompt::cancel() {
  AcApDocument* asked = document();
  const bool showIt =
      inputIsShown && asked != nullptr && (!isIdle() || !asked->input().line.empty());
  if (showIt) {
    if (isIdle()) win::interaction().freshLine();
    win::interaction().print(L"*Cancel*");
    win::interaction().freshLine();
  }
  if (isIdle() && asked != nullptr) asked->session().implied.clear();
  answer(Answer{});
}

Answer ask(AcApDocument& document, const Question& question) {
  if (document.session().closing) return Answer{};
  if (TokenFrame* frame = TokenFrame::current()) return frame->next(document, question);
  ActivePrompt prompt(document.serial(), question);
  if (!prompt.wait({}) && !prompt.answered()) prompt.cancel();
  return prompt.takeAnswer();
}

Answer ask(const Question& question) {
  AcApDocument* document = DocumentList::instance().current();
  return document != nullptr ? ask(*document, question) : Answer{};
}

bool messagesShown() {
  const TokenFrame* frame = TokenFrame::current();
  return frame == nullptr || frame->shown();
}

void showMessage(std::wstring_view line) {
  if (!messagesShown()) return;
  win::interaction().freshLine();
  win::interaction().print(line);
  win::interaction().freshLine();
}

void refuseAnswer(const Answer& answer, std::wstring_view why) {
  showMessage(why);
  if (!answer.fromTokens) win::interaction().noteFailure(win::toUtf8(why));
}

AcApDocument* documentOfInnermostPrompt() {
  const auto& waiting = waitingPrompts();
  for (auto prompt = waiting.rbegin(); prompt != waiting.rend(); ++prompt)
    if (!(*prompt)->isIdle()) return (*prompt)->document();
  return nullptr;
}

}  // namespace kovra::arx
