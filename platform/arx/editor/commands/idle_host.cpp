#include "platform/arx/editor/commands/idle_host.h"

#include "platform/arx/editor/commands/command_processor.h"
#include "platform/arx/editor/commands/document_switch.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/prompts/prompt.h"
#include "platform/win/base/interaction.h"

namespace kovra::arx {
namespace {

bool enterRepeats = false;

/// A nested idle host ends when the prompt that it runs inside belongs to the current document.
bool backAtWaitingPrompt(const AcApDocument* beneath) {
  return beneath != nullptr && DocumentList::instance().current() == beneath;
}

void carryOut(const Answer& line) {
  AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr || line.kind != AnswerKind::kText) return;
  std::wstring typed = line.text;
  if (typed.empty() && enterRepeats) typed = document->session().lastCommand;
  if (typed.empty()) return;
  if (!runCommandByName(typed)) refuseAnswer(line, L"Unknown command \"" + typed + L"\".");
}

}  // namespace

void setEnterRepeats(bool repeats) {
  enterRepeats = repeats;
}

void runIdleHost(const std::function<bool()>& stop) {
  Question question;
  question.kind = host::WaitKind::kIdle;
  question.prompt = L"Command: ";
  for (;;) {
    closeMarkedDocuments();
    const AcApDocument* beneath = documentOfInnermostPrompt();
    if ((stop && stop()) || backAtWaitingPrompt(beneath)) return;
    Answer line;
    {
      ActivePrompt idle(0, question);
      const bool input = idle.wait([&] {
        return (stop && stop()) || hasMarkedIdleDocument() || backAtWaitingPrompt(beneath);
      });
      if (!input) return;
      line = idle.takeAnswer();
    }
    carryOut(line);
  }
}

}  // namespace kovra::arx
