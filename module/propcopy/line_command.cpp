#include "module/drawing/current_database.h"
#include "module/frame/commands.h"
#include "module/frame/gates.h"
#include "module/frame/reporting.h"
#include "module/propcopy/copy_result.h"
#include "module/propcopy/line_options.h"
#include "module/propcopy/property_writer.h"

namespace kovra {
namespace {

constexpr UINT kLinePrompt = 2828;
constexpr UINT kLineHelp = 2829;
constexpr UINT kTooFewTokens = 2830;

constexpr int kLineLength = 512;

/// Asks for the line. Empty when there is nothing to do.
CString askLine() {
  ACHAR buffer[kLineLength] = {};
  const int result = acedGetString(1, ResourceText(kLinePrompt).GetString(), buffer);
  return result == RTNORM ? CString(buffer) : CString();
}

void print(UINT id) {
  acutPrintf(L"%s", ResourceText(id).GetString());
}

int writeCurrentDrawing(const CopyJob& job) {
  AcDbDatabase* database = CurrentDatabase();
  return WriteDatabaseProperties(database, job.patterns, job.settingsAt(database->dimscale()));
}

}  // namespace

void PropertyCopyLineCommand() {
  CString line = askLine();
  if (line.IsEmpty()) return;
  line.Trim();
  line.MakeUpper();
  if (line == L"/?") {
    print(kLineHelp);
    return;
  }
  const auto job = readLineOptions(splitLine(line.GetString()), DataVersionAtLeast(L"12.0"), _wtof);
  if (!job) {
    print(kTooFewTokens);
    return;
  }
  acutPrintf(L"%s", ObjectsChangedText(writeCurrentDrawing(*job)).GetString());
}

}  // namespace kovra
