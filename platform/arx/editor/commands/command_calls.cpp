// Commands that a command runs: acedCommandS, acedCmdS.
#include <cstdarg>

#include "platform/arx/editor/commands/command_processor.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/editor/prompts/command_tokens.h"

namespace kovra::arx {
namespace {

bool commandsShow() {
  AcApDocument* document = DocumentList::instance().current();
  const Result<VariableValue> echo =
      document != nullptr ? readVariable(*document, L"CMDECHO") : VariableValue{};
  return echo && echo.value().integer != 0;
}

/// Runs commands until the tokens are used up.
int runTokens(const resbuf* list) {
  AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr) return RTERROR;
  TokenFrame frame(list, commandsShow());
  static const Question idle = {.prompt = L"Command: "};
  while (!frame.empty()) {
    const Answer name = frame.next(*document, idle);
    if (name.kind != AnswerKind::kText) return RTERROR;
    if (!name.text.empty() && !runCommandByName(name.text)) return RTERROR;
    if (frame.ranDry()) return RTCAN;
  }
  return RTNORM;
}

/// The element of a variable argument list of this type.
resbuf* tokenOf(int type, std::va_list& arguments) {
  // The branches take arguments of different types.
  switch (type) {
    case RTSTR:  // NOLINT(bugprone-branch-clone)
      return acutBuildList(type, va_arg(arguments, const ACHAR*), RTNONE);
    case RTREAL:
    case RTANG:
    case RTORINT:
      return acutBuildList(type, va_arg(arguments, double), RTNONE);
    case RTSHORT:
    case RTLONG:
      return acutBuildList(type, va_arg(arguments, int), RTNONE);
    case RTPOINT:
    case RT3DPOINT:
      return acutBuildList(type, va_arg(arguments, const ads_real*), RTNONE);
    case RTENAME:
    case RTPICKS:
      return acutBuildList(type, va_arg(arguments, const Adesk::IntPtr*), RTNONE);
    default:
      return nullptr;
  }
}

}  // namespace
}  // namespace kovra::arx

int acedCommandS(int type, ...) {
  resbuf* first = nullptr;
  resbuf** tail = &first;
  std::va_list arguments;
  va_start(arguments, type);
  bool understood = true;
  for (; understood && type != 0 && type != RTNONE; type = va_arg(arguments, int)) {
    *tail = kovra::arx::tokenOf(type, arguments);
    understood = *tail != nullptr;
    if (understood) tail = &(*tail)->rbnext;
  }
  va_end(arguments);
  const int status = understood ? kovra::arx::runTokens(first) : RTERROR;
  acutRelRb(first);
  return status;
}

int acedCmdS(const resbuf* list, bool, void*) {
  return kovra::arx::runTokens(list);
}
