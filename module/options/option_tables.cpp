#include "module/options/option_tables.h"

#include <iterator>

#include "module/frame/gates.h"
#include "module/options/option_page_dialog.h"
#include "module/params/param_file.h"
#include "module/params/param_tables.h"

namespace kovra {
namespace {

// With as many digits as their cells show.
constexpr const ACHAR* kLayers[] = {L"CMNT",   L"JCMNT",  L"ECMNT", L"NEWJIS",
                                    L"OLDJIS", L"SYMBOL", L"AUX"};
constexpr const ACHAR* kHeights[] = {L"1.50", L"2.00", L"2.50", L"3.00",
                                     L"3.50", L"4.00", L"4.50", L"5.00"};
constexpr const ACHAR* kWidthFactors[] = {L"1.00", L"0.90", L"0.80", L"0.70"};
constexpr const ACHAR* kRotations[] = {L"0.00", L"90.00", L"-90.00", L"180.00"};
constexpr const ACHAR* kRowRatios[] = {L"1.0", L"1.2", L"1.5", L"1.6666", L"2.0"};

constexpr OptionTable kTables[] = {
    {kLayerTable, 1926, 2805, kTextCells, kLayers, std::size(kLayers)},
    {kHeightTable, 1927, 2806, 2, kHeights, std::size(kHeights)},
    {kWidthFactorTable, 1928, 2807, 2, kWidthFactors, std::size(kWidthFactors)},
    {kRotationTable, 1929, 2808, 2, kRotations, std::size(kRotations)},
    {kRowRatioTable, 3978, 7165, 4, kRowRatios, std::size(kRowRatios)},
};
static_assert(std::size(kTables) == kOptionTables);

/// False, with the text as it was, for a key that the file lacks.
bool readText(const ConfigFile& file, const ACHAR* key, CString& text) {
  ConfigValueRef value;
  if (!file.ReadString(key, value)) return false;
  text = value.text;
  ConfigFile::ReleaseValue(value);
  return true;
}

/// False when the file doesn't count the table.
bool loadFromFile(const ConfigFile& file, const OptionTable& table, CSpreadSheet& grid) {
  CString text;
  if (!readText(file, ParamCountKey(table.name), text)) return false;
  const int count = _wtoi(text);
  int gap = 0;
  grid.SetCol(1);
  for (int row = 0; row < count && gap < kLongestParamGap; ++row) {
    grid.SetRow(row + 1);
    const bool found = readText(file, ParamRowKey(table.name, row + 1), text);
    if (found) grid.SetCellText(text);
    gap = found ? 0 : gap + 1;
  }
  return true;
}

void loadBuiltin(const OptionTable& table, CSpreadSheet& grid) {
  grid.SetCol(1);
  for (int row = 0; row < table.builtinCount; ++row) {
    grid.SetRow(row + 1);
    grid.SetCellText(table.builtinRows[row]);
  }
}

/// The rows that aren't empty, then how many they are; false when a write failed.
bool writeTable(ConfigFile& file, const OptionTable& table, CSpreadSheet& grid) {
  int written = 0;
  bool done = true;
  grid.SetCol(1);
  const LONG last = SSGetMaxRows(grid.m_hWnd);
  for (int row = 1; done && row <= last; ++row) {
    grid.SetRow(row);
    CString text = grid.GetCellText();
    text.Trim();
    if (text.IsEmpty()) continue;
    done = file.WriteString(ParamRowKey(table.name, written + 1), text);
    if (done) ++written;
  }
  CString count;
  count.Format(L"%d", written);
  return file.WriteString(ParamCountKey(table.name), count) && done;
}

}  // namespace

const OptionTable& OptionTableAt(int index) {
  return kTables[index];
}

int LoadOptionTables(COptionPage1& page) {
  for (int i = 0; i < page.TableCount; ++i) page.Grids[i].SetGridRedraw(false);
  ProjectHandle project;
  ConfigFile file;
  const bool open = FetchCurrentProject(project, false) &&
                    OpenParamFileForEdit(file, project, kParamFile, kTextSection, false, false);
  int failures = open ? 0 : 1;
  for (int i = 0; i < page.TableCount; ++i) {
    if (open && loadFromFile(file, kTables[i], page.Grids[i])) continue;
    if (open) ++failures;
    loadBuiltin(kTables[i], page.Grids[i]);
  }
  for (int i = 0; i < page.TableCount; ++i) page.Grids[i].SetGridRedraw(true);
  return failures;
}

bool SaveOptionTables(COptionPage1& page) {
  ProjectHandle project;
  FetchCurrentProject(project, true);
  ConfigFile file;
  if (!OpenParamFileForEdit(file, project, kParamFile, kTextSection, true, false)) return false;
  bool done = true;
  for (int i = 0; i < page.TableCount; ++i) {
    // A table without a grid, whose window couldn't be made, isn't an empty one.
    if (page.Grids[i].m_hWnd == nullptr) continue;
    done = writeTable(file, kTables[i], page.Grids[i]) && done;
  }
  return done && file.Save();
}

}  // namespace kovra
