#include <initializer_list>
#include <string>

#include "platform/dxf/group_format.h"
#include "platform/dxf/record_store.h"

// The new empty drawing: what readers need to load a file of release AC1032 without complaint, and
// the header variables that commands start from.
namespace kovra::dxf {

namespace {

struct GroupText {
  int code;
  std::string_view value;
};
using Groups = std::initializer_list<GroupText>;

// Handles of the objects that name one another.
constexpr std::string_view kBlockTable = "1";
constexpr std::string_view kLayerTable = "2";
constexpr std::string_view kStyleTable = "3";
constexpr std::string_view kLtypeTable = "5";
constexpr std::string_view kViewTable = "6";
constexpr std::string_view kUcsTable = "7";
constexpr std::string_view kVportTable = "8";
constexpr std::string_view kAppTable = "9";
constexpr std::string_view kDimTable = "A";
constexpr std::string_view kRoot = "C";
constexpr std::string_view kGroupDictionary = "D";
constexpr std::string_view kPlotStyles = "E";
constexpr std::string_view kPlotStyle = "F";
constexpr std::string_view kStyle = "11";
constexpr std::string_view kLayoutDictionary = "1A";
constexpr std::string_view kPaperSpace = "1B";
constexpr std::string_view kPaperLayout = "1E";
constexpr std::string_view kModelSpace = "1F";
constexpr std::string_view kModelLayout = "22";
constexpr std::string_view kFirstFree = "30";

class Drawing {
 public:
  void add(int code, std::string_view value) { appendGroup(style_, code, value, bytes_); }
  void add(Groups groups) {
    for (const GroupText& group : groups) add(group.code, group.value);
  }
  void record(std::string_view type, std::string_view handle, std::string_view owner) {
    add({{0, type}, {type == "DIMSTYLE" ? 105 : 5, handle}, {330, owner}});
  }
  void begin(std::string_view section) { add({{0, "SECTION"}, {2, section}}); }
  void end(std::string_view mark = "ENDSEC") { add(0, mark); }
  void variable(std::string_view name, int code, std::string_view value) {
    add({{9, name}, {code, value}});
  }
  void point(std::string_view name, std::string_view x, std::string_view y, std::string_view z) {
    add({{9, name}, {10, x}, {20, y}});
    if (!z.empty()) add(30, z);
  }
  void table(std::string_view name, std::string_view handle, std::string_view count) {
    add({{0, "TABLE"}, {2, name}, {5, handle}, {330, "0"}, {100, "AcDbSymbolTable"}, {70, count}});
  }
  void entry(std::string_view type, std::string_view handle, std::string_view owner,
             std::string_view marker, std::string_view name) {
    record(type, handle, owner);
    add({{100, "AcDbSymbolTableRecord"}, {100, marker}, {2, name}});
  }
  const std::string& bytes() const { return bytes_; }

