#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "module/frame/companions/drawing_tools_lib.h"
#include "module/frame/companions/entity_attr_lib.h"
#include "module/frame/companions/project_data_lib.h"
#include "module/frame/companions/project_tools_lib.h"
#include "module/frame/companions/reactor_tools_lib.h"
#include "module/frame/companions/string_res_lib.h"
#include "module/frame/companions/ui_tools_lib.h"
#include "module/frame/companions/window_ui_lib.h"
#include "platform/arx/database/journal.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/windows/system_metrics.h"
#include "platform/win/windows/window_api.h"
#include "tests/companions/temporary_folder.h"

namespace {

namespace host = kovra::arx::host;

std::string textRecord(const char* handle, const char* layer) {
  return std::string("  0\nTEXT\n  5\n") + handle + "\n  8\n" + layer +
         "\n 10\n1.0\n 20\n2.0\n 40\n2.5\n  1\nX1\n";
}

std::string drawing() {
  return "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1009\n  0\nENDSEC\n"
         "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLAYER\n 70\n2\n"
         "  0\nLAYER\n  2\n0\n 70\n0\n 62\n7\n  6\nCONTINUOUS\n"
         "  0\nLAYER\n  2\nFrame\n 70\n0\n 62\n7\n  6\nCONTINUOUS\n  0\nENDTAB\n  0\nENDSEC\n"
         "  0\nSECTION\n  2\nENTITIES\n" +
         textRecord("21", "0") + textRecord("22", "Frame") + textRecord("23", "FRAME") +
         textRecord("24", "0") + "  0\nENDSEC\n  0\nEOF\n";
}

class Drawings : public ::testing::Test {
 protected:
  Drawings() {
    folder.write("project.ini",
                 "[Project]\nDataVersion=12.0\n[Drawings]\n1=a.dxf\n2=b.dxf\n"
                 "[Scale]\na.dxf=20\n[ExcludedLayers]\n1=FRAME\n");
    folder.write("a.dxf", drawing());
    folder.write("b.dxf", drawing());
    kovra::win::setCurrentProject(folder.path());
    kovra::win::interaction().setTranscript([this](std::string_view text) { shown += text; });
  }
  ~Drawings() override {
    for (const host::DrawingInfo& open : host::drawings()) EXPECT_TRUE(host::closeDrawing(open.id));
    kovra::win::setCurrentProject({});
    kovra::win::interaction().setTranscript({});
    kovra::win::interaction().takeFailure();
    kovra::win::runSettings().keepBackup = true;
  }

  std::wstring path(const char* name) const { return (folder.path() / name).wstring(); }

  TemporaryFolder folder;
  std::string shown;
};

TEST_F(Drawings, TheScaleIsTheProjectsForThisFile) {
  double scale = -1;
  EXPECT_EQ(GetDrawingScale(scale, nullptr, 0), 0);
  AcDbDatabase unnamed(true, true);
  EXPECT_EQ(GetDrawingScale(scale, &unnamed, 0), 0);
  AcDbDatabase* b = OpenSharedDatabase(path("b.dxf").c_str());
  EXPECT_EQ(GetDrawingScale(scale, b, 0), 0);
  EXPECT_EQ(scale, -1);
  AcDbDatabase* a = OpenSharedDatabase(path("a.dxf").c_str());
  EXPECT_NE(GetDrawingScale(scale, a, 0), 0);
  EXPECT_EQ(scale, 20);
  kovra::win::setCurrentProject({});
  EXPECT_EQ(GetDrawingScale(scale, a, 0), 0);
  ReleaseSharedDatabase(a);
  ReleaseSharedDatabase(b);
}

TEST_F(Drawings, ASharedDatabaseLivesUntilItsLastRelease) {
  EXPECT_EQ(OpenSharedDatabase(path("none.dxf").c_str()), nullptr);
  AcDbDatabase* first = OpenSharedDatabase(path("a.dxf").c_str());
  ASSERT_NE(first, nullptr);
  std::filesystem::create_symlink("a.dxf", folder.path() / "link.dxf");
  EXPECT_EQ(OpenSharedDatabase(path("link.dxf").c_str()), first);
  ReleaseSharedDatabase(first);
  EXPECT_EQ(FindLoadedDatabase(path("a.dxf").c_str()), first);
  ReleaseSharedDatabase(first);
  EXPECT_EQ(FindLoadedDatabase(path("a.dxf").c_str()), nullptr);
}

TEST_F(Drawings, SavesWithTheRunsBackupRuleAndSaysWhatFails) {
  AcDbDatabase* database = OpenSharedDatabase(path("a.dxf").c_str());
  ASSERT_NE(database, nullptr);
  ASSERT_EQ(database->setHeaderValue("$TEXTSIZE", 7.5), Acad::eOk);
  kovra::win::runSettings().keepBackup = false;
  SaveDatabase(database, path("a.dxf").c_str());
  EXPECT_NE(folder.read("a.dxf"), drawing());
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "a.dxf.bak"));
  EXPECT_EQ(shown, "");

  std::filesystem::permissions(folder.path() / "b.dxf", std::filesystem::perms::owner_read);
  SaveDatabase(database, path("b.dxf").c_str());
  EXPECT_NE(shown.find("b.dxf"), std::string::npos);
  EXPECT_TRUE(kovra::win::interaction().takeFailure().has_value());
  EXPECT_EQ(folder.read("b.dxf"), drawing());
  ReleaseSharedDatabase(database);
}

