#include "module/frame/send_to_document.h"

namespace kovra {

void SendToDocument(const ACHAR* text) {
  AcApDocManager* documents = acDocManagerPtr();
  AcApDocument* document = documents->curDocument();
  if (document == nullptr) return;
  if (CWnd* frame = acedGetAcadFrame()) frame->SetFocus();
  constexpr bool kActivate = true;
  constexpr bool kWrapUpInactive = false;
  constexpr bool kEcho = false;
  documents->sendStringToExecute(document, text, kActivate, kWrapUpInactive, kEcho);
}

void StartInDocument(const ACHAR* command) {
  const CString line = CString(kCancelCommand) + command + L"\n";
  SendToDocument(line.GetString());
}

}  // namespace kovra
