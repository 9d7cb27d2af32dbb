#pragma once

#include "platform/dxf/result.h"

class AcApDocument;

// Going from one document to another while prompts wait, and closing documents whose commands still
// run.

namespace kovra::arx {

/// Whether the document could be activated now.
Result<void> mayActivate(const AcApDocument& document);
/// Makes it the current one. With another document's prompt waiting, an idle host runs for it
/// inside this call, until that prompt's document is the current one again.
Result<void> activateDocument(AcApDocument& document);

/// Closes at once when idle, else marks the document and cancels its prompt; closeMarkedDocuments()
/// does the rest.
Result<void> closeDocument(AcApDocument& document);
/// Closes what is marked and idle by now; true when it did something.
bool closeMarkedDocuments();
bool hasMarkedIdleDocument();

}  // namespace kovra::arx
