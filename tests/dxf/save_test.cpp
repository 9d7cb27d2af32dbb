#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/dxf/structure.h"
#include "tests/dxf/drawings.h"

namespace kovra::dxf::test {
namespace {

namespace fs = std::filesystem;

/// A folder of its own for each test, with a drawing in it.
class Save : public ::testing::Test {
 protected:
  Save() {
    std::string name = ::testing::TempDir() + "save_XXXXXX";
    folder_ = ::mkdtemp(name.data());
    drawing_ = folder_ / "sheet.dxf";
    put(drawing_, before_);
  }
  ~Save() override { fs::remove_all(folder_); }

  static void put(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
  }
  static std::string get(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
  }
  std::unique_ptr<RecordStore> read(const fs::path& path) {
    auto store = RecordStore::readFile(path);
    EXPECT_TRUE(store.ok());
    return std::move(store).value();
  }
  static void edit(RecordStore& store, double height) {
    RecordDraft draft;
    store.load(at(store, 0x51), draft);
    draft.setReal(draft.find("AcDbText", 40), height);
    store.replace(at(store, 0x51), draft);
  }
  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& entry : fs::directory_iterator(folder_))
      all.push_back(entry.path().filename());
    std::sort(all.begin(), all.end());
    return all;
  }

  using Names = std::vector<std::string>;
  fs::path folder_;
  fs::path drawing_;
  const std::string before_ = sampleDrawing({"", kR2000, false, true});
};

TEST_F(Save, ReplacesTheFileAndKeepsTheFormerOne) {
  fs::permissions(drawing_, fs::perms(0640));
  const auto store = read(drawing_);
  edit(*store, 7);
  EXPECT_TRUE(store->changed());
  ASSERT_TRUE(store->saveTo(drawing_).ok());
  EXPECT_FALSE(store->changed());
  EXPECT_EQ(changedLines(before_, get(drawing_)), std::vector<std::string>{"2.50\r -> 7.0\r"});
  EXPECT_EQ(get(folder_ / "sheet.dxf.bak"), before_);
  EXPECT_EQ(fs::status(drawing_).permissions(), fs::perms(0640));
  EXPECT_EQ(names(), (Names{"sheet.dxf", "sheet.dxf.bak"})) << "no temporary file is left";
  // The saved file is the store's now: undoing is a change, and saving it gives the first bytes.
  edit(*store, 2.5);
  EXPECT_TRUE(store->changed());
  ASSERT_TRUE(store->saveTo(drawing_).ok());
  EXPECT_EQ(get(drawing_), before_);
  EXPECT_NE(get(folder_ / "sheet.dxf.bak"), before_);
}

TEST_F(Save, WithoutBackup) {
  const auto store = read(drawing_);
  edit(*store, 7);
  ASSERT_TRUE(store->saveTo(drawing_, {.backup = false}).ok());
  EXPECT_EQ(names(), Names{"sheet.dxf"});
}

TEST_F(Save, ToAnotherPlaceMakesThatTheStoresFile) {
  const fs::path copy = folder_ / "copy.dxf";
  const auto store = read(drawing_);
  edit(*store, 7);
  ASSERT_TRUE(store->saveTo(folder_ / "aside.dxf", {.adopt = false}).ok());
  EXPECT_TRUE(store->changed());
  EXPECT_EQ(store->path(), drawing_);
  ASSERT_TRUE(store->saveTo(copy).ok());
  EXPECT_EQ(store->path(), copy);
  EXPECT_EQ(get(drawing_), before_);
  edit(*store, 8);
  put(drawing_, "changed by somebody");
  EXPECT_TRUE(store->saveTo(copy).ok()) << "the first file is none of its business any more";
}

TEST_F(Save, FollowsSymbolicLinks) {
  fs::create_directory(folder_ / "links");
  const fs::path link = folder_ / "links" / "sheet.dxf";
  fs::create_symlink("../sheet.dxf", link);
  const auto store = read(link);
  edit(*store, 7);
  ASSERT_TRUE(store->saveTo(link).ok());
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_NE(get(drawing_), before_);
  EXPECT_EQ(get(folder_ / "sheet.dxf.bak"), before_);
  fs::create_symlink("new.dxf", folder_ / "dangling.dxf");
  ASSERT_TRUE(store->saveTo(folder_ / "dangling.dxf").ok());
  EXPECT_EQ(get(folder_ / "new.dxf"), get(drawing_));
}

