#include "module/frame/companions/reactor_tools_lib.h"

#include <string>

#include "platform/arx/database/database.h"
#include "platform/arx/database/journal.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/editor.h"

namespace {

// What U says that it takes back.
std::wstring runningCommand() {
  resbuf value{};
  if (acedGetVar(L"CMDNAMES", &value) != RTNORM || !value.resval.rstring) return L"EDIT";
  std::wstring name = value.resval.rstring;
  acutDelString(value.resval.rstring);
  return name.empty() ? L"EDIT" : name;
}

// Changes in the current document belong to the command that makes them. In another one they are a
// step of their own, so that U there takes back nothing else.
void beginOwnStep(AcApDocument* document) {
  if (document && document != acDocManagerPtr()->curDocument())
    document->database()->journal().beginStep(runningCommand());
}

}  // namespace

void BeginDocumentEdit(AcApDocument* document) {
  beginOwnStep(document);
}

void EndDocumentEdit(AcApDocument* document) {
  beginOwnStep(document);
}
