#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace kovra::test {

struct ProgramRun {
  int status = -1;  ///< exit status; 128 + number for a signal
  std::string out;
  std::string err;
};

/// A folder of its own for each test, in which the program runs; removed at the end.
class ProgramTest : public ::testing::Test {
 protected:
  ProgramTest();
  ~ProgramTest() override;

  /// Runs `kovra` there with a dialog store of its own and English strings.
  /// `environment`: further NAME=VALUE.
  ProgramRun run(const std::vector<std::string>& arguments, const std::string& input = {},
                 const std::vector<std::string>& environment = {}) const;
  /// Starts it and gives its process id; finish() waits for its end.
  pid_t start(const std::vector<std::string>& arguments, const std::string& input = {},
              const std::vector<std::string>& environment = {}) const;
  ProgramRun finish(pid_t program) const;
  /// run() with the lines as a script.
  ProgramRun runScript(const std::string& lines, std::vector<std::string> arguments = {}) const;

  std::filesystem::path path(const std::string& name) const { return folder_ / name; }
  void write(const std::string& name, const std::string& bytes) const;
  std::string read(const std::string& name) const;
  /// Names of the files in the folder, sorted; the dialog store left out.
  std::vector<std::string> files() const;
  /// From now on another program than `kovra` is run.
  void useProgram(std::string file) { program_ = std::move(file); }
  /// From now on the program can't write files beyond this size, as on a full disk.
  void limitFileSize(std::size_t bytes) { fileSizeLimit_ = bytes; }
  /// From now on a run that takes more processor time is ended, and so fails.
  void limitTime(unsigned seconds) { timeLimit_ = seconds; }
  bool exists(const std::string& name) const { return std::filesystem::exists(path(name)); }

 private:
  std::string program_ = KOVRA_PROGRAM;
  std::filesystem::path folder_;
  std::size_t fileSizeLimit_ = 0;  // 0: none
  unsigned timeLimit_ = 0;
};

/// The lines that differ, as "-old" and "+new", in order; for texts with the same number of lines
/// that is what `diff` shows.
std::vector<std::string> changedLines(const std::string& before, const std::string& after);

}  // namespace kovra::test
