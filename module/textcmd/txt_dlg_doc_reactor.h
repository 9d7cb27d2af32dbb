#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Sent to a dialog that is tied to a document: the first parameter is TRUE when the document
/// became the active one and FALSE when it is another one's turn. The dialog enables or disables
/// itself.
inline constexpr UINT kDocumentActivatedMessage = 0x791;

/// Ties a modeless text dialog to its document. The dialog makes it, registers it with the document
/// manager and takes it back before it ends; both pointers stay the dialog's.
///
/// While the dialog is hidden, which is while its command asks for input, another document only
/// disables it. Otherwise the dialog gets the command of its Cancel button, posted, since
/// Cancel may end the dialog and this reactor with it.
class TxtDlgDocReactor : public AcApDocManagerReactor {
 public:
  TxtDlgDocReactor(AcApDocument* document, CWnd* dialog) : document_(document), dialog_(dialog) {}
  ~TxtDlgDocReactor() override = default;

  /// Of any document.
  void documentToBeDestroyed(AcApDocument* document) override;
  void documentActivated(AcApDocument* activated) override;

 private:
  void cancelDialog() const;

  AcApDocument* document_;
  CWnd* dialog_;
};

}  // namespace kovra
