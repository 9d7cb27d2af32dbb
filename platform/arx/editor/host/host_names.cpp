// Names that a user may type: commands, variables, records of the current drawing's tables.
#include <algorithm>

#include "platform/arx/database/database.h"
#include "platform/arx/editor/commands/builtin_commands.h"
#include "platform/arx/editor/commands/command_processor.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/documents/sysvar_table.h"
#include "platform/arx/editor/host_api.h"
#include "platform/dxf/structure.h"

namespace kovra::arx::host {
namespace {

std::vector<std::wstring> entryNames(dxf::TableKind table) {
  std::vector<std::wstring> names;
  const AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr) return names;
  const dxf::Structure& structure = document->database()->structure();
  dxf::RecordIndex entry = structure.firstEntry(table);
  for (; entry != dxf::kNoRecord; entry = structure.nextEntry(entry)) {
    std::wstring name = structure.entryName(entry);
    // Shape files lie among the styles without a name.
    if (!name.empty()) names.push_back(std::move(name));
  }
  return names;
}

std::vector<std::wstring> variableNames() {
  std::vector<std::wstring> names;
  for (const VariableRow& row : variableRows()) names.emplace_back(row.info.name);
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace

std::vector<CommandInfo> commands() {
  std::vector<CommandInfo> all;
  const auto& bound = CommandTable::instance().bound();
  for (const auto& [name, command] : bound) all.push_back({name, command.summary, false});
  for (const BuiltInCommand& command : builtInCommands()) {
    if (bound.contains(command.name)) continue;
    all.push_back({std::wstring(command.name), std::wstring(command.summary), true});
  }
  return all;
}

std::vector<std::wstring> namesOf(NameKind kind) {
  switch (kind) {
    case NameKind::kLayer:
      return entryNames(dxf::TableKind::kLayer);
    case NameKind::kTextStyle:
      return entryNames(dxf::TableKind::kStyle);
    case NameKind::kVariable:
      return variableNames();
    default:
      return {};
  }
}

}  // namespace kovra::arx::host
