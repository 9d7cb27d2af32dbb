// What needs no drawing: wild cards, text metrics, geometry, numbers as text.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "platform/arx/base/wildcard.h"
#include "platform/arx/geometry/geometry.h"
#include "platform/arx/geometry/ocs.h"
#include "platform/arx/geometry/text_metrics.h"
#include "platform/arx/geometry/units.h"

namespace kovra::arx {
namespace {

constexpr double kPi = std::numbers::pi;

struct MatchCase {
  const wchar_t* text;
  const wchar_t* pattern;
  bool matches;
};

TEST(Wildcard, FollowsTheLanguage) {
  const MatchCase cases[] = {
      {L"NAME", L"NAME", true},
      {L"NAME", L"NAM", false},
      {L"NAM", L"NAME", false},
      {L"NAME1", L"NAME,NAME[0-9]", true},
      {L"NAME12", L"NAME,NAME[0-9]", false},
      {L"NAMEX", L"NAME,NAME[0-9]", false},
      {L"SENBAN10", L"SEN*", true},
      {L"", L"*", true},
      {L"", L"", true},
      {L"A", L"", false},
      {L"ABCBD", L"*B?", true},
      {L"ABCBD", L"A*C*D", true},
      {L"ABCBD", L"A*C*X", false},
      {L"A1-", L"@#.", true},
      {L"A1B", L"@#.", false},
      {L"\u56f3\uff11", L"@@", false},
      {L"\u56f3", L"@", true},
      {L"AB", L"~AB", false},
      {L"ABC", L"~AB", true},
      {L"ABC", L"~A*,ABC", true},
      {L"B", L"[A-C]", true},
      {L"D", L"[A-C]", false},
      {L"D", L"[~A-C]", true},
      {L"-", L"[A-]", true},
      {L"-", L"[-A]", true},
      {L"]", L"[`]]", true},
      {L"*", L"`*", true},
      {L"A", L"`*", false},
      {L"A,B", L"A`,B", true},
      {L",", L"[,;]", true},
      {L"[", L"[", true},
      {L"A`", L"A`", true},
      {L"B", L"A,,B", true},
      {L"", L"A,", true},
      {L"~A", L"`~A", true},
      {L"A~", L"A~", true},
  };
  for (const MatchCase& c : cases)
    EXPECT_EQ(wildcardMatch(c.text, c.pattern, false), c.matches)
        << testing::PrintToString(std::wstring(c.text)) << " against "
        << testing::PrintToString(std::wstring(c.pattern));
}

TEST(Wildcard, CaseCountsUnlessTold) {
  EXPECT_FALSE(wildcardMatch(L"name", L"NAME", false));
  EXPECT_TRUE(wildcardMatch(L"name", L"NAM[A-F]", true));
  EXPECT_TRUE(wildcardMatch(L"\u00e4", L"\u00c4", true));
  EXPECT_FALSE(acutWcMatchEx(nullptr, L"*", true));
}

// Stars that a backtracking matcher would take exponential time for.
TEST(Wildcard, ManyStarsStayCheap) {
  std::wstring pattern;
  for (int i = 0; i < 2000; ++i) pattern += L"*a";
  EXPECT_FALSE(wildcardMatch(std::wstring(3000, L'a') + L"b", pattern, false));
}

TEST(TextMetrics, Advances) {
  const struct {
    const wchar_t* text;
    double halves;
  } cases[] = {
      {L"", 0},       {L"K1", 2},     {L"\u56f3\u9762", 4}, {L"\uff71\uff72", 2},
      {L"\uff21", 2}, {L"%%c10", 3},  {L"%%uAB%%u", 2},     {L"%%065B", 2},
      {L"100%", 4},   {L"%%%", 1},    {L"%%x", 3},          {L"\u3042A", 3},
      {L"\u26a1", 2}, {L"\u303f", 1}, {L"\U0001f50c", 2},
  };
  for (const auto& c : cases)
    EXPECT_EQ(lineAdvance(c.text), c.halves * kHalfWidthAdvance)
        << testing::PrintToString(std::wstring(c.text));
}

/// A line of two half-width characters, height 2: 2.5 by 2, at width factor 2 5 by 2.
TextShape line() {
  TextShape shape;
  shape.text = L"K1";
  shape.height = 2;
  shape.widthFactor = 2;
  shape.alignment = {10, 20, 5};
  return shape;
}

TEST(TextMetrics, PlacesByTheAlignmentPoint) {
  const struct {
    AcDb::TextHorzMode horizontal;
    AcDb::TextVertMode vertical;
    double x;
    double y;
  } cases[] = {
      {AcDb::kTextCenter, AcDb::kTextBase, 7.5, 20}, {AcDb::kTextRight, AcDb::kTextBase, 5, 20},
      {AcDb::kTextMid, AcDb::kTextBase, 7.5, 19},    {AcDb::kTextMid, AcDb::kTextTop, 7.5, 19},
      {AcDb::kTextLeft, AcDb::kTextTop, 10, 18},     {AcDb::kTextCenter, AcDb::kTextTop, 7.5, 18},
      {AcDb::kTextLeft, AcDb::kTextVertMid, 10, 19}, {AcDb::kTextRight, AcDb::kTextBottom, 5, 20},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.horizontal * 10 + c.vertical);
    TextShape shape = line();
    shape.horizontal = c.horizontal;
    shape.verticalMode = c.vertical;
    EXPECT_EQ(placeText(shape).position, AcGePoint3d(c.x, c.y, 5));
    // Turned by a quarter: along becomes up, across becomes left.
    shape.rotation = kPi / 2;
    EXPECT_TRUE(placeText(shape).position.isEqualTo({10 - (c.y - 20), 20 + (c.x - 10), 5}));
    shape.rotation = 0;
    shape.mirroredInX = true;
    EXPECT_EQ(placeText(shape).position, AcGePoint3d(20 - c.x, c.y, 5));
  }
}

TEST(TextMetrics, AlignedAndFittedLinesLieBetweenTheirPoints) {
  TextShape shape = line();
  shape.position = {0, 0, 0};
  shape.alignment = {0, 10, 0};
  shape.horizontal = AcDb::kTextAlign;
  TextPlacement place = placeText(shape);
  EXPECT_DOUBLE_EQ(place.width, 10);
  EXPECT_DOUBLE_EQ(place.height, 4);
  EXPECT_DOUBLE_EQ(place.rotation, kPi / 2);
  shape.horizontal = AcDb::kTextFit;
  place = placeText(shape);
  EXPECT_DOUBLE_EQ(place.width, 10);
  EXPECT_DOUBLE_EQ(place.height, 2);
  EXPECT_DOUBLE_EQ(place.widthFactor, 4);
  // Mirrored it reads from its second point to the first.
  shape.mirroredInX = true;
  EXPECT_TRUE(textCorners(shape, place)[0].isEqualTo({0, 10, 0}));
  EXPECT_TRUE(textCorners(shape, place)[2].isEqualTo({-2, 0, 0}));
  shape.mirroredInX = false;
  shape.alignment = shape.position;
  EXPECT_EQ(placeText(shape).widthFactor, 2);
}

TEST(TextMetrics, VerticalLinesHangDown) {
  TextShape shape = line();
  shape.text = L"\u56f3\u9762";
  shape.vertical = true;
  const TextPlacement place = placeText(shape);
  EXPECT_DOUBLE_EQ(place.top, 2);
  EXPECT_DOUBLE_EQ(place.bottom, 2 - 2 * kVerticalAdvance * 2);
  EXPECT_DOUBLE_EQ(place.width, kFullWidthAdvance * 2 * 2);
}

TEST(Geometry, AnglesRotationsMatrices) {
  const AcGeVector3d x = AcGeVector3d::kXAxis;
  const AcGeVector3d z = AcGeVector3d::kZAxis;
  EXPECT_DOUBLE_EQ(x.angleTo({0, 1, 0}, z), kPi / 2);
  EXPECT_DOUBLE_EQ(x.angleTo({0, -1, 0}, z), 1.5 * kPi);
  EXPECT_DOUBLE_EQ(x.angleTo({0, -1, 0}), kPi / 2);
  EXPECT_EQ(x.angleTo(x, z), 0);
  EXPECT_TRUE(AcGePoint3d(1, 0, 0).rotateBy(kPi / 2, z, {1, 1, 0}).isEqualTo({2, 1, 0}));
  const AcGeMatrix3d m = AcGeMatrix3d::translation({1, 2, 3}) *
                         AcGeMatrix3d::rotation(0.3, {1, 1, 0}) * AcGeMatrix3d::scaling(2);
  EXPECT_TRUE((m * m.inverse()).isEqualTo(AcGeMatrix3d()));
  EXPECT_EQ(AcGePoint3d::kOrigin.distanceTo({3, 4, 12}), 13);
  EXPECT_TRUE(AcGePoint3d(1, 1, 1).isEqualTo({1, 1, 1 + 1e-11}));
  EXPECT_FALSE(AcGePoint3d(1, 1, 1).isEqualTo({1, 1, 1 + 1e-9}));
}

TEST(Geometry, PlanesOfEntities) {
  // The rule turns at 1/64: below it the world's Y gives the plane's x.
  EXPECT_EQ(ocsXAxis({0, 0, 1}), AcGeVector3d(1, 0, 0));
  EXPECT_EQ(ocsXAxis({0, 0, -1}), AcGeVector3d(-1, 0, 0));
  EXPECT_EQ(ocsXAxis({1, 0, 0}), AcGeVector3d(0, 1, 0));
  EXPECT_EQ(ocsXAxis({0, 1, 0}), AcGeVector3d(-1, 0, 0));
  for (const AcGeVector3d& normal :
       {AcGeVector3d(0, 0, 1), AcGeVector3d(0.3, -0.4, 0.5), AcGeVector3d(0, 0, -2)}) {
    const AcGePoint3d point(1, 2, 3);
    EXPECT_TRUE(wcsToOcs(ocsToWcs(point, normal), normal).isEqualTo(point));
  }
}

TEST(Units, Lengths) {
  const struct {
    double value;
    int unit;
    int precision;
    const wchar_t* text;
  } cases[] = {
      {1.5, 2, 4, L"1.5000"},      {-0.00001, 2, 4, L"0.0000"}, {2, 2, 0, L"2"},
      {15.5, 1, 4, L"1.5500E+01"}, {15.5, 3, 2, L"1'-3.50\""},  {15.5, 4, 4, L"1'-3 1/2\""},
      {11.9999, 4, 2, L"1'-0\""},  {15.5, 5, 3, L"15 1/2"},     {-0.25, 5, 2, L"-1/4"},
      {0.1, 5, 0, L"0"},           {5, 4, 4, L"5\""},           {1, 9, 4, L""},
  };
  for (const auto& c : cases) EXPECT_EQ(formatLength(c.value, c.unit, c.precision), c.text);
}

TEST(Units, Angles) {
  EXPECT_EQ(formatAngle(kPi / 4, 0, 2), L"45.00");
  EXPECT_EQ(formatAngle(-kPi / 2, 0, 0), L"270");
  EXPECT_EQ(formatAngle(10.5 * kPi / 180, 1, 4), L"10d30'0\"");
  EXPECT_EQ(formatAngle(kPi, 2, 0), L"200g");
  EXPECT_EQ(formatAngle(kPi, 3, 3), L"3.142r");
  EXPECT_EQ(formatAngle(kPi / 4, 4, 0), L"N 45d E");
}

}  // namespace
}  // namespace kovra::arx