// Each is refused with its reason on one line, and stays as it was.
TEST_F(Drawings, WhatIsNoDrawingIsNotRead) {
  const std::string whole = drawing();
  const struct {
    const char* name;
    std::string bytes;
    Acad::ErrorStatus status;
  } cases[] = {{"empty.dxf", "", Acad::eDwgNeedsRecovery},
               {"real.dwg", std::string("AC1032\0\0\0", 9), Acad::eDwgNeedsRecovery},
               {"cut.dxf", whole.substr(0, whole.size() - 30), Acad::eDwgNeedsRecovery},
               {"text.dxf", "no drawing\n", Acad::eDwgNeedsRecovery}};
  for (const auto& each : cases) {
    folder.write(each.name, each.bytes);
    shown.clear();
    AcDbDatabase database(false, true);
    EXPECT_EQ(database.readDwgFile(path(each.name).c_str(), 3, false, nullptr), each.status);
    EXPECT_FALSE(database.hasDrawing()) << each.name;
    EXPECT_NE(shown.find(each.name), std::string::npos) << shown;
    EXPECT_EQ(std::ranges::count(shown, '\n'), 1) << shown;
    EXPECT_EQ(OpenSharedDatabase(path(each.name).c_str()), nullptr) << each.name;
    EXPECT_EQ(folder.read(each.name), each.bytes);
  }
  AcDbDatabase database(false, true);
  EXPECT_EQ(database.readDwgFile(path("none.dxf").c_str()), Acad::eFileNotFound);
  EXPECT_EQ(database.readDwgFile(folder.path().wstring().c_str()), Acad::eFileAccessErr);
  EXPECT_EQ(database.readDwgFile(path("a.dxf").c_str()), Acad::eOk);
  EXPECT_EQ(database.readDwgFile(path("b.dxf").c_str()), Acad::eInvalidInput);
  EXPECT_FALSE(AcAxDocLock(&database, AcAxDocLock::kMinimum).lockStatus()) << "nothing to lock";
}

// A drawing that somebody else saved meanwhile is theirs, whatever path leads to it.
TEST_F(Drawings, ADrawingThatChangedOnDiskIsNotWrittenOver) {
  std::filesystem::create_symlink("a.dxf", folder.path() / "link.dxf");
  const std::string theirs = drawing() + "999\ntheirs\n";
  for (const char* name : {"a.dxf", "link.dxf"}) {
    folder.write("a.dxf", drawing());
    AcDbDatabase database(false, true);
    ASSERT_EQ(database.readDwgFile(path(name).c_str()), Acad::eOk);
    ASSERT_EQ(database.setHeaderValue("$TEXTSIZE", 7.5), Acad::eOk);
    folder.write("a.dxf", theirs);
    SaveDatabase(&database, path(name).c_str());
    EXPECT_EQ(folder.read("a.dxf"), theirs) << name;
    EXPECT_NE(shown.find("changed by another program"), std::string::npos) << shown;
    EXPECT_EQ(folder.files(), 4U) << "nothing is left of the attempt";
  }
}

