#include "platform/arx/editor/commands/document_switch.h"

#include <algorithm>

#include "platform/arx/editor/commands/idle_host.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/prompts/prompt.h"
#include "platform/win/base/pump.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

DocumentList& documents() {
  return DocumentList::instance();
}

/// What was sent to documents and what is left over of typed lines; read by whoever waits on top.
class SentStrings : public win::PumpSource {
 public:
  SentStrings() { win::Pump::instance().addSource(win::kSentStrings, this); }

  bool dispatchOne() override {
    ActivePrompt* prompt = topPrompt();
    return prompt != nullptr && prompt->readCharacter();
  }
};

Error refused(std::string message) {
  return {ErrorKind::kInvalidInput, std::move(message)};
}

/// The command of a document as messages name it.
std::string runningCommand(const AcApDocument& document) {
  const auto& commands = document.session().commands;
  return commands.empty() ? "a command" : win::toUtf8(commands.back());
}

bool modalOnTop() {
  const win::Wait* wait = win::Pump::instance().topWait();
  return wait != nullptr && wait->kind == win::WaitKind::modalDialog;
}

/// Presses Cancel in the modal dialogs of commands whose drawing is being closed, from the
/// innermost out. One that stays, or brings up another, is left to the user.
class DialogsOfClosing : public win::PumpSource {
 public:
  DialogsOfClosing() { win::Pump::instance().addSource(win::kSentStrings, this); }

  bool dispatchOne() override {
    win::Pump& pump = win::Pump::instance();
    if (!closes()) {
      pressed_ = kNone;
      return false;
    }
    if (!modalOnTop() || pump.depth() >= pressed_) return false;
    pressed_ = pump.depth();
    return pump.cancelTopWait();
  }

 private:
  static bool closes() {
    const auto& all = documents().all();
    return std::any_of(all.begin(), all.end(), [](const auto& document) {
      return document->session().closing && !document->isQuiescent();
    });
  }

  static constexpr size_t kNone = static_cast<size_t>(-1);
  size_t pressed_ = kNone;  ///< how deep the dialog lay that was pressed last
};

// Sources of the pump from the start on, in the order in which they are asked.
SentStrings sentStrings;
DialogsOfClosing dialogsOfClosing;

AcApDocument* successor() {
  if (AcApDocument* waiting = documentOfInnermostPrompt()) return waiting;
  return documents().all().empty() ? nullptr : documents().all().back().get();
}

/// Takes a document away; the one whose prompt waits, else the last one, becomes current.
void removeDocument(AcApDocument& document) {
  const bool wasCurrent = &document == documents().current();
  documents().remove(document);
  AcApDocument* next = successor();
  if (wasCurrent && documents().current() == nullptr && next != nullptr)
    documents().makeCurrent(*next);
}

}  // namespace

Result<void> mayActivate(const AcApDocument& document) {
  if (&document == documents().current()) return {};
  if (!documents().activationEnabled()) return refused("another drawing can't be activated now");
  if (modalOnTop()) return refused("a dialog must be closed first");
  const AcApDocument* innermost = documentOfInnermostPrompt();
  const bool waitsBelow = std::any_of(
      waitingPrompts().begin(), waitingPrompts().end(),
      [&](ActivePrompt* prompt) { return !prompt->isIdle() && prompt->document() == &document; });
  if (waitsBelow && innermost != &document)
    return refused(runningCommand(*innermost) + " in " + win::toUtf8(innermost->docTitle()) +
                   " must end first");
  return {};
}

Result<void> activateDocument(AcApDocument& document) {
  if (Result<void> allowed = mayActivate(document); !allowed) return allowed;
  if (&document == documents().current()) return {};
  documents().makeCurrent(document);
  AcApDocument* innermost = documentOfInnermostPrompt();
  const bool belowPrompt = innermost != nullptr && innermost != documents().current();
  const bool idleAlready = innermostPrompt() != nullptr && innermostPrompt()->isIdle();
  if (!belowPrompt || idleAlready) return {};
  const uint32_t waiting = innermost->serial();
  runIdleHost({});
  if (AcApDocument* beneath = documents().find(waiting);
      beneath != nullptr && beneath != documents().current())
    documents().makeCurrent(*beneath);
  return {};
}

Result<void> closeDocument(AcApDocument& document) {
  if (document.isQuiescent()) {
    removeDocument(document);
    return {};
  }
  if (modalOnTop()) return refused("a dialog must be closed first");
  if (documentOfInnermostPrompt() != &document)
    return refused("a command must end before " + win::toUtf8(document.docTitle()) +
                   " can be closed");
  document.session().closing = true;
  document.input().queue.clear();
  if (&document != documents().current()) documents().makeCurrent(document);
  for (ActivePrompt* prompt : waitingPrompts())
    if (!prompt->isIdle() && prompt->document() == &document) prompt->cancel();
  return {};
}

bool hasMarkedIdleDocument() {
  return std::any_of(documents().all().begin(), documents().all().end(), [](const auto& document) {
    return document->session().closing && document->isQuiescent();
  });
}

bool closeMarkedDocuments() {
  bool closed = false;
  while (hasMarkedIdleDocument()) {
    const auto marked =
        std::find_if(documents().all().begin(), documents().all().end(),
                     [](const auto& one) { return one->session().closing && one->isQuiescent(); });
    removeDocument(**marked);
    closed = true;
  }
  return closed;
}

}  // namespace kovra::arx

Acad::ErrorStatus AcApDocManager::activateDocument(AcApDocument* document, bool) {
  if (document == nullptr) return Acad::eNoDocument;
  return kovra::arx::activateDocument(*document).ok() ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus AcApDocManager::sendStringToExecute(AcApDocument* document, const wchar_t* text,
                                                      bool activate, bool, bool echo) {
  if (document == nullptr || text == nullptr) return Acad::eInvalidInput;
  document->input().append(text, echo);
  return activate ? activateDocument(document) : Acad::eOk;
}
