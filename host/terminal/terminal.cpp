#include "host/terminal/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <clocale>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <iostream>

#include "host/terminal/candidate_table.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/pump.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

constexpr int kHistoryLines = 1000;

size_t terminalWidth() {
  winsize size{};
  constexpr size_t kUsualWidth = 80;
  const bool known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : kUsualWidth;
}

// The line that stands in front of the cursor: of a prompt of several lines the last one.
std::string promptOfWait() {
  const win::Wait* top = win::Pump::instance().topWait();
  if (top != nullptr && top->kind == win::WaitKind::modalDialog) return "[" + top->what + "] ";
  const std::string prompt = win::toUtf8(arx::host::topWait().prompt);
  const size_t lineEnd = prompt.rfind('\n');
  if (lineEnd == std::string::npos) return prompt;
  win::interaction().print(prompt.substr(0, lineEnd + 1));
  return prompt.substr(lineEnd + 1);
}

}  // namespace

Terminal::Terminal(bool savesAtEnd, launch::Completer complete)
    : complete_(std::move(complete)), warned_(savesAtEnd) {
  std::setlocale(LC_CTYPE, "");  // how wide characters are typed and shown
  std::signal(SIGINT, SIG_IGN);  // a Ctrl+C between two lines mustn't end the program
  history_.reset(history_init());
  HistEvent event{};
  history(history_.get(), &event, H_SETSIZE, kHistoryLines);
  history(history_.get(), &event, H_SETUNIQUE, 1);
  loadHistory();
  editor_.reset(el_init("kovra", stdin, stdout, stderr));
  EditLine* editor = editor_.get();
  el_set(editor, EL_CLIENTDATA, this);
  el_set(editor, EL_EDITOR, "emacs");
  el_set(editor, EL_HIST, history, history_.get());
  el_set(editor, EL_PROMPT, &Terminal::promptOf);
  el_set(editor, EL_ADDFN, "kovra-cancel", "Cancels what waits", &Terminal::cancelKey);
  el_set(editor, EL_SETTY, "-d", "-isig", nullptr);
  el_set(editor, EL_BIND, "^C", "kovra-cancel", nullptr);
  el_set(editor, EL_ADDFN, "kovra-complete", "Completes what is typed", &Terminal::completeKey);
  el_set(editor, EL_BIND, "^I", "kovra-complete", nullptr);
  win::interaction().setBoxAsker(
      [this](const win::MessageBoxRequest& box) { return askBox(box.buttons); });
}

Terminal::~Terminal() {
  std::signal(SIGINT, SIG_DFL);
  win::interaction().setBoxAsker({});
}

char* Terminal::promptOf(EditLine* editor) {
  Terminal* terminal = nullptr;
  el_get(editor, EL_CLIENTDATA, &terminal);
  return terminal->prompt_.data();
}

unsigned char Terminal::cancelKey(EditLine* editor, int) {
  Terminal* terminal = nullptr;
  el_get(editor, EL_CLIENTDATA, &terminal);
  terminal->cancelled_ = true;
  std::fputs("*Cancel*\n", stdout);
  return CC_NEWLINE;
}

unsigned char Terminal::completeKey(EditLine* editor, int) {
  Terminal* terminal = nullptr;
  el_get(editor, EL_CLIENTDATA, &terminal);
  if (terminal->askingBox_) return CC_ERROR;
  const LineInfo* info = el_line(editor);
  const std::wstring line =
      win::fromUtf8({info->buffer, static_cast<size_t>(info->cursor - info->buffer)});
  const launch::Completion completion = terminal->complete_(line);
  if (completion.candidates.empty()) return CC_ERROR;
  if (completion.literal != completion.typed) {
    el_deletestr(editor, static_cast<int>(line.size() - completion.begin));
    if (el_insertstr(editor, win::toUtf8(completion.literal).c_str()) != 0) return CC_ERROR;
  }
  const bool longer = completion.literal.size() > completion.typed.size();
  if (longer || completion.candidates.size() == 1) return CC_REFRESH;
  std::fputs(("\n" + candidateTable(completion.candidates, terminalWidth())).c_str(), stdout);
  return CC_REDISPLAY;
}

void Terminal::loadHistory() {
  std::filesystem::path file = win::stateStoreFile();
  if (file.empty()) return;
  std::error_code failure;
  std::filesystem::create_directories(std::filesystem::absolute(file).parent_path(), failure);
  file += ".history";  // added, so that it can't be the store itself
  const bool exists = std::filesystem::exists(file, failure);
  // Opening anything else could wait for ever.
  if (exists && !std::filesystem::is_regular_file(file, failure)) return;
  HistEvent event{};
  // A file that is no history is somebody else's.
  if (exists && history(history_.get(), &event, H_LOAD, file.c_str()) < 0) return;
  historyFile_ = file.native();
}

// Saved with each line, so that it outlives a closed terminal.
void Terminal::remember(const std::string& line) {
  HistEvent event{};
  history(history_.get(), &event, H_ENTER, line.c_str());
  if (!historyFile_.empty()) history(history_.get(), &event, H_SAVE, historyFile_.c_str());
}

std::optional<std::string> Terminal::readLine(const std::string& prompt) {
  std::cout.flush();
  prompt_ = prompt;
  cancelled_ = false;
  int count = 0;
  // Before the prompt shows, so that a quick Ctrl+C is a key already.
  el_set(editor_.get(), EL_PREP_TERM, 1);
  const char* read = el_gets(editor_.get(), &count);
  if (read == nullptr || count <= 0) return std::nullopt;
  std::string line(read, static_cast<size_t>(count));
  while (line.ends_with('\n') || line.ends_with('\r')) line.pop_back();
  return line;
}

std::optional<InputLine> Terminal::next() {
  win::interaction().freshLine();
  while (true) {
    const std::optional<std::string> line = readLine(promptOfWait());
    if (cancelled_) return InputLine{"@esc", {}};
    if (!line) {
      std::cout << '\n';
      if (warnOfChanges()) continue;
      return std::nullopt;
    }
    if (!line->empty()) remember(*line);
    return InputLine{*line, {}};
  }
}

bool Terminal::warnOfChanges() {
  if (warned_) return false;
  for (const arx::host::DrawingInfo& drawing : arx::host::drawings()) {
    if (!drawing.modified) continue;
    warned_ = true;
    std::cout << win::toUtf8(drawing.title)
              << " has changes that aren't saved (@save). Ctrl+D again drops them.\n";
  }
  return warned_;
}

int Terminal::askBox(const std::vector<int>& buttons) {
  std::string prompt;
  for (const int button : buttons) {
    const char* name = win::answerName(button);
    if (name == nullptr) continue;
    prompt += prompt.empty() ? " <" : "/";
    prompt += name;
  }
  win::interaction().freshLine();
  askingBox_ = true;
  int button = 0;
  while (button == 0) {
    const std::optional<std::string> line = readLine(prompt + "> ");
    if (!line && !cancelled_) break;
    button = cancelled_ ? IDCANCEL : win::answerButton(*line);
  }
  askingBox_ = false;
  return button;
}

}  // namespace kovra::host
