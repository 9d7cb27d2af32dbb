#include "platform/arx/editor/host_api.h"

#include "platform/arx/database/database.h"
#include "platform/arx/database/transaction_manager.h"
#include "platform/arx/editor/commands/command_processor.h"
#include "platform/arx/editor/commands/document_switch.h"
#include "platform/arx/editor/commands/idle_host.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/host/message_hooks.h"
#include "platform/arx/editor/prompts/prompt.h"
#include "platform/dxf/file_bytes.h"
#include "platform/dxf/record_store.h"
#include "platform/win/base/pump.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx::host {
namespace {

namespace fs = std::filesystem;

Error refused(std::string message) {
  return {ErrorKind::kInvalidInput, std::move(message)};
}

AcApDocument* find(DrawingId id) {
  return DocumentList::instance().find(id);
}

Error notOpen() {
  return {ErrorKind::kNotFound, "no such drawing is open"};
}

/// Where the drawing is saved; empty when nobody has said.
const std::string& fileOf(const AcApDocument& document) {
  const std::optional<RecoveredFrom>& recovered = document.session().recovered;
  return recovered ? recovered->file : document.database()->path();
}

/// The document of a file that is open already.
AcApDocument* findFile(const fs::path& file) {
  std::error_code ignored;
  for (const auto& document : DocumentList::instance().all()) {
    const std::string& path = fileOf(*document);
    if (!path.empty() && fs::equivalent(path, file, ignored)) return document.get();
  }
  return nullptr;
}

Result<DrawingId> activated(AcApDocument& document) {
  const DrawingId id = document.serial();
  const Result<void> result = activateDocument(document);
  if (!result) return result.error();
  return id;
}

/// A new document could be activated, which every new document is.
Result<void> mayOpen() {
  const AcApDocument* current = DocumentList::instance().current();
  if (current == nullptr) return {};
  if (!DocumentList::instance().activationEnabled())
    return refused("another drawing can't be activated now");
  const win::Wait* top = win::Pump::instance().topWait();
  if (top != nullptr && top->kind == win::WaitKind::modalDialog)
    return refused("a dialog must be closed first");
  return {};
}

bool modalOnTop() {
  const win::Wait* top = win::Pump::instance().topWait();
  return top != nullptr && top->kind == win::WaitKind::modalDialog;
}

/// A file that was changed since it was copied isn't written over.
Result<void> mayTakePlace(const RecoveredFrom& recovered, const std::string& target) {
  std::error_code ignored;
  const Result<dxf::FileStamp> there = dxf::stampOf(target);
  if (!there || (target != recovered.file && !fs::equivalent(target, recovered.file, ignored)))
    return {};
  if (recovered.stamp && *recovered.stamp == there.value()) return {};
  return Error{ErrorKind::kChangedOnDisk,
               target + ": the file was changed by another program since it was copied"};
}

}  // namespace

Result<DrawingId> openDrawing(const fs::path& file) {
  if (AcApDocument* open = findFile(file)) return activated(*open);
  if (Result<void> allowed = mayOpen(); !allowed) return allowed.error();
  auto database = std::make_unique<AcDbDatabase>(false);
  if (Result<void> opened = database->open(file.string()); !opened) return opened.error();
  return activated(DocumentList::instance().add(std::move(database)));
}

Result<DrawingId> newDrawing() {
  if (Result<void> allowed = mayOpen(); !allowed) return allowed.error();
  return activated(DocumentList::instance().add(std::make_unique<AcDbDatabase>(true)));
}

Result<DrawingId> recoverDrawing(const fs::path& copy, const fs::path& file, bool unchanged) {
  if (Result<void> allowed = mayOpen(); !allowed) return allowed.error();
  auto bytes = std::make_unique<AcDbDatabase>(false);
  if (Result<void> opened = bytes->open(copy.string()); !opened) return opened.error();
  AcApDocument& document = DocumentList::instance().add(std::move(bytes));
  RecoveredFrom recovered{file.string(), {}};
  if (const auto stamp = dxf::stampOf(recovered.file); stamp && unchanged)
    recovered.stamp = stamp.value();
  document.session().recovered = std::move(recovered);
  if (!file.empty()) DocumentList::instance().setFile(document, file.string());
  return activated(document);
}

