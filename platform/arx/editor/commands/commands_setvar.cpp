#include "platform/arx/base/wildcard.h"
#include "platform/arx/editor/commands/builtin_commands.h"
#include "platform/arx/editor/documents/sysvar_table.h"
#include "platform/arx/editor/prompts/prompts.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

constexpr host::NamesAsked kVariables{host::NameKind::kVariable};

/// Names that can be a variable's value.
host::NamesAsked valuesOf(std::wstring_view variable) {
  if (variable == L"CLAYER") return {host::NameKind::kLayer};
  if (variable == L"TEXTSTYLE") return {host::NameKind::kTextStyle};
  return {};
}

void listVariables(AcApDocument& document) {
  const Reply pattern = askText(L"Enter variable(s) to list <*>: ", Blanks::kAccept, kVariables);
  if (!pattern) return;
  const std::wstring wanted = pattern.text.empty() ? L"*" : pattern.text;
  for (const VariableRow& row : variableRows()) {
    if (!wildcardMatch(row.info.name, wanted, true)) continue;
    const Result<VariableValue> value = readVariable(document, row.info.name);
    if (!value) continue;
    showMessage(std::wstring(row.info.name) + L" = " + variableText(value.value()) +
                (row.info.readOnly ? L" (read only)" : L""));
  }
}

}  // namespace

void askVariable(AcApDocument& document, std::wstring_view name) {
  const VariableInfo* info = findVariable(name);
  const Result<VariableValue> present = readVariable(document, name);
  if (info == nullptr || !present) return;
  const std::wstring shown = variableText(present.value());
  if (info->readOnly)
    return showMessage(std::wstring(info->name) + L" = " + shown + L" (read only)");
  const Blanks blanks = info->type == RTSTR ? Blanks::kText : Blanks::kAccept;
  for (;;) {
    const Reply typed =
        askText(L"Enter new value for " + std::wstring(info->name) + L" <" + shown + L">: ", blanks,
                valuesOf(info->name));
    if (!typed || typed.text.empty()) return;
    const Result<VariableValue> value = parseVariable(info->type, typed.text);
    const Result<void> written =
        value ? writeVariable(document, name, value.value()) : Result<void>(value.error());
    if (written) return;
    refuseAnswer(typed.asAnswer(), win::fromUtf8(written.error().message) + L".");
  }
}

void setVariableCommand(AcApDocument& document) {
  for (;;) {
    const Reply name = askText(L"Enter variable name or [?]: ", Blanks::kAccept, kVariables);
    if (!name || name.text.empty()) return;
    if (name.text == L"?") return listVariables(document);
    if (findVariable(name.text) != nullptr) return askVariable(document, name.text);
    refuseAnswer(name.asAnswer(), L"Unknown variable name. Type SETVAR ? for a list of variables.");
  }
}

}  // namespace kovra::arx
