// Undo, redo and transactions over random edits, and the rules for steps, marks and groups.
#include "platform/arx/database/journal.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/arx/database/block_table_record.h"
#include "platform/arx/database/transaction_manager.h"
#include "platform/arx/entities/text.h"
#include "platform/arx/lists/entity_lists.h"
#include "tests/arx/test_drawing.h"

namespace kovra::arx::test {
namespace {

constexpr int kTexts = 6;
constexpr int kFirst = 0x200;

std::string manyTexts(int release) {
  std::string entities;
  for (int i = 0; i < kTexts; ++i)
    entities += textEntity(i % 2 == 0 ? TextKind::kText : TextKind::kAttribute, release,
                           kFirst + 4 * i, {{72, "2"}, {11, "100.0"}, {21, "50.0"}});
  return TestDrawing{release, entities}.bytes();
}

/// Changes of every kind that commands make, in an order that follows from the seed.
class RandomEdits {
 public:
  RandomEdits(OpenDrawing& drawing, unsigned seed) : drawing_(drawing), random_(seed) {}

  void oneCommand() {
    drawing_->journal().beginStep(L"EDIT");
    for (int i = pick(4); i >= 0; --i) oneEdit();
  }

  int pick(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }

 private:
  void oneEdit() {
    switch (pick(6)) {
      case 0:
        return addText();
      case 1:
        return static_cast<void>(
            drawing_->setHeaderValue("$TEXTSIZE", static_cast<double>(1 + pick(3))));
      case 2:
        return toggleLock();
      default:
        return changeText();
    }
  }

  void changeText() {
    AcDbText* text = nullptr;
    const AcDbObjectId id = drawing_.find(kFirst + 4 * pick(kTexts));
    if (acdbOpenObject(text, id, AcDb::kForWrite, true) != Acad::eOk) return;
    switch (pick(5)) {
      case 0:
        text->setHeight(1 + pick(4));
        break;
      case 1:
        text->setTextString(std::to_wstring(pick(1000)).c_str());
        break;
      case 2:
        text->setLayer(pick(2) == 0 ? L"OFF" : L"WIRES");
        break;
      case 3:
        text->setRotation(pick(8));
        break;
      default:
        text->erase(!text->isErased());
        break;
    }
    text->close();
  }

  void addText() {
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, drawing_->modelSpaceId(), AcDb::kForWrite), Acad::eOk);
    auto* text = new AcDbText({1, 2, 3}, L"new");
    EXPECT_EQ(space->appendAcDbEntity(text), Acad::eOk);
    text->close();
    space->close();
  }

  void toggleLock() {
    AcDbLayerTable* table = nullptr;
    AcDbLayerTableRecord* layer = nullptr;
    ASSERT_EQ(drawing_->getSymbolTable(table, AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(table->getAt(L"WIRES", layer, AcDb::kForWrite), Acad::eOk);
    layer->setIsLocked(!layer->isLocked());
    layer->close();
    table->close();
  }

  OpenDrawing& drawing_;
  std::mt19937 random_;
};

class RandomHistory : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Releases, RandomHistory, testing::Values(1009, 1015));

TEST_P(RandomHistory, UndoAllGivesTheFileAndRedoAllTheResult) {
  const std::string file = manyTexts(GetParam());
  for (unsigned seed = 1; seed <= 25; ++seed) {
    SCOPED_TRACE(seed);
    OpenDrawing drawing(file);
    RandomEdits edits(drawing, seed);
    std::vector<std::string> states = {file};
    for (int i = 0; i < 12; ++i) {
      edits.oneCommand();
      if (drawing.bytes() != states.back()) states.push_back(drawing.bytes());
    }
    Journal& journal = drawing->journal();
    for (std::size_t i = states.size() - 1; i-- > 0;) {
      EXPECT_EQ(journal.undo(1).size(), 1U);
      EXPECT_EQ(drawing.bytes(), states[i]);
    }
    EXPECT_TRUE(journal.undo(1).empty());
    EXPECT_FALSE(drawing->isModified());
    for (std::size_t i = 1; i < states.size(); ++i) {
      EXPECT_TRUE(journal.redo());
      EXPECT_EQ(drawing.bytes(), states[i]);
    }
    EXPECT_FALSE(journal.redo());
    journal.undo(1000);
    EXPECT_EQ(drawing.bytes(), file);
  }
}

TEST_P(RandomHistory, AbortGivesTheStartAlsoOfNestedTransactions) {
  OpenDrawing drawing(manyTexts(GetParam()));
  RandomEdits edits(drawing, 7);
  AcTransactionManager& transactions = *drawing->transactionManager();
  for (int i = 0; i < 30; ++i) {
    edits.oneCommand();
    const std::string before = drawing.bytes();
    transactions.startTransaction();
    edits.oneCommand();
    const std::string outer = drawing.bytes();
    transactions.startTransaction();
    edits.oneCommand();
    if (edits.pick(2) == 0) {
      EXPECT_EQ(transactions.abortTransaction(), Acad::eOk);
      EXPECT_EQ(drawing.bytes(), outer);
    } else {
      EXPECT_EQ(transactions.endTransaction(), Acad::eOk);
    }
    EXPECT_EQ(transactions.abortTransaction(), Acad::eOk);
    EXPECT_EQ(drawing.bytes(), before);
  }
  EXPECT_EQ(transactions.abortTransaction(), Acad::eNoActiveTransactions);
}

TEST(Journal, OpenObjectsSeeWhatAnAbortPutBack) {
  OpenDrawing drawing(manyTexts(1015));
  AcDbText* text = nullptr;
  ASSERT_EQ(acdbOpenObject(text, drawing.find(kFirst), AcDb::kForRead), Acad::eOk);
  drawing->transactionManager()->startTransaction();
  ASSERT_EQ(text->upgradeOpen(), Acad::eOk);
  text->setHeight(7);
  text->downgradeOpen();
  drawing->transactionManager()->abortTransaction();
  EXPECT_EQ(text->height(), 2.5);

  // A writer that hasn't closed: what it did before the start stays, what came later goes.
  ASSERT_EQ(text->upgradeOpen(), Acad::eOk);
  text->setHeight(4);
  drawing->transactionManager()->startTransaction();
  text->setHeight(7);
  drawing->transactionManager()->abortTransaction();
  EXPECT_EQ(text->height(), 4);
  text->close();
  EXPECT_NE(drawing.bytes().find("\n 40\n4.0\n"), std::string::npos);
}

class Steps : public testing::Test {
 protected:
  OpenDrawing drawing_{manyTexts(1015)};
  Journal& journal_ = drawing_->journal();

