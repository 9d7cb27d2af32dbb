#include "platform/arx/editor/documents/sysvar_table.h"

#include <filesystem>

#include "platform/arx/database/database.h"
#include "platform/arx/database/drawing_defaults.h"
#include "platform/arx/database/journal.h"
#include "platform/arx/database/symbol_table.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/documents/ucs.h"
#include "platform/arx/editor/documents/view.h"
#include "platform/arx/geometry/typed_point.h"
#include "platform/dxf/structure.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

VariableValue shortValue(int value) {
  VariableValue result;
  result.type = RTSHORT;
  result.integer = value;
  return result;
}

VariableValue textValue(std::wstring text) {
  VariableValue result;
  result.type = RTSTR;
  result.text = std::move(text);
  return result;
}

VariableValue pointValue(const AcGePoint3d& point, int type = RT3DPOINT) {
  VariableValue result;
  result.type = type;
  result.point[0] = point.x;
  result.point[1] = point.y;
  result.point[2] = point.z;
  return result;
}

Error refused(std::string message) {
  return {ErrorKind::kInvalidInput, std::move(message)};
}

// --- colors ------------------------------------------------------------------------------------

VariableValue readColor(AcApDocument& document) {
  const std::int64_t number = currentColor(document.database()->structure());
  if (number == kColorByLayer) return textValue(L"BYLAYER");
  return textValue(number == 0 ? L"BYBLOCK" : std::to_wstring(number));
}

std::optional<int> colorNumber(std::wstring_view text) {
  static constexpr std::wstring_view kNames[] = {L"BYBLOCK", L"RED",  L"YELLOW",  L"GREEN",
                                                 L"CYAN",    L"BLUE", L"MAGENTA", L"WHITE"};
  if (win::equalNoCase(text, L"BYLAYER")) return 256;
  for (int i = 0; i < 8; ++i)
    if (win::equalNoCase(text, kNames[i])) return i;
  const std::optional<int> number = parseInteger(text);
  return number && *number >= 1 && *number <= 255 ? number : std::nullopt;
}

/// The header keeps the number.
Result<void> acceptColor(AcApDocument&, VariableValue& value) {
  const std::optional<int> number = colorNumber(value.text);
  if (!number) return refused("Invalid color: a number from 1 to 255, BYLAYER or BYBLOCK");
  value = shortValue(*number);
  return {};
}

// --- names of tables ---------------------------------------------------------------------------

VariableValue readLayer(AcApDocument& document) {
  return textValue(currentLayer(document.database()->structure()));
}

VariableValue readStyle(AcApDocument& document) {
  return textValue(currentTextStyle(document.database()->structure()));
}

/// The record of a table by name, as the table spells it.
template <class Table, class Record, class Check>
Result<void> acceptName(AcApDocument& document, VariableValue& value, const char* kind,
                        Check&& check) {
  Table* table = nullptr;
  Record* record = nullptr;
  if (document.database()->getSymbolTable(table, AcDb::kForRead) == Acad::eOk) {
    table->getAt(value.text.c_str(), record, AcDb::kForRead);
    table->close();
  }
  if (record == nullptr || value.text.empty()) {
    if (record != nullptr) record->close();
    return refused(std::string("Cannot find ") + kind + " \"" + win::toUtf8(value.text) + "\"");
  }
  const ACHAR* name = nullptr;
  if (record->getName(name) == Acad::eOk) value.text = name;
  Result<void> result = check(*record);
  record->close();
  return result;
}

Result<void> acceptLayer(AcApDocument& document, VariableValue& value) {
  // Every drawing has layer 0, also one whose table doesn't list it.
  const dxf::Structure& structure = document.database()->structure();
  if (value.text == L"0" && structure.findEntry(dxf::TableKind::kLayer, L"0") == dxf::kNoRecord)
    return {};
  return acceptName<AcDbLayerTable, AcDbLayerTableRecord>(
      document, value, "layer", [](const AcDbLayerTableRecord& layer) -> Result<void> {
        if (layer.isFrozen()) return refused("A frozen layer can't be made current");
        return {};
      });
}

Result<void> acceptStyle(AcApDocument& document, VariableValue& value) {
  return acceptName<AcDbTextStyleTable, AcDbTextStyleTableRecord>(
      document, value, "text style",
      [](const AcDbTextStyleTableRecord&) -> Result<void> { return {}; });
}

// --- computed ----------------------------------------------------------------------------------

VariableValue readUndoControl(AcApDocument& document) {
  // 1: undo is on; 4: commands are grouped; 8: a group of UNDO Begin is open.
  return shortValue(1 + 4 + (document.database()->journal().groupOpen() ? 8 : 0));
}

VariableValue readViewport(AcApDocument& document) {
  const AcDbDatabase& database = *document.database();
  return shortValue(database.currentSpaceId() == database.modelSpaceId() ? 2 : 1);
}

