#include "tests/module/sheet.h"

#include <sstream>

namespace kovra::test {
namespace {

std::string number(double value) {
  std::ostringstream stream;
  stream << value;
  return stream.str();
}

std::string layer(std::string_view name, int flags) {
  return groups("0 LAYER|2 " + std::string(name) + "|70 " + std::to_string(flags) +
                "|62 7|6 CONTINUOUS");
}

std::string table(std::string_view name, const std::string& records) {
  return groups("0 TABLE|2 " + std::string(name) + "|70 9") + records + groups("0 ENDTAB");
}

}  // namespace

std::string groups(std::string_view pieces) {
  std::string lines;
  while (!pieces.empty()) {
    const std::string_view piece = pieces.substr(0, pieces.find('|'));
    pieces.remove_prefix(std::min(piece.size() + 1, pieces.size()));
    const std::size_t blank = std::min(piece.find(' '), piece.size());
    lines += std::string(3 - std::min<std::size_t>(blank, 3), ' ');
    lines += piece.substr(0, blank);
    lines += '\n';
    if (blank < piece.size()) lines += piece.substr(blank + 1);
    lines += '\n';
  }
  return lines;
}

std::string sheet(const std::string& entities, double dimensionScale) {
  return groups("0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|9 $DIMSCALE|40 " + number(dimensionScale) +
                "|9 $CLAYER|8 0|0 ENDSEC|0 SECTION|2 TABLES") +
         table("LAYER", layer("0", 0) + layer("FRAME", 0) + layer("KEPT", 0) + layer("LOCKED", 4)) +
         table("STYLE",
               groups("0 STYLE|2 STANDARD|70 0|40 0.0|41 1.0|50 0.0|71 0|42 2.5|3 txt|4")) +
         groups(
             "0 ENDSEC|0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 MC|70 2|10 0.0|20 0.0|30 0.0|3 MC|"
             "0 ENDBLK|8 0|0 ENDSEC|0 SECTION|2 ENTITIES") +
         entities + groups("0 ENDSEC|0 EOF");
}

std::string blockReference(const std::string& attributes, std::string_view layerName) {
  const std::string on(layerName);
  return groups("0 INSERT|8 " + on + "|66 1|2 MC|10 0.0|20 0.0|30 0.0") + attributes +
         groups("0 SEQEND|8 " + on);
}

std::string attribute(std::string_view tag, std::string_view further, std::string_view layerName) {
  return groups("0 ATTRIB|8 " + std::string(layerName) + "|10 1.0|20 2.0|30 0.0|40 2.0|1 M1|2 " +
                std::string(tag) + "|70 0" + (further.empty() ? "" : "|") + std::string(further));
}

std::string text(std::string_view value, double x, double y, std::string_view further) {
  return groups("0 TEXT|8 0|10 " + number(x) + "|20 " + number(y) + "|30 0.0|40 2.0|1 " +
                std::string(value) + (further.empty() ? "" : "|") + std::string(further));
}

}  // namespace kovra::test