  void setHeight(double height) {
    AcDbText* text = nullptr;
    ASSERT_EQ(acdbOpenObject(text, drawing_.find(kFirst), AcDb::kForWrite), Acad::eOk);
    text->setHeight(height);
    text->close();
  }
  double height() {
    AcDbText* text = nullptr;
    EXPECT_EQ(acdbOpenObject(text, drawing_.find(kFirst), AcDb::kForRead), Acad::eOk);
    const double value = text->height();
    text->close();
    return value;
  }
  void step(const wchar_t* name, double height) {
    journal_.beginStep(name);
    setHeight(height);
  }
};

TEST_F(Steps, UndoGivesNamesAndSkipsEmptySteps) {
  step(L"A", 3);
  journal_.beginStep(L"NOTHING");
  journal_.beginStep(L"THERE AND BACK");
  setHeight(9);
  setHeight(3);
  step(L"B", 4);
  journal_.beginStep(L"NOTHING");
  EXPECT_EQ(journal_.undo(5), (std::vector<std::wstring>{L"B", L"A"}));
  EXPECT_EQ(height(), 2.5);
  EXPECT_TRUE(journal_.redo());
  EXPECT_EQ(height(), 4);
}

TEST_F(Steps, AChangeForgetsWhatCouldBeRedone) {
  step(L"A", 3);
  journal_.undo(1);
  ASSERT_TRUE(journal_.canRedo());
  step(L"B", 4);
  EXPECT_FALSE(journal_.redo());
}

TEST_F(Steps, MarksPartOneCommand) {
  step(L"PLACE", 3);
  journal_.setMark();
  setHeight(4);
  journal_.setMark();
  setHeight(5);
  EXPECT_EQ(journal_.undo(1).size(), 1U);
  EXPECT_EQ(height(), 4);
  EXPECT_EQ(journal_.undo(1).size(), 1U);
  EXPECT_EQ(height(), 3);
  EXPECT_EQ(journal_.undo(1), std::vector<std::wstring>{L"PLACE"});
  EXPECT_EQ(height(), 2.5);
}

TEST_F(Steps, BackGoesToTheLatestMark) {
  step(L"A", 3);
  journal_.setMark();
  step(L"B", 4);
  step(L"C", 5);
  EXPECT_TRUE(journal_.undoBack());
  EXPECT_EQ(height(), 3);
  EXPECT_FALSE(journal_.hasMark());
  EXPECT_TRUE(journal_.redo());
  EXPECT_EQ(height(), 5);
  EXPECT_TRUE(journal_.hasMark());
}

TEST_F(Steps, AGroupGoesWithTheTransactionThatItBeganIn) {
  drawing_->transactionManager()->startTransaction();
  setHeight(3);
  journal_.beginGroup();
  drawing_->transactionManager()->abortTransaction();
  EXPECT_FALSE(journal_.groupOpen());
  journal_.endGroup();
  EXPECT_TRUE(journal_.undo(1).empty());
}

TEST_F(Steps, AGroupIsOneStep) {
  step(L"A", 3);
  journal_.beginGroup();
  step(L"B", 4);
  step(L"C", 5);
  EXPECT_EQ(journal_.undo(1).size(), 1U);
  EXPECT_EQ(height(), 4);
  EXPECT_EQ(journal_.undo(5).size(), 1U) << "not past the group's beginning";
  EXPECT_EQ(height(), 3);
  step(L"D", 6);
  step(L"E", 7);
  journal_.endGroup();
  step(L"F", 8);
  EXPECT_EQ(journal_.undo(2).size(), 2U);
  EXPECT_EQ(height(), 3);
}

}  // namespace
}  // namespace kovra::arx::test
