// Steps of undo by name, and system variables as a front end shows and sets them.
#include "platform/arx/database/database.h"
#include "platform/arx/database/journal.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx::host {
namespace {

Error noDrawing() {
  return {ErrorKind::kInvalidInput, "no drawing is open"};
}

}  // namespace

std::optional<std::wstring> undoName() {
  const AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr) return std::nullopt;
  return document->database()->journal().undoName();
}

std::optional<std::wstring> redoName() {
  const AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr) return std::nullopt;
  return document->database()->journal().redoName();
}

Result<std::wstring> variable(std::wstring_view name) {
  AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr) return noDrawing();
  const Result<VariableValue> value = readVariable(*document, name);
  if (!value) return value.error();
  return value.value().type == RTSTR ? value.value().text : variableText(value.value());
}

Result<void> setVariable(std::wstring_view name, std::wstring_view typed) {
  AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr) return noDrawing();
  const VariableInfo* info = findVariable(name);
  if (info == nullptr)
    return Error{ErrorKind::kNotFound, "no variable is called " + win::toUtf8(name)};
  const Result<VariableValue> value = parseVariable(info->type, typed);
  if (!value) return value.error();
  if (document->session().commands.empty() && info->home == VariableHome::kHeader)
    document->database()->journal().beginStep(info->name);
  return writeVariable(*document, name, value.value());
}

}  // namespace kovra::arx::host
