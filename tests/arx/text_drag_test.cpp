// Texts that stay open for write while they are dragged: what ends up in the drawing, what comes
// back, and what is drawn meanwhile.
#include <gtest/gtest.h>

#include <numbers>
#include <random>

#include "platform/arx/database/journal.h"
#include "platform/arx/database/transaction_manager.h"
#include "platform/arx/drawing/drawing_walk.h"
#include "platform/arx/drawing/sketch.h"
#include "platform/arx/entities/text.h"
#include "tests/arx/test_drawing.h"

namespace kovra::arx::test {
namespace {

constexpr int kR12 = 1009;
constexpr int kR2000 = 1015;
constexpr int kFirst = 0x200;

/// Groups of texts whose places follow different rules.
const std::vector<Group> kTexts[] = {
    {},
    {{50, "33.33333333333333"}},
    {{50, "-90.0"}, {71, "2"}},
    {{72, "2"}, {11, "7.0"}, {21, "8.0"}, {31, "0.0"}, {50, "359.9999999999999"}},
    {{72, "4"}},
    {{72, "1"}, {73, "2"}, {11, "7.0"}, {21, "8.0"}, {31, "0.0"}, {7, "TATE"}},
    {{72, "1"}, {73, "3"}, {11, "7.0"}, {21, "8.0"}, {41, "0.7"}, {51, "15.0"}},
    {{72, "5"}, {11, "7.0"}, {21, "8.0"}, {31, "0.0"}},
    {{210, "0.0"}, {220, "0.0"}, {230, "-1.0"}, {50, "45.0"}},
    {{38, "4.0"}, {72, "2"}, {11, "7.0"}, {21, "8.0"}},
    {{60, "1"}},
};
constexpr int kCount = static_cast<int>(std::size(kTexts));

std::string manyTexts(int release) {
  std::string entities;
  for (int i = 0; i < kCount; ++i)
    entities += textEntity(TextKind::kText, release, kFirst + i, kTexts[i]);
  return TestDrawing{release, entities}.bytes();
}

AcDbText* openText(const OpenDrawing& drawing, int i) {
  AcDbText* text = nullptr;
  EXPECT_EQ(acdbOpenObject(text, drawing.find(kFirst + i), AcDb::kForWrite), Acad::eOk);
  return text;
}

void putAt(AcDbText& text, const AcGePoint3d& anchor) {
  text.setVisibility(AcDb::kVisible);
  if (text.isDefaultAlignment()) {
    text.setPosition(anchor);
  } else {
    text.setAlignmentPoint(anchor);
    text.adjustAlignment();
  }
}

AcGePoint3d anchorOf(const AcDbText& text) {
  return text.isDefaultAlignment() ? text.position() : text.alignmentPoint();
}

TEST(TextDrag, EndsAsIfTheTextsHadBeenPutThereAtOnce) {
  for (const int release : {kR12, kR2000}) {
    const OpenDrawing once(manyTexts(release));
    for (int i = 0; i < kCount; ++i) {
      AcDbText* text = openText(once, i);
      putAt(*text, AcGePoint3d(10.1, -3.7 * i, 0));
      text->close();
    }
    const std::string before = manyTexts(release);
    const OpenDrawing dragged(before);
    for (const bool accepted : {false, true}) {
      dragged->journal().beginStep(L"DRAG");
      dragged->transactionManager()->startTransaction();
      std::vector<AcDbText*> texts;
      for (int i = 0; i < kCount; ++i) texts.push_back(openText(dragged, i));
      std::mt19937 random(7);
      for (int move = 0; move <= 20; ++move)
        for (int i = 0; i < kCount; ++i) {
          const double x = move == 20 ? 10.1 : std::uniform_real_distribution<>(-9, 9)(random);
          const AcGePoint3d anchor(x, -3.7 * i, 0);
          AcDbText& text = *texts[static_cast<std::size_t>(i)];
          putAt(text, anchor);
          // A look at the groups in mid-drag, and at the values.
          if (random() % 3 == 0) static_cast<void>(text.thickness());
          EXPECT_TRUE(anchorOf(text).isEqualTo(anchor)) << i;
        }
      for (AcDbText* text : texts) text->close();
      if (accepted) {
        dragged->transactionManager()->endTransaction();
        EXPECT_EQ(dragged.bytes(), once.bytes());
      } else {
        dragged->transactionManager()->abortTransaction();
        EXPECT_EQ(dragged.bytes(), before);
      }
    }
    dragged->journal().undo(1);
    EXPECT_EQ(dragged.bytes(), before);
    dragged->journal().redo();
    EXPECT_EQ(dragged.bytes(), once.bytes());
  }
}

TEST(TextDrag, TurnedToMeasureAndBackLeavesEveryByte) {
  const std::string before = manyTexts(kR2000);
  const OpenDrawing drawing(before);
  std::vector<double> turns;
  for (int i = 0; i < kCount; ++i) {
    AcDbText* text = openText(drawing, i);
    turns.push_back(text->rotation());
    const AcDb::Visibility shown = text->visibility();
    text->setVisibility(AcDb::kInvisible);
    text->setRotation(0);
    text->close();
    text = openText(drawing, i);
    text->setVisibility(shown);
    text->setRotation(turns.back());
    text->close();
  }
  EXPECT_EQ(drawing.bytes(), before);
}

TEST(TextDrag, ExtentsAreTheBoxOfWhatIsDrawn) {
  const OpenDrawing drawing(manyTexts(kR2000));
  DrawingWalk walk(*drawing, dxf::kModelSpace, Showing::kAll);
  for (int i = 0; i < kCount; ++i) {
    AcDbText* text = openText(drawing, i);
    AcDbExtents extents;
    EXPECT_EQ(text->getGeomExtents(extents), Acad::eOk);
    text->close();
    AcDbExtents drawn;
    walk.entity(drawing.find(kFirst + i).index(), [&](const DrawnLeaf& leaf) {
      for (const DrawnShape& shape : walk.shapes(leaf))
        for (const AcGePoint3d& point : shape.points) drawn.addPoint(point);
      return true;
    });
    EXPECT_TRUE(extents.minPoint().isEqualTo(drawn.minPoint())) << i;
    EXPECT_TRUE(extents.maxPoint().isEqualTo(drawn.maxPoint())) << i;
  }
}

/// Keeps the colors, too.
class ColorSketch : public Sketch, private AcGiSubEntityTraits {
 public:
  AcGiSubEntityTraits& subEntityTraits() const override { return const_cast<ColorSketch&>(*this); }
  std::vector<int> colors;

