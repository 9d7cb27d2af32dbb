#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/arx/base/error_status.h"

class AcApDocManager;
class AcApDocument;
class AcApDocumentIterator;
class AcDbDatabase;
class AcTransactionManager;

namespace kovra::arx {
struct DocumentInput;
class DocumentList;
struct DocumentSession;
}  // namespace kovra::arx

namespace AcAp {
/// How a document is locked; values of the platform.
enum DocLockMode {
  kNone = 0x00,
  kAutoWrite = 0x01,
  kNotLocked = 0x02,
  kWrite = 0x04,
  kProtectedAutoWrite = 0x14,
  kRead = 0x20,
  kXWrite = 0x40
};
}  // namespace AcAp

/// An open drawing: its database, its place on disk, its command line and its session variables.
/// Owned by the document manager; whoever keeps one across a wait keeps its serial() instead.
class AcApDocument {
 public:
  AcApDocument(uint32_t serial, std::unique_ptr<AcDbDatabase> database);
  ~AcApDocument();
  AcApDocument(const AcApDocument&) = delete;
  AcApDocument& operator=(const AcApDocument&) = delete;

  AcDbDatabase* database() const { return database_.get(); }
  /// Full path; the title ("Drawing1.dxf") for a drawing that was never saved.
  const wchar_t* fileName() const { return fileName_.c_str(); }
  const wchar_t* docTitle() const { return title_.c_str(); }
  /// False for a drawing that has no file yet.
  bool isNamedDrawing() const { return named_; }
  AcAp::DocLockMode lockMode(bool includeMyLocks = false) const;
  AcAp::DocLockMode myLockMode() const { return lockMode(true); }
  /// True when neither a command nor a prompt is running in the document.
  bool isQuiescent() const;
  AcTransactionManager* transactionManager() const;

  /// Never used again for another document of this process.
  uint32_t serial() const { return serial_; }
  kovra::arx::DocumentInput& input() const { return *input_; }
  kovra::arx::DocumentSession& session() const { return *session_; }

 private:
  friend class AcApDocManager;
  friend class kovra::arx::DocumentList;

  uint32_t serial_;
  std::unique_ptr<AcDbDatabase> database_;
  std::wstring fileName_;
  std::wstring title_;
  bool named_ = false;
  std::vector<AcAp::DocLockMode> locks_;
  std::unique_ptr<kovra::arx::DocumentInput> input_;
  std::unique_ptr<kovra::arx::DocumentSession> session_;
};

/// Told of what happens to documents. A reactor may remove itself, or any other, from inside a
/// notification; one that is added meanwhile is told from the next notification on.
class AcApDocManagerReactor {
 public:
  virtual ~AcApDocManagerReactor() = default;
  virtual void documentCreated(AcApDocument*) {}
  virtual void documentToBeDestroyed(AcApDocument*) {}
  virtual void documentDestroyed(const wchar_t* /*fileName*/) {}
  virtual void documentToBeDeactivated(AcApDocument*) {}
  virtual void documentBecameCurrent(AcApDocument*) {}
  virtual void documentToBeActivated(AcApDocument*) {}
  virtual void documentActivated(AcApDocument*) {}
  virtual void documentLockModeChanged(AcApDocument*, AcAp::DocLockMode /*myPrevious*/,
                                       AcAp::DocLockMode /*myCurrent*/,
                                       AcAp::DocLockMode /*current*/,
                                       const wchar_t* /*globalCommandName*/) {}
};

/// Walks the documents that were open when it was made, oldest first; closed ones are skipped.
/// Owned by the caller of newAcApDocumentIterator.
class AcApDocumentIterator {
 public:
  bool done() const;
  void step();
  /// Null when done.
  AcApDocument* document() const;

 private:
  friend class AcApDocManager;
  explicit AcApDocumentIterator(std::vector<uint32_t> serials);
  void skipClosed();

  std::vector<uint32_t> serials_;
  size_t at_ = 0;
};

/// The one manager of all open documents.
class AcApDocManager {
 public:
  /// The document whose command or notification runs now; null when none is open.
  AcApDocument* curDocument() const;
  /// The document that has the user's input.
  AcApDocument* mdiActiveDocument() const;
  AcApDocumentIterator* newAcApDocumentIterator();
  int documentCount() const;
  /// The document of a database; null when no open document has it.
  AcApDocument* document(const AcDbDatabase* database) const;

  // What follows may run an idle host; it is defined in commands/document_switch.cpp.

  /// eOk, or why the activation is refused: it is disabled, or the document's prompt lies below
  /// another document's.
  Acad::ErrorStatus activateDocument(AcApDocument* document, bool passScript = false);
  /// Appends to the characters that wait for the document's command line. `activate` makes it the
  /// active document first (queued characters stay when that is refused); `echo` false keeps the
  /// characters out of the transcript. The wrap-up of an inactive document has nothing to do: a
  /// document that isn't active takes its characters when it is next waiting for input.
  Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const wchar_t* text,
                                        bool activate = true, bool wrapUpInactiveDoc = false,
                                        bool echo = true);
  /// Counted: each disable wants its enable.
  Acad::ErrorStatus disableDocumentActivation();
  Acad::ErrorStatus enableDocumentActivation();
  bool isDocumentActivationEnabled() const;

  Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kWrite,
                                 const wchar_t* globalCommandName = nullptr,
                                 const wchar_t* localCommandName = nullptr, bool prompt = true);
  /// eInvalidInput when the document isn't locked.
  Acad::ErrorStatus unlockDocument(AcApDocument* document);

  /// The reactor stays its owner's.
  void addReactor(AcApDocManagerReactor* reactor);
  void removeReactor(AcApDocManagerReactor* reactor);
};

/// Never null.
AcApDocManager* acDocManagerPtr();
#define acDocManager (acDocManagerPtr())

/// Locks a document for the time of a scope; nothing for a database that no document has.
class AcAxDocLock {
 public:
  enum DocLockType { kNormal = 0, kMinimum = 1 };

  AcAxDocLock();
  explicit AcAxDocLock(AcDbDatabase* database, DocLockType type = kNormal);
  ~AcAxDocLock();
  AcAxDocLock(const AcAxDocLock&) = delete;
  AcAxDocLock& operator=(const AcAxDocLock&) = delete;
  Acad::ErrorStatus lockStatus() const { return status_; }

 private:
  void lock(AcApDocument* document);

  uint32_t serial_ = 0;
  Acad::ErrorStatus status_;
};
