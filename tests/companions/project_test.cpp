#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "companions/project.h"
#include "module/frame/companions/command_glue_lib.h"
#include "module/frame/companions/project_data_lib.h"
#include "module/frame/companions/project_lib.h"
#include "module/frame/companions/project_tools_lib.h"
#include "module/frame/companions/project_tree_lib.h"
#include "module/frame/companions/ui_tools_lib.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/run_settings.h"
#include "tests/companions/temporary_folder.h"

namespace {

constexpr const char* kProject =
    "[Project]\nDataVersion=12.0\nSharedDatabases=1\n"
    "[Drawings]\n10=last.dxf\n2=sheets\\power.dxf\n1=panel.dxf\n3=./panel.dxf\n4=missing.dxf\n"
    "[Blocked]\n1=sheets/power.dxf\n"
    "[Preset]\n1=last.dxf\n"
    "[Scale]\npanel.dxf=2.5\nlast.dxf=none\nsheets/power.dxf=-1\n"
    "[ExcludedLayers]\n1=Frame\n2=Рамка\n";

class ProjectTest : public ::testing::Test {
 protected:
  ~ProjectTest() override { kovra::win::setCurrentProject({}); }

  void makeProject(const char* settings) {
    folder.write("project.ini", settings);
    for (const char* drawing : {"panel.dxf", "last.dxf", "sheets/power.dxf"})
      folder.write(drawing, "0\nEOF\n");
    kovra::win::setCurrentProject(folder.path());
  }

  std::wstring wideIn(const char* name) const { return (folder.path() / name).wstring(); }

