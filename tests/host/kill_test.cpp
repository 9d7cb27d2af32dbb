// The program is killed while it saves: the drawing is the old one or the new one, whole.
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kSize = 50'000'000;
constexpr int kKills = 6;

class KillTest : public ProgramTest {
 protected:
  /// What is written has no name yet, or a temporary one.
  static bool isSaving(pid_t program) {
    std::error_code error;
    const std::filesystem::path open = "/proc/" + std::to_string(program) + "/fd";
    for (const auto& entry : std::filesystem::directory_iterator(open, error)) {
      const std::string file = std::filesystem::read_symlink(entry, error).native();
      if (file.ends_with(" (deleted)") || file.find("/.kovra-") != std::string::npos) return true;
    }
    return false;
  }

  bool hasTemporaryFile() const {
    const std::vector<std::string> names = files();
    return std::any_of(names.begin(), names.end(),
                       [](const std::string& name) { return name.starts_with(".kovra-"); });
  }

  /// Whether the file system has files without names.
  bool hasUnnamedFiles() const {
    const int file = ::open(path(".").c_str(), O_TMPFILE | O_WRONLY, 0600);
    if (file >= 0) ::close(file);
    return file >= 0;
  }

  /// Starts a run that changes and saves a.dxf, and waits until it writes. False when it ended
  /// without.
  bool startSaving(pid_t& program) const {
    program = start({"a.dxf", "-c", "DIMSCALE", "-c", "3", "--save"});
    while (!isSaving(program)) {
      siginfo_t ended{};
      waitid(P_PID, static_cast<id_t>(program), &ended, WEXITED | WNOHANG | WNOWAIT);
      if (ended.si_pid != 0) return false;
      std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    return true;
  }
};

/// The drawing with lines up to this size.
std::string filledUp(std::string drawing, std::size_t size) {
  std::string lines;
  while (lines.size() < size) {
    lines += "  0\nLINE\n100\nAcDbEntity\n  8\n0\n100\nAcDbLine\n 10\n1.0\n 20\n2.0\n 11\n" +
             std::to_string(lines.size()) + "\n 21\n4.0\n";
  }
  return drawing.insert(drawing.rfind("  0\nENDSEC"), lines);
}

TEST_F(KillTest, LeavesTheOldFileOrTheNewOne) {
  const std::string before = filledUp(textDrawing(), kSize);
  write("a.dxf", before);
  pid_t program = 0;
  ASSERT_TRUE(startSaving(program));
  const auto begun = Clock::now();
  ASSERT_EQ(finish(program).status, 0);
  const std::chrono::duration<double> saving = Clock::now() - begun;
  const std::string after = read("a.dxf");
  ASSERT_NE(after, before);
  std::mt19937 random(7);
  std::uniform_real_distribution<double> moment(0, 1.1);
  int oldFiles = 0;
  bool isOld = false;
  for (int i = 0; i < kKills; ++i) {
    if (!isOld) write("a.dxf", before);
    ASSERT_TRUE(startSaving(program));
    // The first is killed right at the beginning.
    std::this_thread::sleep_for(i == 0 ? 0 * saving : moment(random) * saving);
    kill(program, SIGKILL);
    finish(program);
    if (i == 0 && hasUnnamedFiles()) {
      EXPECT_FALSE(hasTemporaryFile());
    }
    const std::string left = read("a.dxf");
    isOld = left == before;
    ASSERT_TRUE(isOld || left == after) << i << ": " << left.size() << " bytes";
    if (exists("a.dxf.bak")) {
      ASSERT_TRUE(read("a.dxf.bak") == before) << i;
    }
    oldFiles += isOld ? 1 : 0;
    // What a killed run leaves behind is in nobody's way.
    for (const std::string& name : files()) {
      if (name.starts_with(".kovra-") || name == "a.dxf.bak") std::filesystem::remove(path(name));
    }
  }
  EXPECT_GT(oldFiles, 0) << "none of the kills came while it was saving";
}

TEST_F(KillTest, ARunThroughAProjectLeavesEachDrawingWhole) {
  constexpr int kDrawings = 12;
  const std::string before = filledUp(motorDrawing(), 1'000'000);
  std::string project = "[Project]\nDataVersion=12.0\n[Drawings]\n";
  std::vector<std::string> names;
  for (int i = 1; i <= kDrawings; ++i) {
    names.push_back("sheet" + std::to_string(i) + ".dxf");
    project += std::to_string(i) + "=" + names.back() + "\n";
  }
  write("project.ini", project);
  const auto writeAll = [&] {
    for (const std::string& name : names) write(name, before);
  };
  const auto begin = [this] {
    return start({"-p", ".", "-s", "-"},
                 "KOVRA_ATTR_COPY\n@check 1973 on\n@type 1931 NAME\n@check 1968 on\n@type 1979 3\n"
                 "@check 2014 off\n@choose 2013 #3\n@click 1\n");
  };
  writeAll();
  const auto begun = Clock::now();
  const ProgramRun whole = finish(begin());
  ASSERT_EQ(whole.status, 0) << whole.err;
  const std::chrono::duration<double> running = Clock::now() - begun;
  const std::string after = read(names.front());
  ASSERT_NE(after, before);
  std::mt19937 random(11);
  std::uniform_real_distribution<double> moment(0.1, 1);
  int stoppedMidway = 0;
  for (int i = 0; i < kKills; ++i) {
    writeAll();
    const pid_t program = begin();
    std::this_thread::sleep_for(moment(random) * running);
    kill(program, SIGKILL);
    finish(program);
    int done = 0;
    for (const std::string& name : names) {
      const std::string left = read(name);
      ASSERT_TRUE(left == before || left == after) << name << ": " << left.size() << " bytes";
      done += left == after ? 1 : 0;
    }
    stoppedMidway += done > 0 && done < kDrawings ? 1 : 0;
    // The next run finishes the rest.
    ASSERT_EQ(finish(begin()).status, 0);
    for (const std::string& name : names) ASSERT_TRUE(read(name) == after) << name;
  }
  EXPECT_GT(stoppedMidway, 0) << "none of the kills came between the drawings";
}

}  // namespace
}  // namespace kovra::test
