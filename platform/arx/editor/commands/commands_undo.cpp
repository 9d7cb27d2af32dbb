#include <string>

#include "platform/arx/database/database.h"
#include "platform/arx/database/journal.h"
#include "platform/arx/editor/commands/builtin_commands.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/prompts/prompts.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

constexpr int kMostSteps = 32767;

void undoSteps(AcApDocument& document, int count) {
  const std::vector<std::wstring> names = document.database()->journal().undo(count);
  std::wstring line;
  for (const std::wstring& name : names) {
    if (!line.empty()) line += L" ";
    line += name.empty() ? L"Mark" : name;
  }
  if (!names.empty()) showMessage(line);
  if (static_cast<int>(names.size()) < count) showMessage(L"Everything has been undone.");
}

void undoToMark(AcApDocument& document) {
  Journal& journal = document.database()->journal();
  const bool marked = journal.hasMark();
  if (!marked) {
    const Reply sure =
        askKeyword(L"This will undo everything. OK? [Yes/No] <Y>: ", KeywordList(L"Yes No"));
    const bool yes = sure.status == RTNONE || (sure && sure.text == L"Yes");
    if (!yes) return;
  }
  journal.undoBack();
  showMessage(marked ? L"Mark encountered." : L"Everything has been undone.");
}

/// A count that was typed, or -1 after telling why not.
int stepCount(const Reply& typed) {
  const std::wstring& text = typed.text;
  const bool digits = text.find_first_not_of(L"0123456789") == std::wstring::npos;
  const int count = digits && text.size() <= 5 ? std::stoi(text) : 0;
  if (count >= 1 && count <= kMostSteps) return count;
  refuseAnswer(typed.asAnswer(), L"Requires an integer between 1 and 32767 or an option keyword.");
  return -1;
}

}  // namespace

void undoOnceCommand(AcApDocument& document) {
  undoSteps(document, 1);
}

void redoCommand(AcApDocument& document) {
  showMessage(document.database()->journal().redo() ? L"Everything has been redone."
                                                    : L"Nothing to redo.");
}

void undoCommand(AcApDocument& document) {
  Journal& journal = document.database()->journal();
  const KeywordList options(L"BEgin End Mark Back");
  for (;;) {
    const Reply typed = askText(
        L"Enter the number of operations to undo or [BEgin/End/Mark/Back] <1>: ", Blanks::kAccept);
    if (!typed) return;
    if (typed.text.empty()) return undoSteps(document, 1);
    const std::optional<size_t> option =
        win::equalNoCase(typed.text, L"B") ? std::optional<size_t>(3) : options.match(typed.text);
    if (!option) {
      if (const int count = stepCount(typed); count > 0) return undoSteps(document, count);
      continue;
    }
    switch (*option) {
      case 0:
        return journal.beginGroup();
      case 1:
        return journal.endGroup();
      case 2:
        return journal.setMark();
      default:
        return undoToMark(document);
    }
  }
}

}  // namespace kovra::arx
