#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/arx/editor/documents/documents.h"
#include "platform/dxf/result.h"
#include "platform/win/resources/loader.h"

namespace kovra::arx {

/// The open documents and who is told of them; the document manager is its public face.
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

  /// The switch with its notifications, whatever waits; see activate() in document_switch.h.
  void makeCurrent(AcApDocument& document);

  /// Tells the reactors and takes the document out. If it was the current one, none is then.
  void remove(AcApDocument& document);

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

  DocumentList() = default;

  std::vector<std::unique_ptr<AcApDocument>> documents_;
  uint32_t current_ = 0;
  uint32_t lastSerial_ = 0;
  int newDrawings_ = 0;
  int disabled_ = 0;
  std::vector<Registration> reactors_;
};

}  // namespace kovra::arx