  TemporaryFolder folder;
};

TEST_F(ProjectTest, ComparesVersionsByTheirNumbers) {
  const DataVersion seven("7.00");
  for (const char* text : {"7", "7.0", "7.00.0", " 10.0 ", "12.0", "7.00.1"})
    EXPECT_TRUE(DataVersion(text) >= seven) << text;
  for (const char* text : {"6.99", "", "v8", "8.x", "10,0", "-8"})
    EXPECT_TRUE(DataVersion(text) < seven) << text;
  EXPECT_TRUE(DataVersion(L"9.0") < DataVersion(L"10.0"));
  EXPECT_TRUE(DataVersion(L"11.0") >= DataVersion("11.00"));
  EXPECT_TRUE(DataVersion("7.9") < DataVersion("7.10"));
}

TEST_F(ProjectTest, AHandleFollowsItsProjectAndNoOther) {
  ProjectHandle handle;
  ProjectManager& manager = ProjectManager::Instance();
  EXPECT_FALSE(handle.IsOpen());
  EXPECT_FALSE(manager.HasCurrentProject());
  EXPECT_FALSE(manager.GetCurrentProject(handle));

  makeProject(kProject);
  ASSERT_TRUE(manager.GetCurrentProject(handle));
  const ProjectHandle copy = handle;
  DataVersion version;
  EXPECT_TRUE(copy.IsOpen());
  ASSERT_TRUE(copy.Info().GetDataVersion(version));
  EXPECT_TRUE(version >= DataVersion("12.0") && version < DataVersion("12.0.1"));

  // The same folder made current again is another project as far as handles go.
  folder.write("project.ini", "[Project]\nDataVersion=newest\n");
  kovra::win::setCurrentProject(folder.path());
  EXPECT_FALSE(copy.IsOpen());
  EXPECT_FALSE(copy.Info().GetDataVersion(version));
  ASSERT_TRUE(manager.GetCurrentProject(handle));
  EXPECT_TRUE(handle.IsOpen());
  EXPECT_FALSE(handle.Info().GetDataVersion(version));

  kovra::win::setCurrentProject(folder.path() / "sheets");  // no project there
  EXPECT_TRUE(manager.HasCurrentProject());
  EXPECT_FALSE(manager.GetCurrentProject(handle));
  EXPECT_FALSE(handle.IsOpen());
}

TEST_F(ProjectTest, AnswersFromProjectIni) {
  makeProject(kProject);
  ProjectDrawings* drawings = CurrentDrawings();
  ASSERT_NE(drawings, nullptr);
  const char* listed[] = {"panel.dxf", "sheets/power.dxf", "missing.dxf", "last.dxf"};
  ASSERT_EQ(DrawingCount(drawings), 4);
  for (int i = 0; i < 4; ++i) {
    const wchar_t* path = nullptr;
    ASSERT_TRUE(GetDrawingPath(DrawingAt(drawings, i), path));
    EXPECT_EQ(path, wideIn(listed[i]));
    EXPECT_EQ(DrawingByPath(drawings, path), DrawingAt(drawings, i));
  }
  EXPECT_EQ(DrawingAt(drawings, 4), nullptr);
  EXPECT_FALSE(IsDrawingValid(DrawingAt(drawings, -1)));

  ASSERT_EQ(PresetDrawingCount(), 1);
  wchar_t path[512] = L"";
  EXPECT_TRUE(GetPresetDrawing(0, path, 512));
  EXPECT_EQ(path, wideIn("last.dxf"));
  EXPECT_FALSE(GetPresetDrawing(0, path, 5));
  EXPECT_FALSE(GetPresetDrawing(1, path, 512));

  const auto project = kovra::companions::currentProject();
  EXPECT_EQ(project->scaleOf(folder.path() / "sheets/../panel.dxf"), 2.5);
  for (const char* name : {"last.dxf", "sheets/power.dxf", "other.dxf"})
    EXPECT_EQ(project->scaleOf(folder.path() / name), 0) << name;

  EXPECT_TRUE(IsSharedDatabaseMode());
  EXPECT_TRUE(IsLayerExcluded("FRAME"));
  EXPECT_TRUE(IsLayerExcluded("рамка"));
  EXPECT_FALSE(IsLayerExcluded("FRAME2"));
}

TEST_F(ProjectTest, BlocksListedFilesAndFilesThatCannotBeWritten) {
  makeProject(kProject);
  ProjectDrawings* drawings = CurrentDrawings();
  const auto blocked = [&](const char* name) {
    ProjectDrawing* drawing = DrawingByPath(drawings, wideIn(name).c_str());
    return IsDrawingValid(drawing) && IsDrawingBlocked(drawing);
  };
  EXPECT_FALSE(blocked("panel.dxf"));
  EXPECT_TRUE(blocked("sheets/power.dxf"));
  EXPECT_TRUE(blocked("missing.dxf"));
  std::filesystem::permissions(folder.path() / "panel.dxf", std::filesystem::perms::owner_read);
  EXPECT_TRUE(blocked("panel.dxf"));
  std::filesystem::create_symlink(folder.path() / "sheets/power.dxf", folder.path() / "link.dxf");
  EXPECT_TRUE(blocked("link.dxf"));
  // A folder is no drawing, and one that takes no file keeps its drawings as they are.
  std::filesystem::create_directory(folder.path() / "folder.dxf");
  EXPECT_TRUE(blocked("folder.dxf"));
  folder.write("archive/old.dxf", "");
  EXPECT_FALSE(blocked("archive/old.dxf"));
  std::filesystem::permissions(folder.path() / "archive", std::filesystem::perms(0555));
  EXPECT_TRUE(blocked("archive/old.dxf"));
  std::filesystem::permissions(folder.path() / "archive", std::filesystem::perms(0755));
}

TEST_F(ProjectTest, WithoutAProjectEverythingIsEmpty) {
  EXPECT_EQ(CurrentDrawings(), nullptr);
  EXPECT_EQ(DrawingCount(nullptr), 0);
  EXPECT_EQ(DrawingByPath(nullptr, L"a.dxf"), nullptr);
  EXPECT_EQ(HasProjectContext(), 0);
  EXPECT_EQ(PresetDrawingCount(), 0);
  EXPECT_FALSE(IsSharedDatabaseMode());
  EXPECT_FALSE(IsLayerExcluded("FRAME"));
}

TEST_F(ProjectTest, ChosenFilesAreRelativeToTheProject) {
  makeProject(kProject);
  kovra::win::interaction().queueFiles({"sheets/power.dxf", "/else/where.dxf"});
  int count = 0;
  wchar_t** files = ChooseDrawingFiles(16, 3, count);
  ASSERT_EQ(count, 2);
  EXPECT_EQ(files[0], wideIn("sheets/power.dxf"));
  EXPECT_STREQ(files[1], L"/else/where.dxf");
  FreeFileList(&files);
  EXPECT_EQ(files, nullptr);
  kovra::win::interaction().queueFiles({});
  EXPECT_EQ(ChooseDrawingFiles(16, 3, count), nullptr);
  EXPECT_EQ(count, 0);
}

// Opens a parameter file as the text tools do.
class ParamFileTest : public ProjectTest {
 protected:
  bool open(ConfigFile& file, const wchar_t* name, bool create) {
    ProjectHandle handle;
    ParamFileRef place;
    return ProjectManager::Instance().GetCurrentProject(handle) && handle.ResolveParamFile(place) &&
           place.Exists() &&
           (place.Load(file, name) || (create && place.LoadOrCreate(file, name, 0xff004, 0)));
  }

