// What setters of texts write, for every kind of text and with and without subclass markers.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>

#include "platform/arx/database/block_table_record.h"
#include "platform/arx/entities/mtext.h"
#include "platform/arx/entities/text.h"
#include "tests/arx/test_drawing.h"

namespace kovra::arx::test {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr int kHandle = 0x101;

struct SetterCase {
  const char* name;
  std::vector<Group> extra;
  std::function<Acad::ErrorStatus(AcDbText&)> set;
  std::vector<std::string> diff;
  /// Attributes have their vertical mode in 74.
  std::vector<std::string> attributeDiff = diff;
};

// The reference point of a text of two half-width characters: 2 * 0.625 * height * width factor
// long.
const SetterCase kCases[] = {
    {"height of a left text",
     {},
     [](AcDbText& t) { return t.setHeight(5); },
     {"-40=2.5", "+40=5.0"}},
    {"equal height", {}, [](AcDbText& t) { return t.setHeight(2.5); }, {}},
    {"height and back",
     {},
     [](AcDbText& t) {
       t.setHeight(4);
       return t.setHeight(2.5);
     },
     {}},
    {"width factor that is missing",
     {},
     [](AcDbText& t) { return t.setWidthFactor(0.8); },
     {"+41=0.8"}},
    {"default width factor", {}, [](AcDbText& t) { return t.setWidthFactor(1); }, {}},
    {"width factor to the default",
     {{41, "0.8"}},
     [](AcDbText& t) { return t.setWidthFactor(1); },
     {"-41=0.8", "+41=1.0"}},
    {"rotation below 0",
     {},
     [](AcDbText& t) { return t.setRotation(-90 * kPi / 180); },
     {"+50=270.0"}},
    {"rotation of a full turn", {}, [](AcDbText& t) { return t.setRotation(2 * kPi); }, {}},
    {"rotation a trace below 0", {}, [](AcDbText& t) { return t.setRotation(-1e-20); }, {}},
    {"rotation set to what it is",
     {{50, "33.33333333333334"}},
     [](AcDbText& t) { return t.setRotation(t.rotation()); },
     {}},
    {"oblique", {}, [](AcDbText& t) { return t.setOblique(-15 * kPi / 180); }, {"+51=-15.0"}},
    {"value",
     {},
     [](AcDbText& t) { return t.setTextString(L"K1 \u00d8"); },
     {"-1=K1", "+1=K1 \xd8"}},
    {"value outside the code page",
     {},
     [](AcDbText& t) { return t.setTextString(L"\u56f3"); },
     {"-1=K1", "+1=\\U+56F3"}},
    {"layer in the table's spelling",
     {},
     [](AcDbText& t) { return t.setLayer(L"off"); },
     {"-8=WIRES", "+8=OFF"}},
    {"the same layer in another case", {}, [](AcDbText& t) { return t.setLayer(L"wires"); }, {}},
    {"hidden and shown",
     {},
     [](AcDbText& t) {
       t.setVisibility(AcDb::kInvisible);
       return t.setVisibility(AcDb::kVisible);
     },
     {}},
    {"color", {}, [](AcDbText& t) { return t.setColorIndex(3); }, {"+62=3"}},
    {"height of a right text moves its position",
     {{72, "2"}, {11, "100.0"}, {21, "50.0"}, {31, "0.0"}},
     [](AcDbText& t) { return t.setHeight(4); },
     {"-10=100.0", "+10=95.0", "-40=2.5", "+40=4.0"}},
    {"layer of a right text leaves its position",
     {{72, "2"}, {11, "100.0"}, {21, "50.0"}, {31, "0.0"}},
     [](AcDbText& t) { return t.setLayer(L"OFF"); },
     {"-8=WIRES", "+8=OFF"}},
    {"height and back of a right text",
     {{72, "2"}, {11, "100.0"}, {21, "50.0"}, {31, "0.0"}},
     [](AcDbText& t) {
       t.setHeight(4);
       return t.setHeight(2.5);
     },
     {}},
    {"middle center gets its alignment point where the text was",
     {},
     [](AcDbText& t) {
       t.setVerticalMode(AcDb::kTextVertMid);
       t.setHorizontalMode(AcDb::kTextCenter);
       return t.setAlignmentPoint({100, 50, 0});
     },
     {"-10=100.0", "+10=98.4375", "-20=50.0", "+20=48.75", "+72=1", "+11=100.0", "+21=50.0",
      "+31=0.0", "+73=2"},
     {"-10=100.0", "+10=98.4375", "-20=50.0", "+20=48.75", "+72=1", "+11=100.0", "+21=50.0",
      "+31=0.0", "+74=2"}},
    {"the alignment point of a fitted text keeps its position",
     {{72, "5"}, {11, "110.0"}, {21, "50.0"}, {31, "0.0"}},
     [](AcDbText& t) {
       return t.setAlignmentPoint({120, 50, 0});
     },
     {"-11=110.0", "+11=120.0"}},
    {"elevated alignment",
     {{72, "2"}, {11, "100.0"}, {21, "50.0"}, {31, "7.0"}},
     [](AcDbText& t) { return t.setTextString(L"K"); },
     {"-10=100.0", "+10=98.4375", "-30=0.0", "+30=7.0", "-1=K1", "+1=K"}},
};

using Variant = std::tuple<TextKind, int>;
class TextSetters : public testing::TestWithParam<Variant> {};

TEST_P(TextSetters, ChangeTheirGroupsOnly) {
  const auto [kind, release] = GetParam();
  for (const SetterCase& c : kCases) {
    SCOPED_TRACE(c.name);
    const std::string bytes =
        TestDrawing{release, textEntity(kind, release, kHandle, c.extra)}.bytes();
    OpenDrawing drawing(bytes);
    AcDbText* text = nullptr;
    ASSERT_EQ(acdbOpenObject(text, drawing.find(kHandle), AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(c.set(*text), Acad::eOk);
    EXPECT_EQ(text->close(), Acad::eOk);
    std::vector<std::string> expected = kind == TextKind::kText ? c.diff : c.attributeDiff;
    std::vector<std::string> diff = groupDiff(bytes, drawing.bytes());
    std::sort(expected.begin(), expected.end());
    std::sort(diff.begin(), diff.end());
    EXPECT_EQ(diff, expected);
    EXPECT_EQ(drawing->isModified(), drawing.bytes() != bytes);
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, TextSetters,
                         testing::Combine(testing::Values(TextKind::kText, TextKind::kAttribute,
                                                          TextKind::kDefinition),
                                          testing::Values(1009, 1015)));

TEST(TextSetters, RefuseWhatATextCannotBe) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const std::string bytes =
      TestDrawing{1015, textEntity(TextKind::kText, 1015, kHandle, {})}.bytes();
  OpenDrawing drawing(bytes);
  AcDbText* text = nullptr;
  ASSERT_EQ(acdbOpenObject(text, drawing.find(kHandle), AcDb::kForWrite), Acad::eOk);
  for (const double bad : {0.0, -1.0, kNan, kInfinity}) {
    EXPECT_EQ(text->setHeight(bad), Acad::eInvalidInput) << bad;
    EXPECT_EQ(text->setWidthFactor(bad), Acad::eInvalidInput) << bad;
  }
  EXPECT_EQ(text->setRotation(kNan), Acad::eInvalidInput);
  EXPECT_EQ(text->setPosition({kInfinity, 0, 0}), Acad::eInvalidInput);
  EXPECT_EQ(text->setNormal({0, 0, 0}), Acad::eInvalidInput);
  EXPECT_EQ(text->setHorizontalMode(static_cast<AcDb::TextHorzMode>(6)), Acad::eInvalidInput);
  EXPECT_EQ(text->setTextString(nullptr), Acad::eInvalidInput);
  EXPECT_EQ(text->setLayer(L"MISSING"), Acad::eKeyNotFound);
  EXPECT_EQ(text->setLayer(L""), Acad::eInvalidLayer);
  EXPECT_EQ(text->setTextStyle(AcDbObjectId::kNull), Acad::eNullObjectId);
  EXPECT_EQ(text->setTextStyle(drawing->clayer()), Acad::eInvalidTextStyle);
  text->close();
  EXPECT_EQ(drawing.bytes(), bytes);
}

// 230 = -1: the text's plane is seen from below, its x runs to the world's left.
TEST(Text, GivesPointsInTheWorld) {
  const std::string bytes =
      TestDrawing{1015, textEntity(TextKind::kText, 1015, kHandle,
                                   {{210, "0.0"}, {220, "0.0"}, {230, "-1.0"}})}
          .bytes();
  OpenDrawing drawing(bytes);
  AcDbText* text = nullptr;
  ASSERT_EQ(acdbOpenObject(text, drawing.find(kHandle), AcDb::kForWrite), Acad::eOk);
  EXPECT_EQ(text->position(), AcGePoint3d(-100, 50, 0));
  EXPECT_EQ(text->setPosition({-90, 50, 0}), Acad::eOk);
  text->close();
  EXPECT_EQ(groupDiff(bytes, drawing.bytes()), (std::vector<std::string>{"-10=100.0", "+10=90.0"}));
}

TEST(Text, TransformsWithItsAlignmentPoint) {
  OpenDrawing drawing(TestDrawing{
      1015, textEntity(TextKind::kText, 1015, kHandle, {{72, "1"}, {11, "100.0"}, {21, "50.0"}})}
                          .bytes());
  AcDbText* text = nullptr;
  ASSERT_EQ(acdbOpenObject(text, drawing.find(kHandle), AcDb::kForWrite), Acad::eOk);
  EXPECT_EQ(text->transformBy(AcGeMatrix3d::translation({0, 10, 0}) *
                              AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis) *
                              AcGeMatrix3d::scaling(2)),
            Acad::eOk);
  EXPECT_TRUE(text->alignmentPoint().isEqualTo({-100, 210, 0}));
  EXPECT_NEAR(text->rotation(), kPi / 2, 1e-12);
  EXPECT_NEAR(text->height(), 5, 1e-12);
  EXPECT_EQ(text->widthFactor(), 1);
  text->close();
}

// A text that gets another alignment and goes back to its place: only its alignment point moves.
TEST(Text, KeepsItsPositionWhenItsModesChange) {
  const std::vector<Group> points[] = {{}, {{11, "7.3"}, {21, "0.0"}, {31, "0.0"}}};
  for (const auto& point : points) {
    for (const auto horizontal :
         {AcDb::kTextLeft, AcDb::kTextCenter, AcDb::kTextRight, AcDb::kTextMid}) {
      for (const auto vertical :
           {AcDb::kTextBase, AcDb::kTextBottom, AcDb::kTextVertMid, AcDb::kTextTop}) {
        SCOPED_TRACE(testing::Message() << point.size() << " " << horizontal << " " << vertical);
        std::vector<Group> groups = {{50, "33.3"}, {210, "0.0"}, {220, "0.0"}, {230, "-1.0"}};
        groups.insert(groups.begin(), point.begin(), point.end());
        const std::string bytes =
            TestDrawing{1015, textEntity(TextKind::kText, 1015, kHandle, groups)}.bytes();
        OpenDrawing drawing(bytes);
        AcDbText* text = nullptr;
        ASSERT_EQ(acdbOpenObject(text, drawing.find(kHandle), AcDb::kForWrite), Acad::eOk);
        const AcGePoint3d place = text->position();
        text->setHorizontalMode(horizontal);
        text->setVerticalMode(vertical);
        text->adjustAlignment(&*drawing);
        text->transformBy(AcGeMatrix3d::translation(place - text->position()));
        text->close();
        for (const std::string& line : groupDiff(bytes, drawing.bytes()))
          EXPECT_EQ(std::string("72 73 11 21 31").find(line.substr(1, 2)) % 3, 0U) << line;
        AcDbText* again = nullptr;
        ASSERT_EQ(acdbOpenObject(again, drawing.find(kHandle), AcDb::kForWrite), Acad::eOk);
        again->adjustAlignment(&*drawing);
        EXPECT_TRUE(again->position().isEqualTo(place));
        again->close();
      }
    }
  }
}

// Other programs go by the embedded object of a text with columns: it says the same as the text.
TEST(MText, EmbeddedColumnsFollow) {
  const std::string bytes =
      TestDrawing{1032, groupLines({{0, "MTEXT"},        {5, "101"},   {330, "1F"},
                                    {100, "AcDbEntity"}, {8, "WIRES"}, {100, "AcDbMText"},
                                    {10, "5.0"},         {20, "6.0"},  {30, "0.0"},
                                    {40, "2.5"},         {41, "20.0"}, {71, "1"},
                                    {72, "5"},           {1, "K1"},    {101, "Embedded Object"},
                                    {70, "1"},           {10, "1.0"},  {20, "0.0"},
                                    {30, "0.0"},         {11, "5.0"},  {21, "6.0"},
                                    {31, "0.0"},         {40, "20.0"}, {71, "2"}})}
          .bytes();
  OpenDrawing drawing(bytes);
  AcDbMText* text = nullptr;
  ASSERT_EQ(acdbOpenObject(text, drawing.find(kHandle), AcDb::kForWrite), Acad::eOk);
  EXPECT_EQ(text->setAttachment(AcDbMText::kBottomRight), Acad::eOk);
  EXPECT_EQ(text->setLocation({7.7, 6, 0}), Acad::eOk);
  EXPECT_EQ(text->setRotation(kPi / 2), Acad::eOk);
  text->close();
  using Lines = std::vector<std::string>;
  EXPECT_EQ(groupDiff(bytes, drawing.bytes()),
            (Lines{"-10=5.0", "+10=7.7", "-71=1", "+71=9", "+50=90.0", "-70=1", "-10=1.0",
                   "-20=0.0", "+70=9", "+10=0.0", "+20=1.0", "-11=5.0", "+11=7.7"}));
}

TEST(Text, MultiLineAttributeKeepsItsCopies) {
  std::string multi =
      TestDrawing{1032, textEntity(TextKind::kAttribute, 1032, kHandle,
                                   {{72, "1"}, {11, "100.0"}, {21, "50.0"}, {31, "0.0"}})}
          .bytes();
  const std::string embedded = groupLines({{101, "Embedded Object"},
                                           {10, "100.0"},
                                           {20, "50.0"},
                                           {30, "0.0"},
                                           {11, "1.0"},
                                           {21, "0.0"},
                                           {31, "0.0"},
                                           {40, "2.5"},
                                           {41, "20.0"},
                                           {1, "K1\\PK2"}});
  multi.insert(multi.find("  0\nSEQEND"), embedded);
  OpenDrawing drawing(multi);
  AcDbAttribute* attribute = nullptr;
  ASSERT_EQ(acdbOpenObject(attribute, drawing.find(kHandle), AcDb::kForWrite), Acad::eOk);
  EXPECT_TRUE(attribute->isMTextAttribute());
  EXPECT_EQ(attribute->setHeight(5), Acad::eOk);
  EXPECT_EQ(attribute->setRotation(kPi / 2), Acad::eOk);
  EXPECT_EQ(attribute->setAlignmentPoint({110, 50, 0}), Acad::eOk);
  attribute->close();
  const std::string after = drawing.bytes();
  const std::size_t at = after.find("Embedded Object");
  ASSERT_NE(at, std::string::npos);
  const std::string tail = after.substr(at, after.find("SEQEND") - at);
  for (const char* line :
       {" 10\n110.0\n", " 20\n50.0\n", " 21\n1.0\n", " 40\n5.0\n", " 41\n20.0\n"})
    EXPECT_NE(tail.find(line), std::string::npos) << line << "in\n" << tail;
}

// Other programs show a multi-line attribute by its embedded object: it goes where the attribute's
// alignment goes.
TEST(Text, MultiLineAttributeIsAttachedByItsAlignment) {
  const struct {
    int horizontal;
    int vertical;
    const char* attachment;
  } cases[] = {
      {AcDb::kTextLeft, AcDb::kTextTop, "1"},      {AcDb::kTextRight, AcDb::kTextTop, "3"},
      {AcDb::kTextMid, AcDb::kTextBase, "5"},      {AcDb::kTextRight, AcDb::kTextVertMid, "6"},
      {AcDb::kTextCenter, AcDb::kTextBottom, "8"}, {AcDb::kTextRight, AcDb::kTextBase, "9"},
      {AcDb::kTextLeft, AcDb::kTextBase, "1"}};
  for (const std::string present : {"1", ""}) {
    std::string multi =
        TestDrawing{1032, textEntity(TextKind::kAttribute, 1032, kHandle, {})}.bytes();
    std::string embedded = groupLines({{101, "Embedded Object"}, {10, "100.0"}, {20, "50.0"}});
    if (!present.empty()) embedded += groupLines({{71, present}});
    multi.insert(multi.find("  0\nSEQEND"), embedded + groupLines({{1, "K1\\PK2"}}));
    for (const auto& each : cases) {
      OpenDrawing drawing(multi);
      AcDbAttribute* attribute = nullptr;
      ASSERT_EQ(acdbOpenObject(attribute, drawing.find(kHandle), AcDb::kForWrite), Acad::eOk);
      attribute->setVerticalMode(static_cast<AcDb::TextVertMode>(each.vertical));
      attribute->setHorizontalMode(static_cast<AcDb::TextHorzMode>(each.horizontal));
      attribute->setAlignmentPoint({30, 40, 0});
      attribute->close();
      const std::string after = drawing.bytes();
      const std::string tail = after.substr(after.find("Embedded Object"));
      const std::string group = groupLines({{71, each.attachment}});
      const bool isLeftAlone = each.horizontal == 0 && each.vertical == 0;
      EXPECT_EQ(tail.find(group) != std::string::npos, !isLeftAlone || !present.empty()) << tail;
      EXPECT_EQ(tail.find(" 10\n30.0\n 20\n40.0\n") != std::string::npos, !isLeftAlone) << tail;
    }
  }
}

TEST(Text, IsMeasuredAnewWhenItsValueChanges) {
  OpenDrawing drawing(TestDrawing{}.bytes());
  AcDbText text({}, L"K1", AcDbObjectId::kNull, 2);
  text.setHorizontalMode(AcDb::kTextRight);
  for (const double x : {1.0, 20.5, 3.0}) {
    text.setAlignmentPoint({x, 4, 0});
    EXPECT_EQ(text.adjustAlignment(), Acad::eOk);
    EXPECT_TRUE(text.position().isEqualTo({x - 2.5, 4, 0})) << x;
  }
  text.setTextString(L"K123");
  text.adjustAlignment();
  EXPECT_TRUE(text.position().isEqualTo({3.0 - 5, 4, 0}));
}

TEST(Text, OutsideADatabaseHoldsItsOwnGroups) {
  const std::string bytes = TestDrawing{1009, ""}.bytes();
  OpenDrawing drawing(bytes);
  auto* text = new AcDbText({1, 2, 0}, L"\u00c4", AcDbObjectId::kNull, 0, kPi / 4);
  EXPECT_EQ(text->setDatabaseDefaults(), Acad::eOk);
  EXPECT_EQ(text->setLayer(L"WIRES"), Acad::eOk);
  EXPECT_EQ(text->setHorizontalMode(AcDb::kTextRight), Acad::eOk);
  EXPECT_EQ(text->setAlignmentPoint({1, 2, 0}), Acad::eOk);
  EXPECT_STREQ(text->textStringConst(), L"\u00c4");
  EXPECT_EQ(text->close(), Acad::eInvalidOpenState);
  AcDbBlockTableRecord* space = nullptr;
  ASSERT_EQ(acdbOpenObject(space, drawing->modelSpaceId(), AcDb::kForWrite), Acad::eOk);
  EXPECT_EQ(space->appendAcDbEntity(text), Acad::eOk);
  EXPECT_EQ(space->appendAcDbEntity(text), Acad::eAlreadyInDb);
  EXPECT_EQ(text->setHeight(4), Acad::eOk);
  text->close();
  space->close();
  // R12: no markers; the position lies 0.625 * 4 along the text before its end.
  const double back = 0.625 * 4 * std::sqrt(0.5);
  std::vector<std::string> added;
  for (const std::string& line : groupDiff(bytes, drawing.bytes()))
    if (line.starts_with("+")) added.push_back(line.substr(1));
  const std::vector<std::string> start = {"5=F001", "0=TEXT", "5=F000", "8=WIRES"};
  ASSERT_GE(added.size(), start.size());
  EXPECT_TRUE(std::equal(start.begin(), start.end(), added.begin()));
  AcDbText* again = nullptr;
  ASSERT_EQ(acdbOpenObject(again, drawing.find(0xF000)), Acad::eOk);
  EXPECT_NEAR(again->position().x, 1 - back, 1e-12);
  EXPECT_NEAR(again->position().y, 2 - back, 1e-12);
  EXPECT_STREQ(again->textStringConst(), L"\u00c4");
  EXPECT_STREQ(again->textStyleName(), L"Standard");
  again->close();
}

}  // namespace
}  // namespace kovra::arx::test