TEST_F(Drawings, EntitiesOnExcludedLayersLeaveASelection) {
  ASSERT_TRUE(host::openDrawing(folder.path() / "a.dxf"));
  ads_name set;
  ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, set), RTNORM);
  EXPECT_EQ(RemoveExcludedObjects(set), 2);
  EXPECT_EQ(RemoveExcludedObjects(set), 0);
  Adesk::Int32 length = 0;
  EXPECT_EQ(acedSSLength(set, &length), RTNORM);
  EXPECT_EQ(length, 2);
  acedSSFree(set);
}

// Texts by their anchors, from top to bottom; what is at one height from left to right.
TEST_F(Drawings, ASortedSelectionFollowsTheAnchors) {
  // Aligned to the right at the top, though its position is the lowest.
  const std::string aligned =
      "  0\nTEXT\n  5\n25\n  8\n0\n 10\n1.0\n 20\n-90.0\n 40\n2.5\n  1\nX\n 72\n2\n 11\n3.0\n"
      " 21\n9.0\n";
  const std::string line = "  0\nLINE\n  5\n26\n  8\n0\n 10\n0.0\n 20\n50.0\n 11\n1.0\n 21\n2.0\n";
  std::string sheet = drawing();
  sheet.insert(sheet.rfind("  0\nENDSEC"), aligned + line);
  folder.write("c.dxf", sheet);
  ASSERT_TRUE(host::openDrawing(folder.path() / "c.dxf"));
  AcDbObjectIdArray ids;
  int status = RTERROR;
  host::bindCommand(L"SORTED", [&] {
    resbuf* filter = acutBuildList(5020, L"TEXT", 0);
    status = SelectObjectsSorted("図を: ", ids, filter, 6);
    acutRelRb(filter);
  });
  ASSERT_TRUE(host::typeText(L"SORTED\nALL\n\n"));
  host::runIdle();
  EXPECT_EQ(status, RTNORM);
  EXPECT_NE(shown.find("図を: "), std::string::npos);
  std::vector<Adesk::UInt64> handles;
  for (const AcDbObjectId& id : ids) handles.push_back(id.handle());
  EXPECT_EQ(handles, (std::vector<Adesk::UInt64>{0x25, 0x21, 0x22, 0x23, 0x24}));
  ASSERT_TRUE(host::typeText(L"SORTED\n\n"));
  host::runIdle();
  EXPECT_EQ(status, RTERROR);
  EXPECT_TRUE(ids.isEmpty());
  host::unbindCommand(L"SORTED");
}

TEST(SortObjectsByPoints, RowsByHeightFromLeftToRight) {
  struct Case {
    const char* name;
    int code;
    std::vector<AcGePoint3d> points;
    std::vector<unsigned> order;
  };
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const Case cases[] = {
      {"top to bottom", 6, {{0, 1, 0}, {5, 3, 0}, {9, 2, 0}}, {1, 2, 0}},
      {"one height", 6, {{3, 1, 0}, {1, 1, 9}, {2, 1.00009, 0}}, {1, 2, 0}},
      {"measured from the row's first",
       6,
       {{3, 1, 0}, {2, 1.00008, 0}, {1, 0.99996, 0}},
       {1, 0, 2}},
      {"equal points", 6, {{2, 2, 0}, {1, 1, 0}, {1, 1, 0}, {2, 2, 0}}, {0, 3, 1, 2}},
      {"no number", 6, {{0, nan, 0}, {0, nan, 0}}, {0, 1}},
      {"an unknown code", 7, {{0, 1, 0}, {5, 3, 0}}, {0, 1}},
  };
  for (const Case& each : cases) {
    AcDbObjectIdArray ids;
    AcGePoint3dArray points;
    for (const AcGePoint3d& point : each.points) {
      ids.append(AcDbObjectId(1, static_cast<std::uint32_t>(ids.length())));
      points.append(point);
    }
    SortObjectsByPoints(each.code, ids, points);
    std::vector<unsigned> order;
    for (int i = 0; i < ids.length(); ++i) {
      order.push_back(ids.at(i).index());
      EXPECT_EQ(points.at(i).x, each.points[ids.at(i).index()].x) << each.name;
    }
    EXPECT_EQ(order, each.order) << each.name;
  }
}

