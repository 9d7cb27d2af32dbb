#include "platform/arx/document_list.h"

#include <algorithm>
#include <filesystem>

#include "platform/arx/database.h"
#include "platform/arx/document_session.h"
#include "platform/arx/idle_host.h"
#include "platform/arx/prompt.h"
#include "platform/win/pump.h"
#include "platform/win/wide_text.h"

namespace kovra::arx {
namespace {

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
    const auto& documents = DocumentList::instance().all();
    return std::any_of(documents.begin(), documents.end(), [](const auto& document) {
      return document->session().closing && !document->isQuiescent();
    });
  }

  static constexpr size_t kNone = static_cast<size_t>(-1);
  size_t pressed_ = kNone;  ///< how deep the dialog lay that was pressed last
};

}  // namespace

AcApDocument* documentOfInnermostPrompt() {
  const auto& waiting = waitingPrompts();
  for (auto prompt = waiting.rbegin(); prompt != waiting.rend(); ++prompt)
    if (!(*prompt)->isIdle()) return (*prompt)->document();
  return nullptr;
}

DocumentList::DocumentList() {
  static SentStrings strings;
  static DialogsOfClosing dialogs;
}

DocumentList& DocumentList::instance() {
  static DocumentList list;
  return list;
}

AcApDocument* DocumentList::find(uint32_t serial) const {
  for (const auto& document : documents_)
    if (document->serial() == serial) return document.get();
  return nullptr;
}

AcApDocument& DocumentList::add(std::unique_ptr<AcDbDatabase> database) {
  documents_.push_back(std::make_unique<AcApDocument>(++lastSerial_, std::move(database)));
  AcApDocument& added = *documents_.back();
  added.title_ = L"Drawing" + std::to_wstring(++newDrawings_) + L".dxf";
  added.fileName_ = added.title_;
  if (const std::string& path = added.database()->path(); !path.empty()) {
    --newDrawings_;
    setFile(added, path);
  }
  const uint32_t serial = added.serial();
  notify([&](AcApDocManagerReactor& reactor) {
    if (AcApDocument* document = find(serial)) reactor.documentCreated(document);
  });
  return added;
}

void DocumentList::setFile(AcApDocument& document, const std::string& path) {
  const std::filesystem::path file(path);
  document.fileName_ = win::fromUtf8(std::filesystem::absolute(file).lexically_normal().string());
  document.title_ = win::fromUtf8(file.filename().string());
  document.named_ = true;
}

Result<void> DocumentList::mayActivate(const AcApDocument& document) const {
  if (document.serial() == current_) return {};
  if (!activationEnabled()) return refused("another drawing can't be activated now");
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

Result<void> DocumentList::activate(AcApDocument& document) {
  if (Result<void> allowed = mayActivate(document); !allowed) return allowed;
  if (document.serial() == current_) return {};
  makeCurrent(document);
  AcApDocument* innermost = documentOfInnermostPrompt();
  const bool belowPrompt = innermost != nullptr && innermost != current();
  const bool idleAlready = innermostPrompt() != nullptr && innermostPrompt()->isIdle();
  if (!belowPrompt || idleAlready) return {};
  const uint32_t waiting = innermost->serial();
  runIdleHost({});
  if (AcApDocument* beneath = find(waiting); beneath != nullptr && beneath->serial() != current_)
    makeCurrent(*beneath);
  return {};
}

void DocumentList::makeCurrent(AcApDocument& document) {
  const uint32_t serial = document.serial();
  const uint32_t before = current_;
  const auto tell = [&](uint32_t whom, void (AcApDocManagerReactor::*what)(AcApDocument*)) {
    notify([&](AcApDocManagerReactor& reactor) {
      if (AcApDocument* found = find(whom)) (reactor.*what)(found);
    });
  };
  tell(before, &AcApDocManagerReactor::documentToBeDeactivated);
  tell(serial, &AcApDocManagerReactor::documentToBeActivated);
  AcApDocument* next = find(serial);
  if (next == nullptr) return;
  current_ = serial;
  acdbHostApplicationServices()->setWorkingDatabase(next->database());
  tell(serial, &AcApDocManagerReactor::documentBecameCurrent);
  tell(serial, &AcApDocManagerReactor::documentActivated);
}

Result<void> DocumentList::close(AcApDocument& document) {
  if (document.isQuiescent()) {
    remove(document);
    return {};
  }
  if (modalOnTop()) return refused("a dialog must be closed first");
  if (documentOfInnermostPrompt() != &document)
    return refused("a command must end before " + win::toUtf8(document.docTitle()) +
                   " can be closed");
  document.session().closing = true;
  document.input().queue.clear();
  if (document.serial() != current_) makeCurrent(document);
  for (ActivePrompt* prompt : waitingPrompts())
    if (!prompt->isIdle() && prompt->document() == &document) prompt->cancel();
  return {};
}

bool DocumentList::hasMarkedIdle() const {
  return std::any_of(documents_.begin(), documents_.end(), [](const auto& document) {
    return document->session().closing && document->isQuiescent();
  });
}

bool DocumentList::closeMarked() {
  bool closed = false;
  while (hasMarkedIdle()) {
    const auto marked = std::find_if(documents_.begin(), documents_.end(), [](const auto& one) {
      return one->session().closing && one->isQuiescent();
    });
    remove(**marked);
    closed = true;
  }
  return closed;
}

AcApDocument* DocumentList::successor() const {
  if (AcApDocument* waiting = documentOfInnermostPrompt()) return waiting;
  return documents_.empty() ? nullptr : documents_.back().get();
}

void DocumentList::remove(AcApDocument& document) {
  const uint32_t serial = document.serial();
  notify([&](AcApDocManagerReactor& reactor) {
    if (AcApDocument* found = find(serial)) reactor.documentToBeDestroyed(found);
  });
  const auto at = std::find_if(documents_.begin(), documents_.end(),
                               [&](const auto& one) { return one->serial() == serial; });
  if (at == documents_.end()) return;
  const std::unique_ptr<AcApDocument> going = std::move(*at);
  documents_.erase(at);
  const bool wasCurrent = current_ == serial;
  if (wasCurrent) {
    current_ = 0;
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  }
  notify([&](AcApDocManagerReactor& reactor) { reactor.documentDestroyed(going->fileName()); });
  if (AcApDocument* next = successor(); wasCurrent && current_ == 0 && next != nullptr)
    makeCurrent(*next);
}

bool DocumentList::enableActivation() {
  if (disabled_ == 0) return false;
  --disabled_;
  return true;
}

void DocumentList::addReactor(AcApDocManagerReactor* reactor) {
  const bool known = std::any_of(reactors_.begin(), reactors_.end(),
                                 [&](const Registration& one) { return one.reactor == reactor; });
  if (reactor != nullptr && !known)
    reactors_.push_back({reactor, win::ModuleUse(reactor, "reactor")});
}

void DocumentList::removeReactor(AcApDocManagerReactor* reactor) {
  std::erase_if(reactors_, [&](const Registration& one) { return one.reactor == reactor; });
}

void DocumentList::notify(const std::function<void(AcApDocManagerReactor&)>& tell) {
  std::vector<AcApDocManagerReactor*> present;
  for (const Registration& one : reactors_) present.push_back(one.reactor);
  for (AcApDocManagerReactor* reactor : present) {
    const bool stillThere = std::any_of(reactors_.begin(), reactors_.end(),
                                        [&](const auto& one) { return one.reactor == reactor; });
    if (stillThere) tell(*reactor);
  }
}

}  // namespace kovra::arx