TEST_F(Save, RefusesAFileThatChangedOnDisk) {
  const auto store = read(drawing_);
  edit(*store, 7);
  const auto refused = [&](const fs::path& path) {
    const Result<void> saved = store->saveTo(path);
    EXPECT_FALSE(saved.ok());
    return saved.ok() ? ErrorKind::kInvalidInput : saved.error().kind;
  };
  put(drawing_, before_ + "\n");
  EXPECT_EQ(refused(drawing_), ErrorKind::kChangedOnDisk);
  EXPECT_EQ(get(drawing_), before_ + "\n");
  // The same bytes under another inode, also by another way to the file.
  const auto fresh = read(drawing_);
  put(folder_ / "other", before_);
  fs::rename(folder_ / "other", drawing_);
  EXPECT_EQ(fresh->saveTo(folder_ / ".." / folder_.filename() / "sheet.dxf").error().kind,
            ErrorKind::kChangedOnDisk);
  fs::remove(drawing_);
  EXPECT_TRUE(store->saveTo(drawing_).ok()) << "nothing is lost where nothing is";
  EXPECT_EQ(names(), Names{"sheet.dxf"});
}

TEST_F(Save, LeavesTheOldFileWhenItCantWrite) {
  const auto store = read(drawing_);
  edit(*store, 7);
  const auto message = [&](const fs::path& path) {
    const Result<void> saved = store->saveTo(path);
    if (saved.ok()) return std::string("saved");
    EXPECT_EQ(saved.error().kind, ErrorKind::kNotWritable);
    return saved.error().message;
  };
  const std::string start = drawing_.string() + ": ";
  fs::permissions(drawing_, fs::perms(0444));
  EXPECT_EQ(message(drawing_), start + "the file is read-only");
  fs::permissions(drawing_, fs::perms(0644));
  // A limit on the size of files stands for a full disk.
  rlimit old{};
  ::getrlimit(RLIMIT_FSIZE, &old);
  const rlimit small{1000, old.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &small);
  const std::string full = message(drawing_);
  ::setrlimit(RLIMIT_FSIZE, &old);
  EXPECT_EQ(full, start + "can't be written: File too large");
  EXPECT_EQ(
      message(folder_ / "none" / "x.dxf"),
      (folder_ / "none" / "x.dxf").string() + ": can't be written: No such file or directory");
  EXPECT_EQ(message(folder_), folder_.string() + ": not a regular file");
  EXPECT_EQ(get(drawing_), before_);
  EXPECT_EQ(names(), Names{"sheet.dxf"});
  EXPECT_TRUE(store->changed());
  EXPECT_EQ(message(drawing_), "saved") << "it works again afterwards";
}

TEST_F(Save, PipesAndDevicesAreNoDrawings) {
  // A pipe that nobody writes to must not be waited for.
  const std::string pipe = folder_ / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(RecordStore::readFile(pipe).error().message, pipe + ": not a regular file");
  EXPECT_EQ(RecordStore::readFile("/dev/full").error().kind, ErrorKind::kNotReadable);
  EXPECT_EQ(RecordStore::newDrawing()->saveTo("/dev/full").error().kind, ErrorKind::kNotWritable);
}

TEST(SaveGroups, KeepNoErasedMembersButGetThemBack) {
  const std::string entities =
      "0 SECTION\n2 ENTITIES\n0 LINE\n5 10\n0 LINE\n5 11\n0 ENDSEC\n0 SECTION\n2 OBJECTS\n";
  const auto group = [](const std::string& members) {
    return "0 GROUP\n5 20\n102 {ACAD_REACTORS\n330 11\n102 }\n100 AcDbGroup\n300 text\n70 0\n" +
           members;
  };
  const std::string end = "0 XRECORD\n5 21\n340 11\n0 ENDSEC\n0 EOF";
  // 99 names nothing in the file either.
  const std::string before = write(entities + group("340 11\n340 10\n340 99\n340 11\n") + end);
  const auto store = open(before);
  store->setErased(at(*store, 0x11), true);
  std::string expected = write(entities + group("340 10\n340 99\n") + end);
  const std::string erased = write("0 LINE\n5 11");
  expected.erase(expected.find(erased), erased.size());
  EXPECT_EQ(store->toBytes(), expected);
  store->setErased(at(*store, 0x11), false);
  EXPECT_EQ(store->toBytes(), before);
}

}  // namespace
}  // namespace kovra::dxf::test
