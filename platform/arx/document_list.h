#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/arx/documents.h"
#include "platform/dxf/result.h"
#include "platform/win/loader.h"

namespace kovra::arx {

/// The open documents and what happens between them; the document manager is its public face.
class DocumentList {
 public:
  static DocumentList& instance();

  const std::vector<std::unique_ptr<AcApDocument>>& all() const { return documents_; }
  /// Null for a document that was closed.
  AcApDocument* find(uint32_t serial) const;
  AcApDocument* current() const { return find(current_); }

  /// Takes the database into a new document, without activating it.
  AcApDocument& add(std::unique_ptr<AcDbDatabase> database);
  /// Gives the document the names of its file.
  void setFile(AcApDocument& document, const std::string& path);

  /// Whether the document could be activated now.
  Result<void> mayActivate(const AcApDocument& document) const;
  /// Makes it the current one. With another document's prompt waiting, an idle host runs for it
  /// inside this call, until that prompt's document is the current one again.
  Result<void> activate(AcApDocument& document);
  /// Only the switch, with its notifications.
  void makeCurrent(AcApDocument& document);

  /// Closes at once when idle, else marks the document and cancels its prompt; closeMarked() does
  /// the rest.
  Result<void> close(AcApDocument& document);
  /// Closes what is marked and idle by now; true when it did something.
  bool closeMarked();
  bool hasMarkedIdle() const;

  void disableActivation() { ++disabled_; }
  bool enableActivation();
  bool activationEnabled() const { return disabled_ == 0; }

  void addReactor(AcApDocManagerReactor* reactor);
  void removeReactor(AcApDocManagerReactor* reactor);
  /// Calls each reactor that is registered when its turn comes.
  void notify(const std::function<void(AcApDocManagerReactor&)>& tell);

 private:
  struct Registration {
    AcApDocManagerReactor* reactor;
    win::ModuleUse use;
  };

  DocumentList();
  void remove(AcApDocument& document);
  AcApDocument* successor() const;

  std::vector<std::unique_ptr<AcApDocument>> documents_;
  uint32_t current_ = 0;
  uint32_t lastSerial_ = 0;
  int newDrawings_ = 0;
  int disabled_ = 0;
  std::vector<Registration> reactors_;
};

/// The innermost prompt's document if a prompt of a command waits, else null.
AcApDocument* documentOfInnermostPrompt();

}  // namespace kovra::arx
