#include "host/lines/terminal_guide.h"

#include <vector>

#include "host/lines/dialog_view.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/pump.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/desktop/user_input.h"

namespace kovra::host {
namespace {

constexpr size_t kNameWidth = 28;
constexpr size_t kLineWidth = 80;

constexpr std::string_view kWelcome =
    "? says what there is, Tab completes what is typed, Ctrl+D ends.\n";
constexpr std::string_view kKeys =
    "Keys\n"
    "  Tab                       completes names, files, control numbers; shows what fits\n"
    "  Enter                     on an empty line repeats the last command\n"
    "  Up, Ctrl+R                bring former lines back\n"
    "  Ctrl+C                    cancels what waits\n"
    "  Ctrl+D                    ends the program; @save before it, or changes are dropped\n";

struct Entry {
  std::wstring usage;
  std::wstring summary;
};

std::vector<Entry> commandEntries(bool builtIn) {
  std::vector<Entry> entries;
  for (const arx::host::CommandInfo& command : arx::host::commands()) {
    if (command.builtIn == builtIn) entries.push_back({command.name, command.summary});
  }
  if (builtIn) entries.push_back({L"a variable's name", L"shows or sets that system variable"});
  return entries;
}

std::vector<Entry> lineEntries(std::span<const LineHandler> lines) {
  std::vector<Entry> entries;
  for (const LineHandler& line : lines) {
    std::wstring usage = L'@' + std::wstring(line.name);
    if (!line.usage.empty()) usage += L' ' + std::wstring(line.usage);
    entries.push_back({std::move(usage), std::wstring(line.summary)});
  }
  return entries;
}

/// An entry a line.
std::wstring listed(const std::vector<Entry>& entries) {
  std::wstring text;
  for (const Entry& entry : entries) {
    const size_t gap =
        entry.usage.size() < kNameWidth - 2 ? kNameWidth - 2 - entry.usage.size() : 1;
    text += L"  " + entry.usage + std::wstring(gap, L' ') + entry.summary + L'\n';
  }
  return text;
}

/// Only what is typed, as many as fit on a line.
std::wstring inParagraph(const std::vector<Entry>& entries) {
  std::wstring text;
  size_t columns = 0;
  for (const Entry& entry : entries) {
    const std::wstring piece = L"  " + entry.usage;
    if (columns > 0 && columns + piece.size() > kLineWidth) {
      text += L'\n';
      columns = 0;
    }
    text += piece;
    columns += piece.size();
  }
  return text + L'\n';
}

std::wstring overview() {
  std::wstring text = L"Commands of the text tools\n" + listed(commandEntries(false));
  text += L"Commands of the program\n" + listed(commandEntries(true));
  text += L"Lines that do what the mouse and the desktop do (? @ explains them, ? @click one)\n";
  for (const auto& table : lineTables()) text += inParagraph(lineEntries(table));
  return text;
}

/// What begins with the name, explained.
std::wstring explained(std::wstring_view name) {
  std::vector<Entry> found;
  const auto keep = [&](const std::vector<Entry>& entries) {
    for (const Entry& entry : entries) {
      const bool fits = win::equalNoCase(entry.usage.substr(0, name.size()), name);
      if (fits) found.push_back(entry);
    }
  };
  keep(commandEntries(false));
  keep(commandEntries(true));
  for (const auto& table : lineTables()) keep(lineEntries(table));
  if (found.empty()) return L"Nothing begins with \"" + std::wstring(name) + L"\".\n";
  return listed(found);
}

bool modalDialogWaits() {
  const win::Wait* top = win::Pump::instance().topWait();
  return top != nullptr && top->kind == win::WaitKind::modalDialog;
}

/// What stands behind "help" or "?"; nothing when the line is neither.
std::optional<std::wstring_view> questionIn(std::wstring_view line) {
  const size_t begin = std::min(line.find_first_not_of(L' '), line.size());
  const size_t end = std::min(line.find(L' ', begin), line.size());
  const std::wstring_view word = line.substr(begin, end - begin);
  if (word != L"?" && !win::equalNoCase(word, L"help")) return std::nullopt;
  const size_t name = std::min(line.find_first_not_of(L' ', end), line.size());
  return line.substr(name, line.find_last_not_of(L' ') + 1 - name);
}

void show(std::wstring_view text) {
  win::interaction().freshLine();
  win::interaction().print(text);
}

}  // namespace

TerminalGuide::TerminalGuide(const LineContext& context) : context_(context) {
  win::interaction().print(kWelcome);
}

void TerminalGuide::showDialog(HWND dialog, bool modal) {
  shown_.insert(dialog);
  show(win::fromUtf8(dialogView(win::listDialog(dialog))));
  show(modal
           ? L"(@type ID TEXT, @click ID, @choose ID ITEM ...; ? shows this again)\n"
           : L"(@type ID TEXT, @click ID, @choose ID ITEM ...; @dialog short shows this again)\n");
}

void TerminalGuide::beforeLine() {
  const HWND dialog = win::topDialog();
  if (dialog != nullptr && !shown_.contains(dialog)) showDialog(dialog, modalDialogWaits());
}

bool TerminalGuide::takes(std::wstring_view line) {
  const bool modal = modalDialogWaits();
  if (!modal && arx::host::topWait().kind != arx::host::WaitKind::kIdle) return false;
  const std::optional<std::wstring_view> question = questionIn(line);
  if (!question) return false;
  const HWND dialog = meantDialog(context_);
  if (!question->empty()) {
    show(explained(*question));
  } else if (modal && dialog != nullptr) {
    show(listed(lineEntries(dialogLines())));
    showDialog(dialog, true);
  } else {
    show(overview());
    win::interaction().print(kKeys);
  }
  return true;
}

}  // namespace kovra::host
