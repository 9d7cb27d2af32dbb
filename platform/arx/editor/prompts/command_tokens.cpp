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

void setText(Answer& token, std::wstring text) {
  token.kind = AnswerKind::kText;
  token.text = std::move(text);
}

void setEntity(Answer& token, const ads_name name) {
  token.kind = AnswerKind::kEntities;
  if (AcDbObjectId id; acdbGetObjectId(id, name) == Acad::eOk) token.entities.push_back(id);
}

void setSelection(Answer& token, const ads_name set) {
  token.kind = AnswerKind::kEntities;
  if (const SelectionSet* found = SelectionSets::instance().find(set))
    token.entities = found->members();
}

void setReal(Answer& token, double value) {
  VariableValue number;
  number.type = RTREAL;
  number.real = value;
  setText(token, variableText(number));
}

/// In UCS coordinates, until the command takes it: commands before it may turn the UCS.
void setPoint(Answer& token, const double* point) {
  token.kind = AnswerKind::kPoint;
  token.point = {point[0], point[1], point[2]};
}

/// False for an element that is no answer.
bool readToken(const resbuf& element, Answer& token) {
  switch (element.restype) {
    case RTSTR:
      setText(token, element.resval.rstring != nullptr ? element.resval.rstring : L"");
      return true;
    case RTREAL:
    case RTANG:
    case RTORINT:
      setReal(token, element.resval.rreal);
      return true;
    case RTSHORT:
      setText(token, std::to_wstring(element.resval.rint));
      return true;
    case RTLONG:
      setText(token, std::to_wstring(element.resval.rlong));
      return true;
    case RTPOINT:
    case RT3DPOINT:
      setPoint(token, element.resval.rpoint);
      return true;
    case RTENAME:
      setEntity(token, element.resval.rlname);
      return true;
    case RTPICKS:
      setSelection(token, element.resval.rlname);
      return true;
    default:
      return false;
  }
}

}  // namespace

TokenFrame::TokenFrame(const resbuf* list, bool shown) : shown_(shown) {
  answers_.reserve(static_cast<std::size_t>(acutCountRb(list)));
  for (const resbuf* element = list; element != nullptr; element = element->rbnext) {
    if (element->restype == RTLB || element->restype == RTLE) continue;
    Answer& token = answers_.emplace_back();
    token.fromTokens = true;
    if (readToken(*element, token)) continue;
    answers_.pop_back();
    break;
  }
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