TEST_F(Drawings, EditsOfAnotherDocumentAreAStepOfTheirOwn) {
  ASSERT_TRUE(host::openDrawing(folder.path() / "a.dxf"));
  ASSERT_TRUE(host::openDrawing(folder.path() / "b.dxf"));
  std::filesystem::create_symlink("a.dxf", folder.path() / "link.dxf");
  AcApDocument* other = FindOpenDocument(path("link.dxf").c_str());
  ASSERT_NE(other, nullptr);
  EXPECT_EQ(FindOpenDocument(path("none.dxf").c_str()), nullptr);
  AcDbDatabase& database = *other->database();
  database.journal().beginStep(L"BEFORE");
  ASSERT_EQ(database.setHeaderValue("$TEXTSIZE", 3.0), Acad::eOk);
  BeginDocumentEdit(other);
  ASSERT_EQ(database.setHeaderValue("$TEXTSIZE", 4.0), Acad::eOk);
  EndDocumentEdit(other);
  ASSERT_EQ(database.setHeaderValue("$TEXTSIZE", 5.0), Acad::eOk);
  EXPECT_TRUE(database.isModified());
  database.journal().undo(1);
  EXPECT_EQ(database.textsize(), 4.0);
  database.journal().undo(1);
  EXPECT_EQ(database.textsize(), 3.0);
}

TEST_F(Drawings, ANotifiedTextLiesWhereItsAlignmentPutsIt) {
  AcDbText text;
  ASSERT_EQ(text.setTextString(L"ABC"), Acad::eOk);
  ASSERT_EQ(text.setHeight(2.0), Acad::eOk);
  ASSERT_EQ(text.setHorizontalMode(AcDb::kTextRight), Acad::eOk);
  ASSERT_EQ(text.setAlignmentPoint(AcGePoint3d(50, 10, 0)), Acad::eOk);
  NotifyEntityEdited(&text, nullptr);
  const double left = text.position().x;
  EXPECT_LT(left, 50);
  EXPECT_GT(left, 40);
  NotifyEntityEdited(nullptr, nullptr);
}

TEST_F(Drawings, ResourcesSpeakTheRunsLanguage) {
  const auto title = [](kovra::win::Language language) {
    kovra::win::runSettings().language = language;
    wchar_t text[256] = L"";
    LoadStringW(GetResourceModule(), 2809, text, 256);
    return std::wstring(text);
  };
  EXPECT_EQ(title(kovra::win::Language::japanese), L"左寄せ");
  const std::wstring english = title(kovra::win::Language::english);
  EXPECT_TRUE(!english.empty() && english != L"左寄せ");
  EXPECT_EQ(GetResourceModule(), GetResourceModule());

  kovra::win::runSettings().resourceFolder = folder.path();
  EXPECT_EQ(GetResourceModule(), nullptr);
  EXPECT_NE(shown.find("kovra_en.res"), std::string::npos);
  kovra::win::runSettings().resourceFolder.clear();
}

struct FitCase {
  RECT before;
  POINT after;
};

TEST(FitWindowToMonitor, MovesNoFurtherThanNeeded) {
  RECT area{};
  ASSERT_TRUE(SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0));
  const FitCase cases[] = {
      {{100, 50, 400, 250}, {100, 50}},
      {{-5000, -20, -4700, 180}, {area.left, area.top}},
      {{area.right - 10, area.bottom + 900, area.right + 290, area.bottom + 1100},
       {area.right - 300, area.bottom - 200}},
      {{-10, 5, area.right + 500, 105}, {area.left, 5}},
  };
  for (const FitCase& c : cases) {
    HWND window = CreateWindowExW(0, L"Static", L"", WS_POPUP, c.before.left, c.before.top,
                                  c.before.right - c.before.left, c.before.bottom - c.before.top,
                                  nullptr, nullptr, nullptr, nullptr);
    FitWindowToMonitor(window, 1);
    RECT place{};
    EXPECT_TRUE(GetWindowRect(window, &place));
    EXPECT_EQ(place.left, c.after.x);
    EXPECT_EQ(place.top, c.after.y);
    EXPECT_EQ(place.right - place.left, c.before.right - c.before.left);
    DestroyWindow(window);
  }
  FitWindowToMonitor(nullptr, 1);
}

}  // namespace
