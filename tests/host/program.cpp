#include "tests/host/program.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <sstream>

namespace kovra::test {
namespace {

// Files rather than pipes: nothing can fill up.
void redirect(const std::filesystem::path& file, int flags, int descriptor) {
  const int opened = open(file.c_str(), flags, 0644);
  if (opened < 0 || dup2(opened, descriptor) < 0) _exit(126);
}

[[noreturn]] void becomeProgram(const std::string& program,
                                const std::vector<std::string>& arguments,
                                const std::vector<std::string>& environment,
                                const std::filesystem::path& folder) {
  redirect(folder / ".in", O_RDONLY, 0);
  redirect(folder / ".out", O_WRONLY | O_CREAT | O_TRUNC, 1);
  redirect(folder / ".err", O_WRONLY | O_CREAT | O_TRUNC, 2);
  if (chdir(folder.c_str()) != 0) _exit(126);
  for (const std::string& entry : environment) {
    const size_t sign = entry.find('=');
    setenv(entry.substr(0, sign).c_str(), entry.substr(sign + 1).c_str(), 1);
  }
  std::vector<char*> words;
  for (const std::string& word : arguments) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  alarm(120);  // a run that hangs is a failure of its own
  execv(program.c_str(), words.data());
  _exit(127);
}

// Writing beyond the limit fails instead of ending the program.
void limitFiles(std::size_t bytes) {
  if (bytes == 0) return;
  const rlimit limit{bytes, bytes};
  setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, SIG_IGN);
}

void limitProcessor(unsigned seconds) {
  if (seconds == 0) return;
  const rlimit limit{seconds, seconds};
  setrlimit(RLIMIT_CPU, &limit);
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace

ProgramTest::ProgramTest() {
  std::string name = (std::filesystem::temp_directory_path() / "kovra-test-XXXXXX").string();
  folder_ = mkdtemp(name.data());
}

ProgramTest::~ProgramTest() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

ProgramRun ProgramTest::run(const std::vector<std::string>& arguments, const std::string& input,
                            const std::vector<std::string>& environment) const {
  return finish(start(arguments, input, environment));
}

pid_t ProgramTest::start(const std::vector<std::string>& arguments, const std::string& input,
                         const std::vector<std::string>& environment) const {
  write(".in", input);
  std::vector<std::string> all = {"kovra", "--state", path(".state").string()};
  all.insert(all.end(), arguments.begin(), arguments.end());
  std::vector<std::string> variables = {"LC_ALL=C.UTF-8"};
  variables.insert(variables.end(), environment.begin(), environment.end());
  const pid_t child = fork();
  if (child == 0) limitFiles(fileSizeLimit_);
  if (child == 0) limitProcessor(timeLimit_);
  if (child == 0) becomeProgram(program_, all, variables, folder_);
  return child;
}

ProgramRun ProgramTest::finish(pid_t program) const {
  int status = 0;
  waitpid(program, &status, 0);
  ProgramRun result;
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  result.out = read(".out");
  result.err = read(".err");
  return result;
}

ProgramRun ProgramTest::runScript(const std::string& lines,
                                  std::vector<std::string> arguments) const {
  write("test.scr", lines);
  arguments.insert(arguments.end(), {"-s", "test.scr"});
  return run(arguments);
}

std::vector<std::string> ProgramTest::files() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
    const std::string name = entry.path().filename();
    if (!name.starts_with(".state")) names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

void ProgramTest::write(const std::string& name, const std::string& bytes) const {
  std::filesystem::create_directories(path(name).parent_path());
  std::ofstream(path(name), std::ios::binary) << bytes;
}

std::string ProgramTest::read(const std::string& name) const {
  std::ifstream stream(path(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> changedLines(const std::string& before, const std::string& after) {
  const std::vector<std::string> a = linesOf(before);
  const std::vector<std::string> b = linesOf(after);
  std::vector<std::string> changed;
  for (size_t i = 0; i < std::max(a.size(), b.size()); ++i) {
    const std::string left = i < a.size() ? a[i] : "<end>";
    const std::string right = i < b.size() ? b[i] : "<end>";
    if (left == right) continue;
    changed.push_back("-" + left);
    changed.push_back("+" + right);
  }
  return changed;
}

}  // namespace kovra::test