VariableValue readViewCenter(AcApDocument& document) {
  return pointValue(toUcs(document, currentView(document).center));
}

VariableValue readViewSize(AcApDocument& document) {
  VariableValue result;
  result.type = RTREAL;
  result.real = currentView(document).height;
  return result;
}

VariableValue readScreenSize(AcApDocument&) {
  return pointValue(AcGePoint3d(windowSize().width, windowSize().height, 0), RTPOINT);
}

VariableValue readName(AcApDocument& document) {
  return textValue(document.docTitle());
}

VariableValue readPrefix(AcApDocument& document) {
  namespace fs = std::filesystem;
  const fs::path folder = document.isNamedDrawing()
                              ? fs::path(win::toUtf8(document.fileName())).parent_path()
                              : fs::current_path();
  return textValue(win::fromUtf8((folder / "").string()));
}

VariableValue readTitled(AcApDocument& document) {
  return shortValue(document.isNamedDrawing() ? 1 : 0);
}

VariableValue readModified(AcApDocument& document) {
  return shortValue(document.database()->isModified() ? 1 : 0);
}

VariableValue readCommandNames(AcApDocument& document) {
  std::wstring names;
  for (const std::wstring& name : document.session().commands)
    names += (names.empty() ? L"" : L"'") + name;
  return textValue(names);
}

VariableValue readCommandActive(AcApDocument& document) {
  return shortValue(document.session().commands.empty() ? 0 : 1);
}

VariableValue readUcsOrigin(AcApDocument& document) {
  return pointValue(ucsToWcs(document).translation().asPoint());
}

VariableValue readUcsAxis(AcApDocument& document, const AcGeVector3d& axis) {
  AcGeVector3d world = axis;
  return pointValue(world.transformBy(ucsToWcs(document)).asPoint());
}

VariableValue readUcsXAxis(AcApDocument& document) {
  return readUcsAxis(document, AcGeVector3d::kXAxis);
}

VariableValue readUcsYAxis(AcApDocument& document) {
  return readUcsAxis(document, AcGeVector3d::kYAxis);
}

VariableValue readWorldUcs(AcApDocument& document) {
  return shortValue(ucsToWcs(document).isEqualTo(AcGeMatrix3d()) ? 1 : 0);
}

VariableValue readLastPoint(AcApDocument& document) {
  return pointValue(toUcs(document, document.session().lastPoint));
}

Result<void> acceptLastPoint(AcApDocument& document, VariableValue& value) {
  document.session().lastPoint =
      toWorld(document, {value.point[0], value.point[1], value.point[2]});
  return {};
}

VariableValue readExtent(AcApDocument& document, bool maximum) {
  const AcDbExtents extents = drawingExtents(document);
  return pointValue(toUcs(document, maximum ? extents.maxPoint() : extents.minPoint()));
}

VariableValue readExtMin(AcApDocument& document) {
  return readExtent(document, false);
}

VariableValue readExtMax(AcApDocument& document) {
  return readExtent(document, true);
}

// --- rows --------------------------------------------------------------------------------------

constexpr VariableHome kHeader = VariableHome::kHeader;
constexpr VariableHome kDocument = VariableHome::kDocument;
constexpr VariableHome kProgram = VariableHome::kProgram;

/// A whole number between two bounds.
constexpr VariableRow whole(const wchar_t* name, VariableHome home, double standard, double low,
                            double high, const char* header = nullptr) {
  return {{name, RTSHORT, home, false}, header, standard, L"", low, high};
}

constexpr VariableRow positive(const wchar_t* name, const char* header, double standard) {
  VariableRow row{{name, RTREAL, kHeader, false}, header, standard, L"", 0, 1e300};
  row.above = true;
  return row;
}

constexpr VariableRow kept(VariableRow row) {
  row.addToHeader = true;
  return row;
}

constexpr VariableRow computed(const wchar_t* name, int type,
                               VariableValue (*read)(AcApDocument& document)) {
  VariableRow row{{name, type, kDocument, true}};
  row.read = read;
  return row;
}

constexpr VariableRow named(const wchar_t* name, const char* header, const wchar_t* standard,
                            VariableValue (*read)(AcApDocument&),
                            Result<void> (*accept)(AcApDocument&, VariableValue&)) {
  VariableRow row{{name, RTSTR, kHeader, false}, header, 0, standard};
  row.read = read;
  row.accept = accept;
  row.addToHeader = true;
  return row;
}

constexpr VariableRow lastPointRow() {
  VariableRow row = computed(L"LASTPOINT", RT3DPOINT, readLastPoint);
  row.info.readOnly = false;
  row.accept = acceptLastPoint;
  return row;
}

