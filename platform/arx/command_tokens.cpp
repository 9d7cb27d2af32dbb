#include "platform/arx/command_tokens.h"

#include <cstdarg>

#include "platform/arx/command_processor.h"
#include "platform/arx/document_list.h"
#include "platform/arx/editor.h"
#include "platform/arx/entity_lists.h"
#include "platform/arx/selection.h"
#include "platform/arx/sysvars.h"
#include "platform/arx/ucs.h"
#include "platform/win/interaction.h"

namespace kovra::arx {
namespace {

std::vector<TokenFrame*>& frames() {
  static std::vector<TokenFrame*> stack;
  return stack;
}

Answer textToken(std::wstring text) {
  Answer token;
  token.kind = AnswerKind::kText;
  token.text = std::move(text);
  return token;
}

Answer entityToken(const ads_name name) {
  Answer token;
  token.kind = AnswerKind::kEntities;
  if (AcDbObjectId id; acdbGetObjectId(id, name) == Acad::eOk) token.entities.push_back(id);
  return token;
}

Answer selectionToken(const ads_name set) {
  Answer token;
  token.kind = AnswerKind::kEntities;
  if (const SelectionSet* found = SelectionSets::instance().find(set))
    token.entities = found->members();
  return token;
}

Answer realToken(double value) {
  VariableValue number;
  number.type = RTREAL;
  number.real = value;
  return textToken(variableText(number));
}

/// In UCS coordinates, until the command takes it: commands before it may turn the UCS.
Answer pointToken(const double* point) {
  Answer token;
  token.kind = AnswerKind::kPoint;
  token.point = {point[0], point[1], point[2]};
  return token;
}

/// False for an element that is no answer.
bool appendToken(const resbuf& element, std::vector<Answer>& out) {
  switch (element.restype) {
    case RTSTR:
      out.push_back(textToken(element.resval.rstring != nullptr ? element.resval.rstring : L""));
      return true;
    case RTREAL:
    case RTANG:
    case RTORINT:
      out.push_back(realToken(element.resval.rreal));
      return true;
    case RTSHORT:
      out.push_back(textToken(std::to_wstring(element.resval.rint)));
      return true;
    case RTLONG:
      out.push_back(textToken(std::to_wstring(element.resval.rlong)));
      return true;
    case RTPOINT:
    case RT3DPOINT:
      out.push_back(pointToken(element.resval.rpoint));
      return true;
    case RTENAME:
      out.push_back(entityToken(element.resval.rlname));
      return true;
    case RTPICKS:
      out.push_back(selectionToken(element.resval.rlname));
      return true;
    default:
      return element.restype == RTLB || element.restype == RTLE;
  }
}

bool commandsShow() {
  AcApDocument* document = DocumentList::instance().current();
  const Result<VariableValue> echo =
      document != nullptr ? readVariable(*document, L"CMDECHO") : VariableValue{};
  return echo && echo.value().integer != 0;
}

}  // namespace

TokenFrame::TokenFrame(const resbuf* list, bool shown) : shown_(shown) {
  for (const resbuf* element = list; element != nullptr; element = element->rbnext)
    if (!appendToken(*element, answers_)) break;
  for (Answer& answer : answers_) answer.fromTokens = true;
  frames().push_back(this);
}

TokenFrame::~TokenFrame() {
  std::erase(frames(), this);
}

TokenFrame* TokenFrame::current() {
  return frames().empty() ? nullptr : frames().back();
}

Answer TokenFrame::next(const AcApDocument& document, const Question& question) {
  if (empty()) {
    ranDry_ = true;
    Answer cancelled;
    cancelled.fromTokens = true;
    return cancelled;
  }
  Answer answer = answers_[at_++];
  if (answer.kind == AnswerKind::kPoint) answer.point = toWorld(document, answer.point);
  if (shown_ && inputShown()) {
    win::interaction().freshLine();
    win::interaction().print(question.prompt);
    win::interaction().print(answer.text);
    win::interaction().freshLine();
  }
  return answer;
}

namespace {

/// Runs commands until the tokens are used up.
int runTokens(const resbuf* list) {
  AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr) return RTERROR;
  TokenFrame frame(list, commandsShow());
  Question idle;
  idle.prompt = L"Command: ";
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
