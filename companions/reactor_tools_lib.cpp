#include "module/frame/companions/reactor_tools_lib.h"

#include "platform/arx/database/database.h"
#include "platform/arx/database/journal.h"
#include "platform/arx/editor/documents/documents.h"

namespace {

// Changes in the current document belong to the command that makes them. In another one they are a
// step of their own, so that U there takes back nothing else.
void beginOwnStep(AcApDocument* document) {
  if (document && document != acDocManagerPtr()->curDocument())
    document->database()->journal().beginStep(L"EDIT");
}

}  // namespace

void BeginDocumentEdit(AcApDocument* document) {
  beginOwnStep(document);
}

void EndDocumentEdit(AcApDocument* document) {
  beginOwnStep(document);
}
