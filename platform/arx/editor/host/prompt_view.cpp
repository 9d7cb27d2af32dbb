#include "platform/arx/editor/host/prompt_view.h"

#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/picks/drag.h"
#include "platform/arx/editor/picks/hit_test.h"
#include "platform/arx/editor/picks/jig.h"
#include "platform/arx/editor/picks/selection_prompt.h"
#include "platform/arx/editor/prompts/prompt.h"

namespace kovra::arx::host {

PromptView promptView() {
  PromptView shown;
  const AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr) return shown;
  const DocumentSession& session = document->session();
  shown.highlighted = session.highlighted.ids();
  shown.selected = session.implied;
  if (const SelectionSet* selection = activeSelection(); selection != nullptr)
    shown.selected = selection->members();
  shown.cursorKnown = session.cursor.known;
  shown.cursor = session.cursor.effective;
  const ActivePrompt* prompt = innermostPrompt();
  if (prompt == nullptr || prompt->document() != document) return shown;
  const Question& question = prompt->question();
  shown.kind = question.kind;
  shown.takesPoints = question.takesPoints;
  shown.base = question.base;
  shown.corner = question.kind == WaitKind::kPoint && question.base && !question.ortho;
  if (question.kind != WaitKind::kDrag) return shown;
  if (const AcEdJig* jig = activeJig(); jig != nullptr) shown.jigged = jig->entity();
  if (shown.jigged == nullptr) shown.drag = activeDrag();
  return shown;
}

std::optional<Hovered> hovered() {
  AcApDocument* document = DocumentList::instance().current();
  const ActivePrompt* prompt = topPrompt();
  if (document == nullptr || prompt == nullptr || prompt->document() != document)
    return std::nullopt;
  const Cursor& cursor = document->session().cursor;
  const auto& taken = prompt->question().taken;
  if (!cursor.known || (!taken && !prompt->isIdle())) return std::nullopt;
  const std::optional<PickHit> hit =
      hoveredAt(*document, prompt->isIdle() ? cursor.point : cursor.effective);
  if (!hit) return std::nullopt;
  const AcDbObjectId part = taken ? taken(*hit) : hit->entity;
  if (part.isNull()) return std::nullopt;
  return Hovered{hit->entity, part};
}

}  // namespace kovra::arx::host
