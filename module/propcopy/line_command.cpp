#include "module/drawing/current_database.h"
#include "module/frame/commands.h"
#include "module/frame/gates.h"
#include "module/frame/reporting.h"
#include "module/propcopy/line_options.h"
#include "module/propcopy/property_writer.h"

namespace kovra {
namespace {

constexpr UINT kLinePrompt = 2828;
constexpr UINT kLineHelp = 2829;
constexpr UINT kTooFewTokens = 2830;
constexpr UINT kResultLine = 2786;

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

int writeCurrentDrawing(LineRequest& request) {
  AcDbDatabase* database = CurrentDatabase();
  if (request.useDimensionScale && isSizeGiven(request.settings.Height)) {
    request.settings.Height *= database->dimscale();
  }
  return WriteDatabaseProperties(database, request.patterns, request.settings);
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
  auto request = readLineOptions(splitLine(line.GetString()), DataVersionAtLeast(L"12.0"), _wtof);
  if (!request) {
    print(kTooFewTokens);
    return;
  }
  CString result;
  result.Format(ResourceText(kResultLine).GetString(), writeCurrentDrawing(*request));
  acutPrintf(L"%s", result.GetString());
}

}  // namespace kovra
