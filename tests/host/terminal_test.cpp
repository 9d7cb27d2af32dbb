// A person at a terminal.
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {
namespace {

// The program on a terminal of its own.
class Terminal {
 public:
  explicit Terminal(const std::filesystem::path& folder, const char* project = ".") {
    child_ = forkpty(&master_, nullptr, nullptr, nullptr);
    if (child_ != 0) return;
    if (chdir(folder.c_str()) != 0) _exit(126);
    setenv("LC_ALL", "C.UTF-8", 1);
    setenv("TERM", "xterm", 1);
    alarm(60);
    execl(KOVRA_PROGRAM, "kovra", "a.dxf", "-p", project, "--state", ".state",
          static_cast<char*>(nullptr));
    _exit(127);
  }
  ~Terminal() {
    close(master_);
    if (status_ < 0) waitpid(child_, nullptr, 0);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  /// Waits until the text stands on the screen behind what was waited for before.
  bool shows(const std::string& text) {
    size_t at = std::string::npos;
    while ((at = screen_.find(text, seen_)) == std::string::npos && readMore()) continue;
    if (at == std::string::npos) return false;
    seen_ = at + text.size();
    return true;
  }
  void type(const std::string& keys) const {
    ASSERT_EQ(write(master_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
  }
  int exitStatus() {
    while (readMore()) continue;
    waitpid(child_, &status_, 0);
    return WIFEXITED(status_) ? WEXITSTATUS(status_) : 255;
  }
  const std::string& screen() const { return screen_; }

 private:
  bool readMore() {
    pollfd ready{master_, POLLIN, 0};
    if (poll(&ready, 1, 20000) <= 0) return false;
    char bytes[4096];
    const ssize_t count = read(master_, bytes, sizeof bytes);
    if (count > 0) screen_.append(bytes, static_cast<size_t>(count));
    return count > 0;
  }

  int master_ = -1;
  pid_t child_ = 0;
  int status_ = -1;
  std::string screen_;
  size_t seen_ = 0;
};

using TerminalTest = ProgramTest;

struct Step {
  std::string prompt;
  std::string keys;
};

void follow(Terminal& terminal, const std::vector<Step>& steps) {
  for (const auto& step : steps) {
    ASSERT_TRUE(terminal.shows(step.prompt)) << step.prompt << '\n' << terminal.screen();
    terminal.type(step.keys);
  }
  EXPECT_EQ(terminal.exitStatus(), 0) << terminal.screen();
}

TEST_F(TerminalTest, PromptsEditingHistoryCancelAndAWarning) {
  write("a.dxf", motorDrawing());
  Terminal terminal(path("."));
  follow(terminal, {
                       {"Command: ", "DIMSCALEX\x7f\r"},
                       {"<1>: ", "5\r"},
                       {"Command: ", "\r"},        // repeats the last command
                       {"<5>: ", "\x03"},          // Ctrl+C
                       {"Command: ", "NOSUCH\r"},  // an error, and on it goes
                       {"Unknown command", ""},
                       {"Command: ", "@show DIMSCALE\r"},
                       {"DIMSCALE=5", ""},
                       {"Command: ", "\x1b[A\r"},  // the line before
                       {"DIMSCALE=5", ""},
                       {"Command: ", "\x04"},
                       {"aren't saved", ""},
                       {"Command: ", "\x04"},
                   });
  EXPECT_EQ(read("a.dxf"), motorDrawing());
  // The history lies beside the dialog store, for the next run.
  Terminal again(path("."));
  follow(again, {{"Command: ", "\x1b[A\x1b[A\r"},
                 {"Unknown command", ""},
                 {"Command: ", "\x1b[A\x1b[A\r"},
                 {"DIMSCALE=1", ""},
                 {"Command: ", "\x04"}});
  // A file of that name that is something else is left alone.
  write(".state.history", "notes");
  Terminal third(path("."));
  follow(third, {{"Command: ", "@show DIMSCALE\r"}, {"DIMSCALE=1", ""}, {"Command: ", "\x04"}});
  EXPECT_EQ(read(".state.history"), "notes");
}

TEST_F(TerminalTest, TabCompletesWhatIsAsked) {
  write("a.dxf", motorDrawing());
  write("my plan.dxf", motorDrawing());
  Terminal terminal(path("."));
  follow(terminal, {{"Command: ", "@sh\tDIMSC\t\r"},
                    {"DIMSCALE=1", ""},
                    {"Command: ", "-lay\t\r"},
                    {"Unlock]: ", "lo\t\r"},
                    {"to lock: ", "\t"},  // nothing in common: what there is
                    {"LOCKED", ""},
                    {"to lock: ", "wi\t\r"},
                    {"Unlock]: ", "\r"},
                    {"Command: ", "mov\t\r"},
                    {"Select objects: ", "pre\t\x03"},
                    {"Previous", ""},
                    {"Command: ", "clay\t\r"},
                    {"<\"0\">: ", "wi\t\r"},
                    {"Command: ", "@show CLAYER\r"},
                    {"CLAYER=\"WIRENO\"", ""},
                    {"Command: ", "-sty\t\r"},
                    {"text style <", "st\t\r"},
                    {"<txt>: ", "\x03"},
                    {"Command: ", "@open \"my\t\r"},
                    {"Command: ", "@activate a\t\r"},
                    {"Command: ", "\x04"},
                    {"aren't saved", ""},
                    {"Command: ", "\x04"}});
}

TEST_F(TerminalTest, HelpAndDialogsShowThemselves) {
  write("a.dxf", textDrawing());
  write("p/project.ini", "[Project]\nDataVersion=12.0\n");
  Terminal terminal(path("."), "p");
  follow(terminal, {{"? says what there is", ""},
                    {"Command: ", "help\r"},
                    {"KOVRA_TEXT_COUNTUP", ""},
                    {"copies texts with counted values", ""},
                    {"-LAYER ", ""},
                    {"@click ID", ""},
                    {"Ctrl+D", ""},
                    {"Command: ", "? @sho\r"},
                    {"prints a system variable", ""},
                    {"Command: ", "-LAYER\r"},
                    {"Unlock]: ", "?\r"},  // an answer like any other
                    {"to list <*>: ", "\x03"},
                    {"Unlock]: ", "\x03"},
                    {"Command: ", "@preselect 60\r"},
                    {"Command: ", "KOVRA_TEXT_COUNTUP\r"},
                    {"Count-Up Copy of Texts (531)", ""},
                    {"1978 Numbering: \"Decimal\" of ", ""},
                    {"disabled:  1953 [1 Column]", ""},
                    {"1932 Rows: ", ""},
                    {"1 [OK]  2 [Cancel]", ""},
                    {"] ", "@choose 1978 hex\t\r"},
                    {"] ", "?\r"},
                    {"@choose ID ITEM", ""},
                    {"\"Hexadecimal\" of ", ""},
                    {"] ", "@esc\r"},
                    {"Command: ", "\x04"}});
}

}  // namespace
}  // namespace kovra::test
