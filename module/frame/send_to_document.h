#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Two cancels: they end whatever command runs and whatever it asks. A modeless dialog that closes
/// sends them alone.
inline constexpr ACHAR kCancelCommand[] = L"\3\3";

/// Puts characters on the command line of the current document, which becomes the active one, and
/// gives the focus to the main window. They don't show in the transcript. Nothing happens when no
/// document is open.
void SendToDocument(const ACHAR* text);

/// The same with what starts a command in place of any that runs. This is how a modeless dialog
/// gets work done in the document's command context.
void StartInDocument(const ACHAR* command);

}  // namespace kovra
