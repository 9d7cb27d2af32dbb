#include "platform/arx/editor/documents/documents.h"

#include <algorithm>
#include <filesystem>

#include "platform/arx/database/database.h"
#include "platform/arx/editor/documents/document_input.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/win/base/wide_text.h"

using kovra::arx::DocumentList;

void kovra::arx::DocumentInput::append(std::wstring_view text, bool echo) {
  for (const wchar_t c : text) queue.push_back({c, echo});
}

AcApDocument::AcApDocument(uint32_t serial, std::unique_ptr<AcDbDatabase> database)
    : serial_(serial),
      database_(std::move(database)),
      input_(std::make_unique<kovra::arx::DocumentInput>()),
      session_(std::make_unique<kovra::arx::DocumentSession>()) {}

AcApDocument::~AcApDocument() = default;

AcAp::DocLockMode AcApDocument::lockMode(bool) const {
  return locks_.empty() ? AcAp::kNotLocked : locks_.back();
}

bool AcApDocument::isQuiescent() const {
  return session_->commands.empty();
}

AcTransactionManager* AcApDocument::transactionManager() const {
  return database_->transactionManager();
}

AcApDocumentIterator::AcApDocumentIterator(std::vector<uint32_t> serials)
    : serials_(std::move(serials)) {
  skipClosed();
}

void AcApDocumentIterator::skipClosed() {
  while (at_ < serials_.size() && DocumentList::instance().find(serials_[at_]) == nullptr) ++at_;
}

bool AcApDocumentIterator::done() const {
  return at_ >= serials_.size();
}

void AcApDocumentIterator::step() {
  if (!done()) ++at_;
  skipClosed();
}

AcApDocument* AcApDocumentIterator::document() const {
  return done() ? nullptr : DocumentList::instance().find(serials_[at_]);
}

AcApDocManager* acDocManagerPtr() {
  static AcApDocManager manager;
  return &manager;
}

AcApDocument* AcApDocManager::curDocument() const {
  return DocumentList::instance().current();
}

AcApDocument* AcApDocManager::mdiActiveDocument() const {
  return DocumentList::instance().current();
}

AcApDocumentIterator* AcApDocManager::newAcApDocumentIterator() {
  std::vector<uint32_t> serials;
  for (const auto& document : DocumentList::instance().all()) serials.push_back(document->serial());
  return new AcApDocumentIterator(std::move(serials));
}

int AcApDocManager::documentCount() const {
  return static_cast<int>(DocumentList::instance().all().size());
}

AcApDocument* AcApDocManager::document(const AcDbDatabase* database) const {
  for (const auto& document : DocumentList::instance().all())
    if (document->database() == database) return document.get();
  return nullptr;
}

Acad::ErrorStatus AcApDocManager::disableDocumentActivation() {
  DocumentList::instance().disableActivation();
  return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::enableDocumentActivation() {
  return DocumentList::instance().enableActivation() ? Acad::eOk : Acad::eInvalidInput;
}

bool AcApDocManager::isDocumentActivationEnabled() const {
  return DocumentList::instance().activationEnabled();
}

Acad::ErrorStatus AcApDocManager::lockDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                               const wchar_t* globalCommandName, const wchar_t*,
                                               bool) {
  if (document == nullptr) return Acad::eNoDocument;
  const AcAp::DocLockMode before = document->lockMode();
  document->locks_.push_back(mode);
  DocumentList::instance().notify([&](AcApDocManagerReactor& reactor) {
    reactor.documentLockModeChanged(document, before, mode, mode, globalCommandName);
  });
  return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::unlockDocument(AcApDocument* document) {
  if (document == nullptr || document->locks_.empty()) return Acad::eInvalidInput;
  const AcAp::DocLockMode before = document->lockMode();
  document->locks_.pop_back();
  const AcAp::DocLockMode now = document->lockMode();
  DocumentList::instance().notify([&](AcApDocManagerReactor& reactor) {
    reactor.documentLockModeChanged(document, before, now, now, nullptr);
  });
  return Acad::eOk;
}

void AcApDocManager::addReactor(AcApDocManagerReactor* reactor) {
  DocumentList::instance().addReactor(reactor);
}

void AcApDocManager::removeReactor(AcApDocManagerReactor* reactor) {
  DocumentList::instance().removeReactor(reactor);
}

AcAxDocLock::AcAxDocLock() : status_(Acad::eNoDocument) {
  lock(acDocManagerPtr()->curDocument());
}

AcAxDocLock::AcAxDocLock(AcDbDatabase* database, DocLockType) : status_(Acad::eOk) {
  if (AcApDocument* document = acDocManagerPtr()->document(database)) lock(document);
}

void AcAxDocLock::lock(AcApDocument* document) {
  if (document == nullptr) return;
  serial_ = document->serial();
  status_ = acDocManagerPtr()->lockDocument(document);
}

AcAxDocLock::~AcAxDocLock() {
  AcApDocument* document = DocumentList::instance().find(serial_);
  if (document != nullptr && status_ == Acad::eOk) acDocManagerPtr()->unlockDocument(document);
}
