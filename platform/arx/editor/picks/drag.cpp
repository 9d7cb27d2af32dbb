#include "platform/arx/editor/picks/drag.h"
#include "platform/arx/database/database.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/documents/selection_sets.h"
#include "platform/arx/editor/documents/ucs.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/editor/prompts/prompts.h"

namespace kovra::arx {
namespace {

const ActiveDrag* dragged = nullptr;

/// One drag: hands each place of the cursor to the transform.
class Drag {
 public:
  Drag(const AcApDocument& document, const SelectionSet& set, AcedDragTransform transform)
      : document_(document), transform_(transform), outer_(dragged) {
    shown_.entities = set.members();
    dragged = &shown_;
  }
  ~Drag() { dragged = outer_; }
  Drag(const Drag&) = delete;
  Drag& operator=(const Drag&) = delete;

  /// False when the transform ends the drag.
  bool sample(const AcGePoint3d& ucsPoint) {
    ads_point cursor{ucsPoint.x, ucsPoint.y, ucsPoint.z};
    ads_matrix matrix{};
    for (int i = 0; i < 4; ++i) matrix[i][i] = 1;
    const bool goOn = transform_(cursor, matrix) != RTERROR;
    AcGeMatrix3d inUcs;
    for (unsigned row = 0; row < 4; ++row)
      for (unsigned column = 0; column < 4; ++column) inUcs(row, column) = matrix[row][column];
    shown_.place = ucsToWcs(document_) * inUcs * wcsToUcs(document_);
    shown_.moved = true;
    return goOn;
  }

  void moved(const AcGePoint3d& worldPoint) {
    const bool goOn = sample(toUcs(document_, worldPoint));
    ActivePrompt* prompt = topPrompt();
    if (!goOn && prompt != nullptr) prompt->cancel();
  }

 private:
  const AcApDocument& document_;
  AcedDragTransform transform_;
  ActiveDrag shown_;
  const ActiveDrag* outer_;
};

/// RTNORM with the point in the UCS, or how the drag ended.
Reply runDrag(AcApDocument& document, const ACHAR* promptText, Drag& drag) {
  const PromptControl control = takePromptControl();
  Question question;
  question.kind = host::WaitKind::kDrag;
  question.keywords = &control.keywords;
  question.prompt = promptText != nullptr ? promptText : L"";
  question.takesPoints = true;
  question.ortho = false;
  question.cursorMoved = [&](const AcGePoint3d& point) { drag.moved(point); };
  for (;;) {
    const Answer answer = ask(document, question);
    Reply reply{RTNORM};
    if (answer.kind == AnswerKind::kPoint) {
      reply.point = toUcs(document, answer.point);
      return reply;
    }
    if (answer.kind != AnswerKind::kText) return {RTCAN};
    if (answer.isEnter()) return {RTNONE};
    const TextReading reading = readPointText(document, answer.text, control, std::nullopt, reply);
    if (reading == TextReading::kAnswer) return reply;
    if (reading == TextReading::kRefused) refuseAnswer(answer, L"Invalid point.");
  }
}

}  // namespace

const ActiveDrag* activeDrag() {
  return dragged;
}

}  // namespace kovra::arx

using namespace kovra::arx;

int acedDragGen(const ads_name set, const ACHAR* prompt, int, AcedDragTransform transform,
                ads_point point) {
  AcApDocument* document = DocumentList::instance().current();
  const SelectionSet* moving = SelectionSets::instance().find(set);
  if (document == nullptr || moving == nullptr || transform == nullptr || point == nullptr)
    return RTERROR;
  Drag drag(*document, *moving, transform);
  const Reply reply = runDrag(*document, prompt, drag);
  if (reply.status == RTKWORD) document->session().lastInput = reply.text;
  if (!reply) return reply.status;
  if (!drag.sample(reply.point)) return RTCAN;
  document->session().lastPoint = toWorld(*document, reply.point);
  point[0] = reply.point.x;
  point[1] = reply.point.y;
  point[2] = reply.point.z;
  return RTNORM;
}
