#pragma once

#include <cstdint>
#include <memory>

#include "module/params/param_tables.h"
#include "module/textcmd/text_dlg.h"
#include "module/textcmd/text_input.h"

namespace kovra {

/// One run of the Text command below data version "7.00": from the dialog's appearance to its end
/// texts are placed one after another. There is one for the whole process at a time, whatever
/// document it was started in.
struct TextRun {
  TextRun() = default;
  /// Takes dialog and preview away if EndTextCommand didn't.
  ~TextRun();
  TextRun(const TextRun&) = delete;
  TextRun& operator=(const TextRun&) = delete;

  ParamTables TextTables;
  std::unique_ptr<CTextDlg> TextDialog;
  std::unique_ptr<AcDbText> preview;  ///< TextPreview points to it
  std::uint32_t TextState = 0;        ///< state to run next, see text_states.h
  std::uint32_t TextReturnState = 0;  ///< state to go back to after a pick
  ads_point TextPoint = {};           ///< where the next text goes, in the UCS
  TextInput TextBuffer = {};          ///< its value; empty after each placed text
};

/// Brings up the dialog, makes the preview and begins the first undo step.
/// @param run a new one; with a result other than 0 it holds nothing of the running command's
/// @return 0; 1 when a run exists, which isn't touched; -1 when the command can't run, after it has
///         said why
int StartTextCommand(TextRun& run);

/// Stores what the next run starts with, and takes dialog and preview away.
void EndTextCommand(TextRun& run);

}  // namespace kovra
