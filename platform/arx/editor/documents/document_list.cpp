#include "platform/arx/editor/documents/document_list.h"

#include <algorithm>
#include <filesystem>

#include "platform/arx/database/database.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {

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
  if (current_ == serial) {
    current_ = 0;
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  }
  notify([&](AcApDocManagerReactor& reactor) { reactor.documentDestroyed(going->fileName()); });
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
