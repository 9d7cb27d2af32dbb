#include "platform/arx/editor/prompts/command_tokens.h"

#include <utility>

#include "platform/arx/editor/documents/selection_sets.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/documents/ucs.h"
#include "platform/arx/lists/entity_lists.h"
#include "platform/win/base/interaction.h"

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

}  // namespace

TokenFrame::TokenFrame(const resbuf* list, bool shown) : shown_(shown) {
  answers_.reserve(static_cast<std::size_t>(acutCountRb(list)));
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
  Answer answer = std::move(answers_[at_++]);
  if (answer.kind == AnswerKind::kPoint) answer.point = toWorld(document, answer.point);
  if (shown_ && inputShown()) {
    win::interaction().freshLine();
    win::interaction().print(question.prompt);
    win::interaction().print(answer.text);
    win::interaction().freshLine();
  }
  return answer;
}

}  // namespace kovra::arx