 private:
  GroupStyle style_;
  std::string bytes_;
};

void addUnits(Drawing& out) {
  out.variable("$LTSCALE", 40, "1.0");
  out.variable("$TEXTSIZE", 40, "2.5");
  out.variable("$TEXTSTYLE", 7, "Standard");
  out.variable("$CLAYER", 8, "0");
  out.variable("$CELTYPE", 6, "ByLayer");
  out.variable("$CECOLOR", 62, "256");
  out.variable("$CELTSCALE", 40, "1.0");
  out.variable("$DIMSCALE", 40, "1.0");
  out.variable("$DIMTXT", 40, "2.5");
  out.variable("$DIMSTYLE", 2, "Standard");
  out.variable("$LUNITS", 70, "2");
  out.variable("$LUPREC", 70, "4");
  out.variable("$AUNITS", 70, "0");
  out.variable("$AUPREC", 70, "0");
  out.variable("$ANGBASE", 50, "0.0");
  out.variable("$ANGDIR", 70, "0");
  out.variable("$PDMODE", 70, "0");
  out.variable("$PDSIZE", 40, "0.0");
  out.variable("$INSUNITS", 70, "4");
  out.variable("$MEASUREMENT", 70, "1");
}

void addHeader(Drawing& out) {
  out.begin("HEADER");
  out.variable("$ACADVER", 1, "AC1032");
  out.variable("$DWGCODEPAGE", 3, "ANSI_1252");
  out.point("$INSBASE", "0.0", "0.0", "0.0");
  out.point("$EXTMIN", "1e+20", "1e+20", "1e+20");
  out.point("$EXTMAX", "-1e+20", "-1e+20", "-1e+20");
  out.point("$LIMMIN", "0.0", "0.0", {});
  out.point("$LIMMAX", "420.0", "297.0", {});
  out.variable("$ORTHOMODE", 70, "0");
  out.variable("$REGENMODE", 70, "1");
  out.variable("$FILLMODE", 70, "1");
  out.variable("$MIRRTEXT", 70, "0");
  out.variable("$ATTMODE", 70, "1");
  addUnits(out);
  out.variable("$HANDSEED", 5, kFirstFree);
  out.point("$UCSORG", "0.0", "0.0", "0.0");
  out.point("$UCSXDIR", "1.0", "0.0", "0.0");
  out.point("$UCSYDIR", "0.0", "1.0", "0.0");
  out.variable("$TILEMODE", 70, "1");
  out.end();
}

void addViewport(Drawing& out) {
  out.table("VPORT", kVportTable, "1");
  out.entry("VPORT", "29", kVportTable, "AcDbViewportTableRecord", "*Active");
  out.add({{70, "0"},     {10, "0.0"},   {20, "0.0"},  {11, "1.0"},  {21, "1.0"},  {12, "210.0"},
           {22, "148.5"}, {13, "0.0"},   {23, "0.0"},  {14, "10.0"}, {24, "10.0"}, {15, "10.0"},
           {25, "10.0"},  {16, "0.0"},   {26, "0.0"},  {36, "1.0"},  {17, "0.0"},  {27, "0.0"},
           {37, "0.0"},   {40, "297.0"}, {41, "1.6"},  {42, "50.0"}, {43, "0.0"},  {44, "0.0"},
           {50, "0.0"},   {51, "0.0"},   {71, "0"},    {72, "1000"}, {73, "1"},    {74, "3"},
           {75, "0"},     {76, "0"},     {77, "0"},    {78, "0"},    {281, "0"},   {65, "1"},
           {110, "0.0"},  {120, "0.0"},  {130, "0.0"}, {111, "1.0"}, {121, "0.0"}, {131, "0.0"},
           {112, "0.0"},  {122, "1.0"},  {132, "0.0"}, {79, "0"},    {146, "0.0"}});
  out.end("ENDTAB");
}

void addLineTypes(Drawing& out) {
  out.table("LTYPE", kLtypeTable, "3");
  const Groups kinds = {{0x14, "ByBlock"}, {0x15, "ByLayer"}, {0x16, "Continuous"}};
  for (const GroupText& kind : kinds) {
    const std::string handle = formatHandle(static_cast<std::uint64_t>(kind.code));
    out.entry("LTYPE", handle, kLtypeTable, "AcDbLinetypeTableRecord", kind.value);
    const bool solid = kind.value == "Continuous";
    out.add({{70, "0"}, {3, solid ? "Solid line" : ""}, {72, "65"}, {73, "0"}, {40, "0.0"}});
  }
  out.end("ENDTAB");
}

void addNamedTables(Drawing& out) {
  out.table("LAYER", kLayerTable, "1");
  out.entry("LAYER", "10", kLayerTable, "AcDbLayerTableRecord", "0");
  out.add({{70, "0"}, {62, "7"}, {6, "Continuous"}, {370, "-3"}, {390, kPlotStyle}});
  out.end("ENDTAB");
  out.table("STYLE", kStyleTable, "1");
  out.entry("STYLE", kStyle, kStyleTable, "AcDbTextStyleTableRecord", "Standard");
  out.add({{70, "0"},
           {40, "0.0"},
           {41, "1.0"},
           {50, "0.0"},
           {71, "0"},
           {42, "2.5"},
           {3, "txt"},
           {4, ""}});
  out.end("ENDTAB");
  out.table("VIEW", kViewTable, "0");
  out.end("ENDTAB");
  out.table("UCS", kUcsTable, "0");
  out.end("ENDTAB");
  out.table("APPID", kAppTable, "1");
  out.entry("APPID", "12", kAppTable, "AcDbRegAppTableRecord", "ACAD");
  out.add(70, "0");
  out.end("ENDTAB");
  out.table("DIMSTYLE", kDimTable, "1");
  out.add({{100, "AcDbDimStyleTable"}});
  out.entry("DIMSTYLE", "27", kDimTable, "AcDbDimStyleTableRecord", "Standard");
  out.add({{70, "0"},
           {40, "1.0"},
           {41, "2.5"},
           {140, "2.5"},
           {147, "0.625"},
           {271, "2"},
           {340, kStyle}});
  out.end("ENDTAB");
}

void addBlocks(Drawing& out) {
  out.table("BLOCK_RECORD", kBlockTable, "2");
  out.entry("BLOCK_RECORD", kModelSpace, kBlockTable, "AcDbBlockTableRecord", "*Model_Space");
  out.add({{340, kModelLayout}, {70, "0"}, {280, "1"}, {281, "0"}});
  out.entry("BLOCK_RECORD", kPaperSpace, kBlockTable, "AcDbBlockTableRecord", "*Paper_Space");
  out.add({{340, kPaperLayout}, {70, "0"}, {280, "1"}, {281, "0"}});
  out.end("ENDTAB");
  out.end();
  out.begin("BLOCKS");
  const auto block = [&out](std::string_view name, std::string_view owner, std::string_view first,
                            std::string_view last, bool paper) {
    const auto entity = [&](std::string_view type, std::string_view handle) {
      out.record(type, handle, owner);
      out.add(100, "AcDbEntity");
      if (paper) out.add(67, "1");
      out.add(8, "0");
    };
    entity("BLOCK", first);
    out.add({{100, "AcDbBlockBegin"},
             {2, name},
             {70, "0"},
             {10, "0.0"},
             {20, "0.0"},
             {30, "0.0"},
             {3, name},
             {1, ""}});
    entity("ENDBLK", last);
    out.add(100, "AcDbBlockEnd");
  };
  block("*Model_Space", kModelSpace, "20", "21", false);
  block("*Paper_Space", kPaperSpace, "1C", "1D", true);
  out.end();
}

void addDictionary(Drawing& out, std::string_view handle, std::string_view owner, Groups entries) {
  out.record("DICTIONARY", handle, owner);
  out.add({{100, "AcDbDictionary"}, {281, "1"}});
  out.add(entries);
}

void addLayout(Drawing& out, std::string_view handle, std::string_view name, std::string_view order,
               std::string_view block) {
  const bool model = order == "0";
  out.record("LAYOUT", handle, kLayoutDictionary);
  out.add({{100, "AcDbPlotSettings"},
           {1, ""},
           {2, ""},
           {4, "A3"},
           {6, ""},
           {40, "7.5"},
           {41, "20.0"},
           {42, "7.5"},
           {43, "20.0"},
           {44, "420.0"},
           {45, "297.0"},
           {46, "0.0"},
           {47, "0.0"},
           {48, "0.0"},
           {49, "0.0"},
           {140, "0.0"},
           {141, "0.0"},
           {142, "1.0"},
           {143, "1.0"},
           {70, model ? "1024" : "0"},
           {72, "1"},
           {73, "0"},
           {74, "5"},
           {7, ""},
           {75, "16"},
           {76, "0"},
           {77, "2"},
           {78, "300"},
           {147, "1.0"},
           {148, "0.0"},
           {149, "0.0"}});
  out.add({{100, "AcDbLayout"}, {1, name},      {70, "1"},     {71, order},   {10, "0.0"},
           {20, "0.0"},         {11, "420.0"},  {21, "297.0"}, {12, "0.0"},   {22, "0.0"},
           {32, "0.0"},         {14, "1e+20"},  {24, "1e+20"}, {34, "1e+20"}, {15, "-1e+20"},
           {25, "-1e+20"},      {35, "-1e+20"}, {146, "0.0"},  {13, "0.0"},   {23, "0.0"},
           {33, "0.0"},         {16, "1.0"},    {26, "0.0"},   {36, "0.0"},   {17, "0.0"},
           {27, "1.0"},         {37, "0.0"},    {76, "1"},     {330, block}});
}

void addObjects(Drawing& out) {
  out.begin("OBJECTS");
  addDictionary(out, kRoot, "0",
                {{3, "ACAD_GROUP"},
                 {350, kGroupDictionary},
                 {3, "ACAD_LAYOUT"},
                 {350, kLayoutDictionary},
                 {3, "ACAD_PLOTSTYLENAME"},
                 {350, kPlotStyles}});
  addDictionary(out, kGroupDictionary, kRoot, {});
  addDictionary(out, kLayoutDictionary, kRoot,
                {{3, "Layout1"}, {350, kPaperLayout}, {3, "Model"}, {350, kModelLayout}});
  out.record("ACDBDICTIONARYWDFLT", kPlotStyles, kRoot);
  out.add({{100, "AcDbDictionary"},
           {281, "1"},
           {3, "Normal"},
           {350, kPlotStyle},
           {100, "AcDbDictionaryWithDefault"},
           {340, kPlotStyle}});
  out.record("ACDBPLACEHOLDER", kPlotStyle, kPlotStyles);
  addLayout(out, kModelLayout, "Model", "0", kModelSpace);
  addLayout(out, kPaperLayout, "Layout1", "1", kPaperSpace);
  out.end();
}

void addClasses(Drawing& out) {
  out.begin("CLASSES");
  const auto object = [&out](std::string_view type, std::string_view name) {
    out.add({{0, "CLASS"},
             {1, type},
             {2, name},
             {3, "ObjectDBX Classes"},
             {90, "0"},
             {91, "0"},
             {280, "0"},
             {281, "0"}});
  };
  object("ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault");
  object("ACDBPLACEHOLDER", "AcDbPlaceHolder");
  object("LAYOUT", "AcDbLayout");
  out.end();
}

}  // namespace

std::unique_ptr<RecordStore> RecordStore::newDrawing() {
  Drawing out;
  addHeader(out);
  addClasses(out);
  out.begin("TABLES");
  addViewport(out);
  addLineTypes(out);
  addNamedTables(out);
  addBlocks(out);
  out.begin("ENTITIES");
  out.end();
  addObjects(out);
  out.end("EOF");
  return fromBytes(out.bytes()).value();
}

}  // namespace kovra::dxf