  static std::wstring read(const ConfigFile& file, const wchar_t* key) {
    ConfigValueRef value;
    if (!file.ReadString(key, value)) return L"(none)";
    std::wstring text = value.text;
    ConfigFile::ReleaseValue(value);
    return text;
  }
};

TEST_F(ParamFileTest, ChangesOneLineOfAFileAndKeepsItsMode) {
  makeProject(kProject);
  const std::string before = "; heights\r\n[TEXT]\r\nTEXT_H_CNT = 2\r\nTEXT_H1=\x8C\r\n";
  const std::filesystem::path prm = folder.write("KovrCad.prm", before);
  std::filesystem::permissions(prm, std::filesystem::perms(0640));
  std::filesystem::create_symlink(prm, folder.path() / "Link.prm");

  ConfigFile file;
  ASSERT_TRUE(open(file, L"Link.prm", false));
  ASSERT_TRUE(file.SelectSection(L"text"));
  int number = 0;
  EXPECT_TRUE(file.ReadInt(L"text_h_cnt", number));
  EXPECT_EQ(number, 2);
  EXPECT_FALSE(file.ReadInt(L"TEXT_H1", number));
  EXPECT_EQ(read(file, L"TEXT_H2"), L"(none)");
  const std::wstring foreign = read(file, L"TEXT_H1");
  EXPECT_TRUE(file.WriteString(L"TEXT_H2", foreign.c_str()));
  EXPECT_TRUE(file.WriteInt(L"TEXT_H_CNT", -3));
  EXPECT_FALSE(file.WriteString(L"TEXT_H3", L"two\nlines"));
  EXPECT_TRUE(file.Save());

  EXPECT_EQ(folder.read("KovrCad.prm"),
            "; heights\r\n[TEXT]\r\nTEXT_H_CNT = -3\r\nTEXT_H1=\x8C\r\nTEXT_H2=\x8C\r\n");
  struct stat status {};
  ASSERT_EQ(::stat(prm.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640U);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "Link.prm"));
}

TEST_F(ParamFileTest, CreatesOnlyOnRequestAndNeverOverWhatItCannotRead) {
  makeProject(kProject);
  folder.write("utf16.ini", std::string("\xFF\xFE[\0A\0]\0", 8));
  std::filesystem::create_directory(folder.path() / "folder.ini");
  ConfigFile file;
  for (const wchar_t* name : {L"utf16.ini", L"folder.ini", L""})
    EXPECT_FALSE(open(file, name, true));
  EXPECT_FALSE(file.Save());
  EXPECT_FALSE(open(file, L"EditTextProperty.ini", false));

  ASSERT_TRUE(open(file, L"EditTextProperty.ini", true));
  EXPECT_FALSE(file.WriteString(L"Layer", L"0"));  // no section yet
  for (const wchar_t* bad : {L"", L" x", L"a]b", L"a\nb"}) EXPECT_FALSE(file.SelectSection(bad));
  ASSERT_TRUE(file.SelectSection(L"Settings\\小さい"));
  EXPECT_FALSE(file.RemoveSection());
  EXPECT_TRUE(file.WriteString(L"Layer", L""));
  EXPECT_TRUE(file.Save());
  EXPECT_EQ(folder.read("EditTextProperty.ini"), "[Settings\\小さい]\nLayer=\n");

  ConfigSectionIterator sections(file);
  sections.First();
  ASSERT_FALSE(sections.AtEnd());
  EXPECT_STREQ(sections.Name(), L"Settings\\小さい");
  sections.Next();
  EXPECT_TRUE(sections.AtEnd());
  EXPECT_EQ(sections.Name(), nullptr);
  EXPECT_TRUE(file.RemoveSection());
  EXPECT_TRUE(file.Save());
  EXPECT_EQ(folder.read("EditTextProperty.ini"), "");
}

TEST_F(ParamFileTest, DoesNotWriteOverSomeoneElsesChangeNorAReadOnlyFile) {
  makeProject(kProject);
  folder.write("KovrCad.prm", "[TEXT]\nA=1\n");
  const std::size_t files = folder.files();
  ConfigFile file;
  const auto save = [&] {
    return open(file, L"KovrCad.prm", false) && file.SelectSection(L"TEXT") &&
           file.WriteString(L"A", L"2");
  };
  ASSERT_TRUE(save());
  folder.write("KovrCad.prm", "[TEXT]\nA=1\nB=1\n");
  EXPECT_FALSE(file.Save());
  EXPECT_EQ(folder.read("KovrCad.prm"), "[TEXT]\nA=1\nB=1\n");

  ASSERT_TRUE(save());
  std::filesystem::permissions(folder.path() / "KovrCad.prm", std::filesystem::perms::owner_read);
  EXPECT_FALSE(file.Save());
  EXPECT_EQ(folder.read("KovrCad.prm"), "[TEXT]\nA=1\nB=1\n");
  EXPECT_EQ(folder.files(), files);  // no temporary file is left
}

}  // namespace
