#pragma once

class AcApDocument;

/// To be called before an open document is changed from outside its own command, and afterwards.
void BeginDocumentEdit(AcApDocument* document);
void EndDocumentEdit(AcApDocument* document);
