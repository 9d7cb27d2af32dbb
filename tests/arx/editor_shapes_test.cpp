// What entities of each type are hit at, alone and inside block references.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/arx/drawing/polyline_draw.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/picks/hit_test.h"
#include "tests/arx/editor_user.h"
#include "tests/arx/test_drawing.h"

namespace kovra::arx::test {
namespace {

/// An entity of the type on layer 0 with handle 40.
std::string entity(const char* type, const char* marker, std::vector<Group> groups) {
  std::vector<Group> all = {{0, type}, {5, "40"}, {100, "AcDbEntity"}, {8, "0"}, {100, marker}};
  all.insert(all.end(), groups.begin(), groups.end());
  return groupLines(all);
}

/// Keeps the view at 200 units over 1000 pixels, so that a pick reaches 0.6 units.
std::string frame() {
  return lineEntity(0x30, -100, -100, -100, 100, "OFF") +
         lineEntity(0x31, 220, -100, 220, 100, "OFF");
}

bool hits(double x, double y) {
  return pickAt(*acDocManagerPtr()->curDocument(), {x, y, 0}).has_value();
}

TEST(EditorShapes, AreHitWhereTheyAreDrawn) {
  struct Case {
    const char* name;
    std::string entity;
    std::vector<std::pair<double, double>> on;
    std::vector<std::pair<double, double>> off;
  };
  const Case cases[] = {
      {"line", lineEntity(0x40, 0, 0, 40, 0), {{20, 0.5}, {0, 0}, {40.5, 0}}, {{20, 0.8}, {42, 0}}},
      {"circle",
       entity("CIRCLE", "AcDbCircle", {{10, "10.0"}, {20, "0.0"}, {40, "5.0"}}),
       {{15, 0}, {10, 5}, {5, 0}},
       {{10, 0}, {18, 0}}},
      {"arc over the zero angle",
       entity("ARC", "AcDbCircle",
              {{10, "0.0"}, {20, "0.0"}, {40, "10.0"}, {50, "315.0"}, {51, "45.0"}}),
       {{10, 0}, {7.07, 7.07}},
       {{-10, 0}, {0, 10}}},
      {"arc seen from behind",
       entity("ARC", "AcDbCircle",
              {{10, "0.0"},
               {20, "0.0"},
               {40, "10.0"},
               {210, "0.0"},
               {220, "0.0"},
               {230, "-1.0"},
               {50, "315.0"},
               {51, "45.0"}}),
       {{-10, 0}},
       {{10, 0}}},
      {"ellipse",
       entity("ELLIPSE", "AcDbEllipse",
              {{10, "0.0"},
               {20, "0.0"},
               {11, "20.0"},
               {21, "0.0"},
               {40, "0.5"},
               {41, "0.0"},
               {42, "6.283185307179586"}}),
       {{20, 0}, {0, 10}, {0, -10}},
       {{0, 20}, {0, 0}}},
      {"polyline with a half turn, closed",
       entity("LWPOLYLINE", "AcDbPolyline",
              {{90, "2"},
               {70, "1"},
               {10, "0.0"},
               {20, "0.0"},
               {42, "1.0"},
               {10, "20.0"},
               {20, "0.0"},
               {42, "0.0"}}),
       {{10, -10}, {10, 0}},
       {{10, 10}}},
      {"solid, its corners row by row",
       entity("SOLID", "AcDbTrace",
              {{10, "0.0"},
               {20, "0.0"},
               {11, "10.0"},
               {21, "0.0"},
               {12, "0.0"},
               {22, "10.0"},
               {13, "10.0"},
               {23, "10.0"}}),
       {{5, 9}, {9, 5}},
       {{12, 5}}},
      {"point", entity("POINT", "AcDbPoint", {{10, "3.0"}, {20, "4.0"}}), {{3.3, 4.3}}, {{4, 4}}},
      {"text, its box",
       textEntity(TextKind::kText, 1015, 0x40, {}),
       {{101, 51}, {102.3, 52.4}},
       {{104, 51}, {101, 47}}},
      {"text turned",
       textEntity(TextKind::kText, 1015, 0x40, {{50, "90.0"}}),
       {{98.5, 52}},
       {{102, 51}}},
      {"text that leans",
       textEntity(TextKind::kText, 1015, 0x40, {{51, "45.0"}}),
       {{105, 52.3}, {101, 50.2}},
       {{100.2, 52.3}}},
      {"text with an alignment point, its position not in step",
       textEntity(TextKind::kText, 1015, 0x40, {{72, "2"}, {11, "60.0"}, {21, "10.0"}, {73, "0"}}),
       {{59, 11}},
       {{61.5, 11}, {101, 51}}},
      {"multi-line text",
       entity("MTEXT", "AcDbMText",
              {{10, "0.0"},
               {20, "0.0"},
               {40, "5.0"},
               {41, "0.0"},
               {71, "1"},
               {1, "{\\fArial;ab}\\Pcd"}}),
       {{2, -2}, {2, -12}},
       {{9, -2}, {2, -16}}},
      {"hidden entity",
       groupLines({{0, "POINT"}, {5, "40"}, {8, "0"}, {60, "1"}, {10, "3.0"}, {20, "4.0"}}),
       {},
       {{3, 4}}},
  };
  for (const Case& one : cases) {
    EditorUser user(frame() + one.entity);
    SCOPED_TRACE(one.name);
    for (const auto& [x, y] : one.on) EXPECT_TRUE(hits(x, y)) << x << "," << y;
    for (const auto& [x, y] : one.off) EXPECT_FALSE(hits(x, y)) << x << "," << y;
  }
}

TEST(EditorShapes, BulgesTurnToTheRightSide) {
  // A quarter turn counter-clockwise from (10, 0) to (0, 10) about the origin.
  const auto arc = bulgeArc({10, 0, 0}, {0, 10, 0}, std::tan(std::acos(-1) / 8));
  ASSERT_TRUE(arc.has_value());
  EXPECT_TRUE(arc->center.isEqualTo({0, 0, 0}));
  EXPECT_NEAR(arc->radius, 10, 1e-9);
  EXPECT_NEAR(arc->start, 0, 1e-9);
  EXPECT_NEAR(arc->sweep, std::acos(0), 1e-9);
}

TEST(EditorShapes, NestedEntitiesComeWithMatrixAndContainers) {
  const std::string inside = lineEntity(0x50, 0, 0, 10, 0, "0");
  const std::string reference = entity("INSERT", "AcDbBlockReference",
                                       {{2, "SYM"},
                                        {10, "100.0"},
                                        {20, "20.0"},
                                        {41, "2.0"},
                                        {42, "2.0"},
                                        {43, "2.0"},
                                        {50, "90.0"}});
  EditorUser user(frame() + reference, inside);
  const auto hit = pickAt(*acDocManagerPtr()->curDocument(), {100, 35, 0});
  ASSERT_TRUE(hit.has_value());
  EXPECT_EQ(hit->entity, user.find(0x40));
  EXPECT_EQ(hit->leaf, user.find(0x50));
  ASSERT_EQ(hit->containers.size(), 1U);
  EXPECT_EQ(hit->containers[0], user.find(0x40));
  AcGePoint3d end(10, 0, 0);
  EXPECT_TRUE(end.transformBy(hit->toWorld).isEqualTo({100, 40, 0}, AcGeTol()));
  EXPECT_FALSE(hits(110, 20));
  // What is on layer 0 in a block is on the reference's layer.
  user.run({"-LAYER OFF 0 Y "});
  EXPECT_FALSE(hits(100, 35));
}

TEST(EditorShapes, BlocksInsideThemselvesEnd) {
  const std::string itself =
      entity("INSERT", "AcDbBlockReference", {{2, "SYM"}, {10, "1.0"}, {20, "0.0"}});
  EditorUser user(frame() + itself, itself + lineEntity(0x50, 0, 0, 10, 0, "0"));
  EXPECT_TRUE(hits(5, 0));
  EXPECT_FALSE(hits(12.5, 0));
}

TEST(EditorShapes, ArraysOfReferencesRepeat) {
  EditorUser user(frame() + entity("INSERT", "AcDbBlockReference",
                                   {{2, "SYM"},
                                    {10, "0.0"},
                                    {20, "0.0"},
                                    {70, "2"},
                                    {71, "3"},
                                    {44, "50.0"},
                                    {45, "20.0"}}),
                  lineEntity(0x50, 0, 0, 10, 0, "0"));
  for (const double x : {5.0, 55.0})
    for (const double y : {0.0, 20.0, 40.0}) EXPECT_TRUE(hits(x, y)) << x << "," << y;
  EXPECT_FALSE(hits(105, 0));
  EXPECT_FALSE(hits(5, 60));
}

}  // namespace
}  // namespace kovra::arx::test
