#include "tests/host/drawings.h"

namespace kovra::test {
namespace {

// Writes groups in one dialect.
class DrawingText {
 public:
  explicit DrawingText(const DrawingForm& form) : form_(form) {}

  bool modern() const { return form_.release != "AC1009"; }

  void group(int code, const std::string& value) {
    std::string number = std::to_string(code);
    if (number.size() < 3) number.insert(0, 3 - number.size(), ' ');
    text_ += number + form_.lineEnd + value + form_.lineEnd;
  }
  void begin(const char* type, const char* handle, const char* owner) {
    group(0, type);
    if (!modern()) return;
    group(5, handle);
    if (owner != nullptr) group(330, owner);
  }
  void marker(const char* name) {
    if (modern()) group(100, name);
  }
  std::string take() { return std::move(text_); }

 private:
  const DrawingForm& form_;
  std::string text_;
};

void writeHeader(DrawingText& out, const DrawingForm& form) {
  out.group(0, "SECTION");
  out.group(2, "HEADER");
  out.group(9, "$ACADVER");
  out.group(1, form.release);
  out.group(9, "$DWGCODEPAGE");
  out.group(3, form.codePage);
  out.group(9, "$DIMSCALE");
  out.group(40, form.dimensionScale);
  if (out.modern()) {
    out.group(9, "$HANDSEED");
    out.group(5, "1000");
  }
  out.group(0, "ENDSEC");
}

void writeLayer(DrawingText& out, const char* name, const char* handle, const char* flags) {
  out.begin("LAYER", handle, "2");
  out.marker("AcDbSymbolTableRecord");
  out.marker("AcDbLayerTableRecord");
  out.group(2, name);
  out.group(70, flags);
  out.group(62, "7");
  out.group(6, "CONTINUOUS");
}

void beginTable(DrawingText& out, const char* name, const char* handle, const char* count) {
  out.group(0, "TABLE");
  out.group(2, name);
  if (out.modern()) {
    out.group(5, handle);
    out.group(330, "0");
  }
  out.marker("AcDbSymbolTable");
  out.group(70, count);
}

void writeStyle(DrawingText& out) {
  out.begin("STYLE", "21", "3");
  out.marker("AcDbSymbolTableRecord");
  out.marker("AcDbTextStyleTableRecord");
  out.group(2, "STANDARD");
  out.group(70, "0");
  out.group(40, "0.0");
  out.group(41, "1.0");
  out.group(50, "0.0");
  out.group(71, "0");
  out.group(42, "2.5");
  out.group(3, "txt");
  out.group(4, "");
}

void writeBlockRecord(DrawingText& out, const char* name, const char* handle) {
  out.begin("BLOCK_RECORD", handle, "1");
  out.marker("AcDbSymbolTableRecord");
  out.marker("AcDbBlockTableRecord");
  out.group(2, name);
}

void writeTables(DrawingText& out, const DrawingForm& form) {
  out.group(0, "SECTION");
  out.group(2, "TABLES");
  beginTable(out, "LAYER", "2", "3");
  writeLayer(out, "0", "10", "0");
  writeLayer(out, "WIRENO", "11", "0");
  writeLayer(out, "LOCKED", "12", "4");
  out.group(0, "ENDTAB");
  beginTable(out, "STYLE", "3", "1");
  writeStyle(out);
  out.group(0, "ENDTAB");
  if (out.modern()) {
    beginTable(out, "BLOCK_RECORD", "1", "3");
    if (form.modelSpace) writeBlockRecord(out, form.modelName.c_str(), "1F");
    writeBlockRecord(out, "*Paper_Space", "1B");
    writeBlockRecord(out, "MOTOR", "30");
    out.group(0, "ENDTAB");
  }
  out.group(0, "ENDSEC");
}

void writeBlock(DrawingText& out, const char* name, const char* owner, const char* begin,
                const char* end) {
  out.begin("BLOCK", begin, owner);
  out.marker("AcDbEntity");
  out.group(8, "0");
  out.marker("AcDbBlockBegin");
  out.group(2, name);
  out.group(70, "0");
  for (const int code : {10, 20, 30}) out.group(code, "0.0");
  out.group(3, name);
  out.begin("ENDBLK", end, owner);
  out.marker("AcDbEntity");
  out.group(8, "0");
  out.marker("AcDbBlockEnd");
}

void writeAttribute(DrawingText& out, const Attribute& attribute, size_t number) {
  const std::string handle = std::to_string(100 + number);
  out.begin("ATTRIB", handle.c_str(), "50");
  out.marker("AcDbEntity");
  out.group(8, attribute.layer);
  out.marker("AcDbText");
  out.group(10, attribute.x);
  out.group(20, attribute.y);
  out.group(30, "0.0");
  out.group(40, attribute.height);
  out.group(1, attribute.value);
  out.marker("AcDbAttribute");
  out.group(2, attribute.tag);
  out.group(70, "0");
}

void writeReference(DrawingText& out, const std::vector<Attribute>& attributes) {
  out.begin("INSERT", "50", "1F");
  out.marker("AcDbEntity");
  out.group(8, "0");
  out.marker("AcDbBlockReference");
  out.group(66, "1");
  out.group(2, "MOTOR");
  for (const int code : {10, 20, 30}) out.group(code, "0.0");
  for (size_t i = 0; i < attributes.size(); ++i) writeAttribute(out, attributes[i], i);
  out.begin("SEQEND", "51", "50");
  out.marker("AcDbEntity");
  out.group(8, "0");
}

}  // namespace

std::string drawingWith(const std::vector<Attribute>& attributes, const DrawingForm& form) {
  DrawingText out(form);
  writeHeader(out, form);
  writeTables(out, form);
  out.group(0, "SECTION");
  out.group(2, "BLOCKS");
  if (form.modelSpace) writeBlock(out, form.modelName.c_str(), "1F", "40", "41");
  writeBlock(out, "*Paper_Space", "1B", "42", "43");
  writeBlock(out, "MOTOR", "30", "44", "45");
  out.group(0, "ENDSEC");
  if (form.modelSpace) {
    out.group(0, "SECTION");
    out.group(2, "ENTITIES");
    writeReference(out, attributes);
    out.group(0, "ENDSEC");
  }
  out.group(0, "EOF");
  return out.take();
}

std::string motorDrawing(const DrawingForm& form) {
  return drawingWith({{"NAME", "M1"}, {"SENBAN1", "101", "WIRENO", "2.5", "10.0", "30.0"}}, form);
}

std::string textDrawing(const std::vector<Attribute>& attributes) {
  std::string drawing = drawingWith(attributes);
  const auto text = [](const char* handle, const char* y, const char* value) {
    return std::string("  0\nTEXT\n  5\n") + handle +
           "\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbText\n 10\n10.0\n 20\n" + y +
           "\n 30\n0.0\n 40\n2.5\n  1\n" + value + "\n100\nAcDbText\n";
  };
  const size_t end = drawing.rfind("  0\nENDSEC");
  return drawing.insert(end, text("60", "10.0", "X001") + text("61", "20.0", "A-9"));
}

std::string drawing(const std::string& entities, const std::string& blocks,
                    const std::string& tables) {
  return "0\nSECTION\n2\nTABLES\n" + tables + "0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n" + blocks +
         "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
}

std::string lineAt(double y, const std::string& groups) {
  const std::string height = std::to_string(y);
  return "0\nLINE\n10\n0\n20\n" + height + "\n11\n10\n21\n" + height + "\n" + groups;
}

std::string blockOf(const std::string& name, const std::string& entities) {
  return "0\nBLOCK\n8\n0\n2\n" + name + "\n70\n0\n10\n0\n20\n0\n" + entities + "0\nENDBLK\n8\n0\n";
}

}  // namespace kovra::test
