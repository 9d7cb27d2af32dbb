#pragma once

#include "module/drawing/text_list.h"
#include "module/frame/companions/project_lib.h"
#include "module/frame/seam.h"

/// The lists of usual values that the text dialogs offer. They belong to the project: five tables
/// in section TEXT of its parameter file, each with a key for the number of its rows ("LAYER_CNT")
/// and keys numbered from 1 for the rows ("LAYER1"). Every key that the file lacks, or that it
/// leaves empty, has a built-in value, so file and built-in values mix row by row.
namespace kovra {

inline constexpr const ACHAR* kLayerTable = L"LAYER";
inline constexpr const ACHAR* kHeightTable = L"TEXT_H";  ///< heights on paper
inline constexpr const ACHAR* kWidthFactorTable = L"TEXT_WF";
inline constexpr const ACHAR* kRotationTable = L"TEXT_ROT";    ///< degrees
inline constexpr const ACHAR* kRowRatioTable = L"TEXT_ROW_R";  ///< row spacing to text height

/// The format sets no limit to the number of rows, and ConfigFile can't say which keys it has. A
/// damaged number of up to 2^31 would have every one of them asked for. So the rows are taken to
/// be at their end where this many in a row have no value: far more than anyone leaves out by
/// hand, and still asked for in a moment.
inline constexpr int kLongestParamGap = 10000;

/// Key of a table's number of rows, and of one of its rows.
CString ParamCountKey(const ACHAR* table);
CString ParamRowKey(const ACHAR* table, int row);

/// The values of all tables, as texts.
struct ParamTables {
  TextList layers;  ///< the last one is always the name shown for the current layer
  TextList heights;
  TextList widthFactors;
  TextList rotations;
  TextList rowRatios;
};

/// Appends the rows of a table to a list; a row that has no value is left out.
/// @param file with its section TEXT selected; null: the built-in values alone
void ReadParamTable(const ConfigFile* file, const ACHAR* table, TextList& list);

/// Fills the lists from the current project; what they held before is gone.
/// @return 0; -1, with the reason on the command line and the lists as they were, without a
///         project or its place for parameter files
int LoadParamTables(ParamTables& tables);

/// Releases the strings; the lists are empty and can be used again.
void ClearParamTables(ParamTables& tables);

}  // namespace kovra
