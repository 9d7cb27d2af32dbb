#include "platform/arx/editor/commands/command_processor.h"

#include <algorithm>
#include <array>
#include <exception>

#include "platform/arx/database/database.h"
#include "platform/arx/database/journal.h"
#include "platform/arx/editor/commands/builtin_commands.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/prompts/command_tokens.h"
#include "platform/dxf/commit_behind.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

constexpr std::array kBuiltIn{
    BuiltInCommand{L"-LAYER", L"makes layers, switches, freezes and locks them", layerCommand},
    BuiltInCommand{L"-STYLE", L"makes or changes a text style", styleCommand},
    BuiltInCommand{L"ERASE", L"erases what is selected", eraseCommand},
    BuiltInCommand{L"MOVE", L"moves what is selected", moveCommand},
    BuiltInCommand{L"REDO", L"brings back what was undone last", redoCommand, false},
    BuiltInCommand{L"REGEN", L"regenerates the display", regenCommand},
    BuiltInCommand{L"SETVAR", L"shows or sets a system variable, ? lists them", setVariableCommand},
    BuiltInCommand{L"U", L"undoes the last command", undoOnceCommand, false},
    BuiltInCommand{L"UCS", L"moves or turns the user coordinate system", ucsCommand},
    BuiltInCommand{L"UNDO", L"undoes several commands, sets marks", undoCommand, false},
};

Command builtInCommand(std::wstring_view name) {
  const auto found = std::find_if(kBuiltIn.begin(), kBuiltIn.end(),
                                  [&](const BuiltInCommand& one) { return one.name == name; });
  if (found == kBuiltIn.end()) return {};
  const auto run = [function = found->run] {
    if (AcApDocument* document = DocumentList::instance().current()) function(*document);
  };
  return {std::wstring(name), run, found->journalled};
}

Command variableCommand(const std::wstring& name) {
  if (findVariable(name) == nullptr) return {};
  const auto run = [name] {
    if (AcApDocument* document = DocumentList::instance().current()) askVariable(*document, name);
  };
  return {name, run};
}

/// A command's name among the running ones of its document, for the time of a scope. At the end of
/// the outermost the implied selection and an unused acedInitGet are gone.
class RunningCommand {
 public:
  RunningCommand(AcApDocument& document, const std::wstring& name) : session_(document.session()) {
    session_.commands.push_back(name);
  }
  ~RunningCommand() {
    session_.commands.pop_back();
    session_.promptControl = {};
    if (session_.commands.empty()) session_.implied.clear();
  }
  RunningCommand(const RunningCommand&) = delete;
  RunningCommand& operator=(const RunningCommand&) = delete;

 private:
  DocumentSession& session_;
};

}  // namespace

std::span<const BuiltInCommand> builtInCommands() {
  return kBuiltIn;
}

std::wstring canonicalCommandName(std::wstring_view typed) {
  const size_t begin = typed.find_first_not_of(L"._");
  return begin == std::wstring_view::npos ? std::wstring() : win::upperCase(typed.substr(begin));
}

CommandTable& CommandTable::instance() {
  static CommandTable table;
  return table;
}

void CommandTable::bind(std::wstring_view name, Bound command) {
  bound_[canonicalCommandName(name)] = std::move(command);
}

void CommandTable::unbind(std::wstring_view name) {
  bound_.erase(canonicalCommandName(name));
}

Command CommandTable::find(std::wstring_view typed) const {
  const size_t prefix = std::min(typed.find_first_not_of(L"._"), typed.size());
  const bool builtInOnly = typed.substr(0, prefix).find(L'.') != std::wstring_view::npos;
  const std::wstring name = canonicalCommandName(typed);
  const bool prefixFits = prefix < 2 || (prefix == 2 && typed[0] != typed[1]);
  if (!prefixFits) return {};
  const auto bound = bound_.find(name);
  if (bound != bound_.end() && !builtInOnly) return {name, bound->second.run};
  if (Command command = builtInCommand(name); command.run) return command;
  if (bound != bound_.end()) return {name, bound->second.run};
  return variableCommand(name);
}

bool runCommandByName(std::wstring_view typed) {
  AcApDocument* document = DocumentList::instance().current();
  const Command command = CommandTable::instance().find(typed);
  if (document == nullptr || !command.run) return false;
  DocumentSession& session = document->session();
  const bool outermost = session.commands.empty();
  if (outermost) session.lastCommand = command.name;
  if (outermost && command.journalled) document->database()->journal().beginStep(command.name);
  const RunningCommand running(*document, command.name);
  const dxf::CommitsBehind commits;
  try {
    command.run();
  } catch (const std::exception& error) {
    const std::string why = win::toUtf8(command.name) + " was ended: " + error.what();
    win::interaction().freshLine();
    win::interaction().print(why + "\n");
    win::interaction().noteFailure(why);
  }
  return true;
}

}  // namespace kovra::arx
