#include "module/textcmd/txt_dlg_doc_reactor.h"

#include <memory>

namespace kovra {
namespace {

/// False also when nobody can tell.
bool isOpen(const AcApDocument* document) {
  AcApDocManager* manager = acDocManagerPtr();
  if (manager == nullptr) return false;
  const std::unique_ptr<AcApDocumentIterator> documents(manager->newAcApDocumentIterator());
  if (documents == nullptr) return false;
  for (; !documents->done(); documents->step()) {
    if (documents->document() == document) return true;
  }
  return false;
}

}  // namespace

void TxtDlgDocReactor::documentToBeDestroyed(AcApDocument* /*document*/) {
  cancelDialog();
}

void TxtDlgDocReactor::documentActivated(AcApDocument* activated) {
  if (activated == document_) {
    dialog_->SendMessage(kDocumentActivatedMessage, TRUE);
  } else if (isOpen(document_) && !dialog_->IsWindowVisible()) {
    dialog_->SendMessage(kDocumentActivatedMessage, FALSE);
  } else {
    cancelDialog();
  }
}

void TxtDlgDocReactor::cancelDialog() const {
  dialog_->PostMessage(WM_COMMAND, IDCANCEL);
}

}  // namespace kovra
