#pragma once

#include <string>
#include <vector>

namespace kovra::test {

/// How a test drawing is written.
struct DrawingForm {
  std::string release = "AC1015";  ///< AC1009 has neither handles nor subclass markers
  std::string codePage = "ANSI_1252";
  std::string lineEnd = "\n";
  std::string dimensionScale = "1.0";
  bool modelSpace = true;  ///< false: a file whose blocks lack a model space
  std::string modelName = "*Model_Space";
};

struct Attribute {
  std::string tag;
  std::string value;  ///< in the bytes of the file
  std::string layer = "0";
  std::string height = "2.5";  ///< numbers as the file spells them
  std::string x = "10.0";
  std::string y = "20.0";
};

/// A drawing with layers 0, WIRENO, LOCKED (locked), block MOTOR, and in model space one reference
/// to it on layer 0 that has the attributes. Handles of the attributes are 100, 101 ...
std::string drawingWith(const std::vector<Attribute>& attributes, const DrawingForm& form = {});

/// Two attributes: NAME "M1" and SENBAN1 "101".
std::string motorDrawing(const DrawingForm& form = {});

/// A reference with these attributes, and texts X001 (handle 60) at 10,10 and A-9 (61) at 10,20.
std::string textDrawing(const std::vector<Attribute>& attributes = {});

/// An R12 drawing of these sections' records; `tables` and `blocks` may be empty.
std::string drawing(const std::string& entities, const std::string& blocks = {},
                    const std::string& tables = {});
/// A line of 10 units from x 0, and a block at the origin, for such a drawing.
std::string lineAt(double y, const std::string& groups);
std::string blockOf(const std::string& name, const std::string& entities);

}  // namespace kovra::test
