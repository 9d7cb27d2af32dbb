#include "tests/arx/test_drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <sstream>

#include "platform/dxf/record_store.h"

namespace kovra::arx::test {
namespace {

constexpr int kR12 = 1009;

std::string hex(int number) {
  char text[20];
  std::snprintf(text, sizeof text, "%X", static_cast<unsigned>(number));
  return text;
}

/// The groups of a record without those that R12 doesn't have.
std::string record(int release, std::vector<Group> groups) {
  if (release == kR12) std::erase_if(groups, [](const Group& g) { return g.first == 100; });
  return groupLines(groups);
}

std::string table(int release, const std::string& name, const std::string& entries) {
  return record(release, {{0, "TABLE"}, {2, name}, {70, "9"}}) + entries +
         groupLines({{0, "ENDTAB"}});
}

std::string layer(int release, const std::string& name, int flags, int color) {
  return record(release, {{0, "LAYER"},
                          {100, "AcDbSymbolTableRecord"},
                          {100, "AcDbLayerTableRecord"},
                          {2, name},
                          {70, std::to_string(flags)},
                          {62, std::to_string(color)},
                          {6, "CONTINUOUS"}});
}

std::string style(int release, const std::string& name, int flags, double height, double width) {
  return record(release, {{0, "STYLE"},
                          {100, "AcDbSymbolTableRecord"},
                          {100, "AcDbTextStyleTableRecord"},
                          {2, name},
                          {70, std::to_string(flags)},
                          {40, std::to_string(height)},
                          {41, std::to_string(width)},
                          {50, "0.0"},
                          {71, "0"},
                          {42, "2.5"},
                          {3, "txt"},
                          {4, ""}});
}

std::string header(int release) {
  return groupLines({{0, "SECTION"},
                     {2, "HEADER"},
                     {9, "$ACADVER"},
                     {1, "AC" + std::to_string(release)},
                     {9, "$DWGCODEPAGE"},
                     {3, "ANSI_1252"},
                     {9, "$CLAYER"},
                     {8, "0"},
                     {9, "$DIMSCALE"},
                     {40, "2.0"},
                     {9, "$HANDSEED"},
                     {5, "F000"},
                     {0, "ENDSEC"}});
}

std::string blockBorder(int release, const std::string& name, bool begins) {
  if (begins)
    return record(release, {{0, "BLOCK"},
                            {8, "0"},
                            {100, "AcDbBlockBegin"},
                            {2, name},
                            {70, "2"},
                            {10, "0.0"},
                            {20, "0.0"},
                            {30, "0.0"},
                            {3, name}});
  return record(release, {{0, "ENDBLK"}, {8, "0"}, {100, "AcDbBlockEnd"}});
}

std::string blockRecord(int handle, const std::string& name) {
  return groupLines({{0, "BLOCK_RECORD"},
                     {5, hex(handle)},
                     {100, "AcDbSymbolTableRecord"},
                     {100, "AcDbBlockTableRecord"},
                     {2, name}});
}

std::string tables(int release) {
  const std::string layers = layer(release, "0", 0, 7) + layer(release, "WIRES", 0, 3) +
                             layer(release, "FRAME", 4, 1) + layer(release, "HIDDEN", 1, 2) +
                             layer(release, "OFF", 0, -5);
  const std::string styles = style(release, "Standard", 0, 0, 1) + style(release, "TATE", 4, 0, 1) +
                             style(release, "FIXED", 0, 3, 0.8);
  std::string all = table(release, "LAYER", layers) + table(release, "STYLE", styles);
  if (release > kR12)
    all += table(release, "BLOCK_RECORD",
                 blockRecord(0x1f, "*Model_Space") + blockRecord(0x1b, "*Paper_Space") +
                     blockRecord(0x30, "SYM"));
  return groupLines({{0, "SECTION"}, {2, "TABLES"}}) + all + groupLines({{0, "ENDSEC"}});
}

std::string blocks(int release) {
  std::string all;
  if (release > kR12)
    for (const char* space : {"*Model_Space", "*Paper_Space"})
      all += blockBorder(release, space, true) + blockBorder(release, space, false);
  all += blockBorder(release, "SYM", true) + textEntity(TextKind::kDefinition, release, 0x31, {}) +
         blockBorder(release, "SYM", false);
  return groupLines({{0, "SECTION"}, {2, "BLOCKS"}}) + all + groupLines({{0, "ENDSEC"}});
}

/// Groups of the own part of attributes and definitions.
std::vector<Group> ownPart(TextKind kind) {
  if (kind == TextKind::kText) return {{100, "AcDbText"}};
  if (kind == TextKind::kAttribute)
    return {{100, "AcDbAttribute"}, {2, "NAME"}, {70, "0"}, {73, "0"}};
  return {{100, "AcDbAttributeDefinition"}, {3, "Name?"}, {2, "NAME"}, {70, "0"}, {73, "0"}};
}

bool isOwnCode(TextKind kind, int code) {
  return code == (kind == TextKind::kText ? 73 : 74);
}

std::vector<std::string> groupsOf(const std::string& bytes) {
  std::vector<std::string> groups;
  std::istringstream lines(bytes);
  std::string code;
  std::string value;
  while (std::getline(lines, code) && std::getline(lines, value))
    groups.push_back(code.substr(code.find_first_not_of(' ')) + "=" + value);
  return groups;
}

}  // namespace

std::string groupLines(const std::vector<Group>& groups) {
  std::string lines;
  for (const auto& [code, value] : groups) {
    const std::string digits = std::to_string(code);
    lines +=
        std::string(digits.size() < 3 ? 3 - digits.size() : 0, ' ') + digits + "\n" + value + "\n";
  }
  return lines;
}

std::string TestDrawing::bytes() const {
  return header(release) + tables(release) + blocks(release) +
         groupLines({{0, "SECTION"}, {2, "ENTITIES"}}) + entities +
         groupLines({{0, "ENDSEC"}, {0, "EOF"}});
}

std::string textEntity(TextKind kind, int release, int handle, const std::vector<Group>& extra) {
  static constexpr const char* kTypes[] = {"TEXT", "ATTRIB", "ATTDEF"};
  std::vector<Group> groups = {{0, kTypes[static_cast<int>(kind)]},
                               {5, hex(handle)},
                               {100, "AcDbEntity"},
                               {8, "WIRES"},
                               {100, "AcDbText"},
                               {10, "100.0"},
                               {20, "50.0"},
                               {30, "0.0"},
                               {40, "2.5"},
                               {1, "K1"}};
  std::vector<Group> own = ownPart(kind);
  for (const Group& group : extra) {
    const auto same = std::find_if(groups.begin(), groups.end(),
                                   [&](const Group& g) { return g.first == group.first; });
    if (same != groups.end() && group.first != 100) {
      same->second = group.second;
    } else {
      (isOwnCode(kind, group.first) || group.first >= 1000 ? own : groups).push_back(group);
    }
  }
  groups.insert(groups.end(), own.begin(), own.end());
  const std::string text = record(release, groups);
  if (kind != TextKind::kAttribute) return text;
  return record(release, {{0, "INSERT"},
                          {5, hex(handle - 1)},
                          {100, "AcDbEntity"},
                          {8, "WIRES"},
                          {100, "AcDbBlockReference"},
                          {66, "1"},
                          {2, "SYM"},
                          {10, "10.0"},
                          {20, "20.0"},
                          {30, "0.0"}}) +
         text + groupLines({{0, "SEQEND"}, {5, hex(handle + 1)}, {8, "WIRES"}});
}

OpenDrawing::OpenDrawing(const std::string& bytes)
    : database_(std::make_unique<AcDbDatabase>(false, true)) {
  const Result<void> opened = database_->openBytes(bytes);
  EXPECT_TRUE(opened) << (opened ? "" : opened.error().message);
  acdbHostApplicationServices()->setWorkingDatabase(database_.get());
}

OpenDrawing::~OpenDrawing() {
  acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}

AcDbObjectId OpenDrawing::find(int handle) const {
  AcDbObjectId id;
  EXPECT_EQ(database_->getAcDbObjectId(id, false, AcDbHandle(static_cast<Adesk::UInt64>(handle))),
            Acad::eOk);
  return id;
}

std::string OpenDrawing::bytes() const {
  return database_->store().toBytes();
}

// The longest common subsequence, over groups; drawings here are small.
std::vector<std::string> groupDiff(const std::string& before, const std::string& after) {
  const std::vector<std::string> a = groupsOf(before);
  const std::vector<std::string> b = groupsOf(after);
  std::vector<std::vector<int>> common(a.size() + 1, std::vector<int>(b.size() + 1, 0));
  for (std::size_t i = a.size(); i-- > 0;)
    for (std::size_t j = b.size(); j-- > 0;)
      common[i][j] =
          a[i] == b[j] ? common[i + 1][j + 1] + 1 : std::max(common[i + 1][j], common[i][j + 1]);
  std::vector<std::string> diff;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < a.size() || j < b.size()) {
    if (i < a.size() && j < b.size() && a[i] == b[j]) {
      ++i, ++j;
    } else if (i < a.size() && (j == b.size() || common[i + 1][j] >= common[i][j + 1])) {
      diff.push_back("-" + a[i++]);
    } else {
      diff.push_back("+" + b[j++]);
    }
  }
  return diff;
}

}  // namespace kovra::arx::test
