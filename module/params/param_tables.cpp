#include "module/params/param_tables.h"

#include "module/frame/gates.h"
#include "module/frame/reporting.h"
#include "module/params/builtin_params.h"
#include "module/params/param_file.h"

namespace kovra {
namespace {

constexpr UINT kCurrentLayerName = 2731;

/// A value that isn't empty, from the file or else the built-in one; empty without either.
CString paramValue(const ConfigFile* file, const ACHAR* key) {
  CString text;
  ConfigValueRef value;
  if (file != nullptr && file->ReadString(key, value)) {
    text = value.text;
    ConfigFile::ReleaseValue(value);
  }
  return text.IsEmpty() ? CString(BuiltinParam(key)) : text;
}

void readTables(const ConfigFile* file, ParamTables& tables) {
  ReadParamTable(file, kLayerTable, tables.layers);
  ReadParamTable(file, kHeightTable, tables.heights);
  ReadParamTable(file, kWidthFactorTable, tables.widthFactors);
  ReadParamTable(file, kRotationTable, tables.rotations);
  ReadParamTable(file, kRowRatioTable, tables.rowRatios);
}

}  // namespace

CString ParamCountKey(const ACHAR* table) {
  CString key;
  key.Format(L"%s_CNT", table);
  return key;
}

CString ParamRowKey(const ACHAR* table, int row) {
  CString key;
  key.Format(L"%s%d", table, row);
  return key;
}

void ReadParamTable(const ConfigFile* file, const ACHAR* table, TextList& list) {
  const int count = _wtoi(paramValue(file, ParamCountKey(table)));
  int gap = 0;
  for (int row = 0; row < count && gap < kLongestParamGap; ++row) {
    const CString value = paramValue(file, ParamRowKey(table, row + 1));
    gap = value.IsEmpty() ? gap + 1 : 0;
    if (!value.IsEmpty()) TextListAdd(list, value);
  }
}

int LoadParamTables(ParamTables& tables) {
  ProjectHandle project;
  if (!FetchCurrentProject(project, true)) return -1;
  ConfigFile file;
  bool exists = false;
  const bool open = OpenParamFile(file, exists, project, kParamFile, kTextSection, false, true);
  if (!open && !exists) return -1;
  ClearParamTables(tables);
  readTables(open ? &file : nullptr, tables);
  TextListAdd(tables.layers, ResourceText(kCurrentLayerName));
  return 0;
}

void ClearParamTables(ParamTables& tables) {
  ClearTextList(tables.layers);
  ClearTextList(tables.heights);
  ClearTextList(tables.widthFactors);
  ClearTextList(tables.rotations);
  ClearTextList(tables.rowRatios);
}

}  // namespace kovra