constexpr VariableRow kRows[] = {
    named(L"CLAYER", "$CLAYER", L"0", readLayer, acceptLayer),
    named(L"TEXTSTYLE", "$TEXTSTYLE", L"STANDARD", readStyle, acceptStyle),
    kept(positive(L"TEXTSIZE", "$TEXTSIZE", 0.2)),
    kept({{L"DIMSCALE", RTREAL, kHeader, false}, "$DIMSCALE", 1, L"", 0}),
    named(L"CECOLOR", "$CECOLOR", L"BYLAYER", readColor, acceptColor),
    positive(L"LTSCALE", "$LTSCALE", 1),
    positive(L"CELTSCALE", "$CELTSCALE", 1),
    {{L"ELEVATION", RTREAL, kHeader, false}, "$ELEVATION"},
    {{L"THICKNESS", RTREAL, kHeader, false}, "$THICKNESS"},
    whole(L"ORTHOMODE", kHeader, 0, 0, 1, "$ORTHOMODE"),
    kept(whole(L"LUNITS", kHeader, 2, 1, 5, "$LUNITS")),
    kept(whole(L"LUPREC", kHeader, 4, 0, 8, "$LUPREC")),
    kept(whole(L"AUNITS", kHeader, 0, 0, 4, "$AUNITS")),
    kept(whole(L"AUPREC", kHeader, 0, 0, 8, "$AUPREC")),
    kept(whole(L"TILEMODE", kHeader, 1, 0, 1, "$TILEMODE")),
    whole(L"MIRRTEXT", kHeader, 0, 0, 1, "$MIRRTEXT"),
    whole(L"ATTMODE", kHeader, 1, 0, 2, "$ATTMODE"),
    whole(L"INSUNITS", kHeader, 0, 0, 24, "$INSUNITS"),
    whole(L"MEASUREMENT", kHeader, 0, 0, 1, "$MEASUREMENT"),
    whole(L"SNAPMODE", kDocument, 0, 0, 1, "$SNAPMODE"),
    {{L"SNAPUNIT", RTPOINT, kDocument, false}, "$SNAPUNIT", 0.5},
    whole(L"GRIDMODE", kDocument, 0, 0, 1),
    whole(L"ERRNO", kDocument, 0, 0, 32767),
    whole(L"OSMODE", kProgram, 4133, 0, 32767),
    whole(L"AUTOSNAP", kProgram, 63, 0, 63),
    whole(L"CMDECHO", kProgram, 1, 0, 1),
    whole(L"PICKBOX", kProgram, 3, 0, 50),
    whole(L"APERTURE", kProgram, 10, 1, 50),
    whole(L"PICKFIRST", kProgram, 1, 0, 1),
    whole(L"PICKADD", kProgram, 2, 0, 2),
    whole(L"PICKAUTO", kProgram, 5, 0, 7),
    whole(L"HIGHLIGHT", kProgram, 1, 0, 1),
    whole(L"DRAGMODE", kProgram, 2, 0, 2),
    whole(L"FILEDIA", kProgram, 1, 0, 1),
    whole(L"CMDDIA", kProgram, 1, 0, 1),
    whole(L"ATTDIA", kProgram, 0, 0, 1),
    whole(L"ATTREQ", kProgram, 1, 0, 1),
    whole(L"EXPERT", kProgram, 0, 0, 5),
    whole(L"NOMUTT", kProgram, 0, 0, 1),
    lastPointRow(),
    computed(L"UNDOCTL", RTSHORT, readUndoControl),
    computed(L"CVPORT", RTSHORT, readViewport),
    computed(L"VIEWCTR", RT3DPOINT, readViewCenter),
    computed(L"VIEWSIZE", RTREAL, readViewSize),
    computed(L"SCREENSIZE", RTPOINT, readScreenSize),
    computed(L"EXTMIN", RT3DPOINT, readExtMin),
    computed(L"EXTMAX", RT3DPOINT, readExtMax),
    computed(L"DWGNAME", RTSTR, readName),
    computed(L"DWGPREFIX", RTSTR, readPrefix),
    computed(L"DWGTITLED", RTSHORT, readTitled),
    computed(L"DBMOD", RTSHORT, readModified),
    computed(L"CMDNAMES", RTSTR, readCommandNames),
    computed(L"CMDACTIVE", RTSHORT, readCommandActive),
    computed(L"UCSORG", RT3DPOINT, readUcsOrigin),
    computed(L"UCSXDIR", RT3DPOINT, readUcsXAxis),
    computed(L"UCSYDIR", RT3DPOINT, readUcsYAxis),
    computed(L"WORLDUCS", RTSHORT, readWorldUcs),
    {{L"ACADVER", RTSTR, kProgram, true}, nullptr, 0, L"24.0"},
    {{L"WRITESTAT", RTSHORT, kProgram, true}, nullptr, 1},
};

}  // namespace

std::span<const VariableRow> variableRows() {
  return kRows;
}

}  // namespace kovra::arx