Result<void> saveDrawing(DrawingId id, const fs::path* file, SaveOptions options) {
  AcApDocument* document = find(id);
  if (document == nullptr) return notOpen();
  AcDbDatabase& database = *document->database();
  const std::string own = fileOf(*document);
  if (file == nullptr && own.empty())
    return refused("the drawing has no file yet: say where to save it");
  // What a command may still take back is no state of the drawing.
  if (database.transactionManager()->numActiveTransactions() > 0)
    return refused("a command is changing the drawing: end or cancel it first");
  const AcApDocument* other = file != nullptr ? findFile(*file) : nullptr;
  if (options.rename && other != nullptr && other != document)
    return refused("another open drawing has this file");
  std::error_code ignored;
  dxf::SaveOptions how;
  how.backup = options.backup;
  how.adopt = !options.copy && (options.rename || file == nullptr || own.empty() ||
                                fs::equivalent(own, *file, ignored));
  const std::string target = file != nullptr ? file->string() : own;
  if (const auto& recovered = document->session().recovered; recovered && how.adopt)
    if (Result<void> allowed = mayTakePlace(*recovered, target); !allowed) return allowed;
  Result<void> saved = database.save(target, how);
  if (!saved || !how.adopt) return saved;
  document->session().recovered.reset();
  DocumentList::instance().setFile(*document, database.path());
  return saved;
}

Result<void> closeDrawing(DrawingId id) {
  AcApDocument* document = find(id);
  return document != nullptr ? closeDocument(*document) : notOpen();
}

Result<DrawingId> reloadDrawing(DrawingId id) {
  AcApDocument* document = find(id);
  if (document == nullptr) return notOpen();
  auto database = std::make_unique<AcDbDatabase>(false);
  if (Result<void> read = database->open(fileOf(*document)); !read) return read.error();
  if (Result<void> closed = closeDocument(*document); !closed) return closed.error();
  return activated(DocumentList::instance().add(std::move(database)));
}

Result<void> activateDrawing(DrawingId id) {
  AcApDocument* document = find(id);
  return document != nullptr ? activateDocument(*document) : notOpen();
}

std::vector<DrawingInfo> drawings() {
  std::vector<DrawingInfo> infos;
  for (const auto& document : DocumentList::instance().all())
    infos.push_back(
        {document->serial(), fileOf(*document), document->docTitle(),
         document->database()->isModified() || document->session().recovered.has_value()});
  return infos;
}

DrawingId currentDrawing() {
  const AcApDocument* document = DocumentList::instance().current();
  return document != nullptr ? document->serial() : 0;
}

void bindCommand(std::wstring_view name, std::function<void()> run, std::wstring_view summary) {
  CommandTable::instance().bind(name, {std::move(run), std::wstring(summary)});
}

void unbindCommand(std::wstring_view name) {
  CommandTable::instance().unbind(name);
}

void runIdle(const std::function<bool()>& stop) {
  runIdleHost(stop);
}

Wait topWait() {
  Wait wait;
  wait.modalOnTop = modalOnTop();
  const ActivePrompt* prompt = innermostPrompt();
  if (prompt == nullptr || (!wait.modalOnTop && prompt != topPrompt())) return wait;
  const AcApDocument* document = prompt->document();
  if (document == nullptr) return wait;
  wait.kind = prompt->question().kind;
  wait.drawing = document->serial();
  wait.prompt = prompt->question().prompt;
  wait.names = prompt->question().names;
  wait.takesBlanks = prompt->question().blanks == Blanks::kText;
  if (const KeywordList* keywords = prompt->question().keywords; keywords != nullptr)
    for (size_t i = 0; i < keywords->size(); ++i) wait.keywords.push_back(keywords->localName(i));
  if (!document->session().commands.empty()) wait.command = document->session().commands.back();
  return wait;
}

Wait answerCancel() {
  const Wait wait = topWait();
  ActivePrompt* prompt = topPrompt();
  if (prompt != nullptr) prompt->cancel();
  return wait;
}

Result<void> typeText(std::wstring_view characters) {
  AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr) return refused("no drawing is open");
  if (modalOnTop()) return refused("a dialog or a message box is open");
  focusDrawing();
  document->input().append(characters, true);
  return {};
}

void setEnterRepeats(bool repeats) {
  arx::setEnterRepeats(repeats);
}

void setInputShown(bool shown) {
  showInput(shown);
}

}  // namespace kovra::arx::host