 private:
  void setColor(Adesk::UInt16 color) override { colors.push_back(color); }
  void setTrueColor(const AcCmEntityColor& color) override {
    colors.push_back(color.colorIndex() +
                     1000 * (color.colorMethod() == AcCmEntityColor::kByColor));
  }
};

/// A drawable of an application's own that shows texts of the drawing.
class Column : public AcDbEntity {
 public:
  std::vector<AcDbText*> texts;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* context) override {
    for (AcDbText* text : texts) text->worldDraw(context);
    return true;
  }
};

TEST(TextDrag, ATransientEntityShowsTextsAsTheDrawingWill) {
  const std::vector<Group> cases[] = {{},
                                      {{62, "5"}},
                                      {{62, "0"}},
                                      {{60, "1"}},
                                      {{8, "HIDDEN"}},
                                      {{8, "OFF"}},
                                      {{8, "wires"}, {420, "255"}}};
  std::string entities;
  int handle = kFirst;
  for (const std::vector<Group>& extra : cases)
    entities += textEntity(TextKind::kText, kR12, handle++, extra);
  const OpenDrawing drawing(TestDrawing{kR12, entities}.bytes());
  Column column;
  for (int i = 0; i < handle - kFirst; ++i) column.texts.push_back(openText(drawing, i));
  EXPECT_EQ(column.isA(), AcDbEntity::desc());
  column.texts.front()->setPosition({-4, 5, 0});
  ColorSketch sketch;
  column.worldDraw(&sketch);
  for (AcDbText* text : column.texts) text->close();
  EXPECT_EQ(sketch.colors, (std::vector<int>{3, 5, 7, 1000}));
  ASSERT_EQ(sketch.texts().size(), 4u);
  EXPECT_TRUE(sketch.texts().front().position.isEqualTo({-4, 5, 0}));
}

}  // namespace
}  // namespace kovra::arx::test
