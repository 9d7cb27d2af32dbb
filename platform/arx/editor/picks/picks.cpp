#include "platform/arx/database/database.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/documents/ucs.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/editor/picks/hit_test.h"
#include "platform/arx/editor/prompts/prompts.h"
#include "platform/arx/lists/entity_lists.h"

namespace kovra::arx {
namespace {

/// Values of ERRNO after a prompt for an entity.
constexpr int kPickFailed = 7;
constexpr int kNullResponse = 52;

struct PickReply {
  int status = RTERROR;
  PickHit hit{};
  AcGePoint3d point{};  ///< in world coordinates
};

PickReply hitAt(AcApDocument& document, const AcGePoint3d& point) {
  PickReply reply;
  reply.point = point;
  if (std::optional<PickHit> hit = pickAt(document, point)) {
    reply.status = RTNORM;
    reply.hit = std::move(*hit);
  } else {
    setErrno(kPickFailed);
  }
  return reply;
}

/// The hit of an entity that a command named itself.
PickReply namedEntity(const Answer& answer) {
  PickReply reply;
  if (answer.entities.empty()) return setErrno(kPickFailed), reply;
  reply.status = RTNORM;
  reply.hit.entity = reply.hit.leaf = answer.entities.front();
  return reply;
}

PickReply askPick(AcApDocument& document, const ACHAR* prompt, AcDbObjectId PickHit::*taken) {
  const PromptControl control = takePromptControl();
  Question question;
  question.kind = host::WaitKind::kPick;
  question.keywords = &control.keywords;
  question.prompt = prompt != nullptr ? prompt : L"Select object: ";
  question.takesPoints = true;
  question.taken = [taken](const PickHit& hit) { return hit.*taken; };
  for (;;) {
    const Answer answer = ask(document, question);
    PickReply reply;
    if (answer.kind == AnswerKind::kPoint) return hitAt(document, answer.point);
    if (answer.kind == AnswerKind::kEntities) return namedEntity(answer);
    if (answer.kind == AnswerKind::kCancel) return reply.status = RTCAN, reply;
    if (answer.isEnter()) return setErrno(kNullResponse), reply;
    Reply typed{RTNORM};
    switch (readPointText(document, answer.text, control, std::nullopt, typed)) {
      case TextReading::kIgnored:
        break;
      case TextReading::kRefused:
        refuseAnswer(answer, L"*Invalid selection* Expects a point.");
        break;
      case TextReading::kAnswer:
        if (typed.status == RTNORM) return hitAt(document, toWorld(document, typed.point));
        document.session().lastInput = typed.text;
        reply.status = typed.status;
        return reply;
    }
  }
}

void giveUcsPoint(const AcApDocument& document, const AcGePoint3d& worldPoint, ads_point result) {
  if (result == nullptr) return;
  const AcGePoint3d point = toUcs(document, worldPoint);
  result[0] = point.x;
  result[1] = point.y;
  result[2] = point.z;
}

/// A list of entity names, null for none or without memory.
resbuf* nameList(const std::vector<AcDbObjectId>& ids) {
  resbuf* first = nullptr;
  resbuf** tail = &first;
  for (const AcDbObjectId& id : ids) {
    ads_name name;
    if (acdbGetAdsName(name, id) != Acad::eOk) continue;
    *tail = acutBuildList(RTENAME, name, RTNONE);
    if (*tail == nullptr) break;
    tail = &(*tail)->rbnext;
  }
  return first;
}

int giveNested(const AcApDocument& document, const PickReply& reply, ads_name entity,
               ads_point point, resbuf** containers) {
  if (containers != nullptr) *containers = nullptr;
  if (reply.status != RTNORM) return reply.status;
  if (acdbGetAdsName(entity, reply.hit.leaf) != Acad::eOk) return RTERROR;
  giveUcsPoint(document, reply.point, point);
  if (containers != nullptr) *containers = nameList(reply.hit.containers);
  return RTNORM;
}

}  // namespace
}  // namespace kovra::arx

using namespace kovra::arx;

int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point) {
  AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr || entity == nullptr) return RTERROR;
  const PickReply reply = askPick(*document, prompt, &PickHit::entity);
  if (reply.status != RTNORM) return reply.status;
  if (acdbGetAdsName(entity, reply.hit.entity) != Acad::eOk) return RTERROR;
  giveUcsPoint(*document, reply.point, point);
  return RTNORM;
}

int acedNEntSel(const ACHAR* prompt, ads_name entity, ads_point point, ads_point xform[4],
                resbuf** containers) {
  AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr || entity == nullptr) return RTERROR;
  const PickReply reply = askPick(*document, prompt, &PickHit::leaf);
  const int status = giveNested(*document, reply, entity, point, containers);
  if (status != RTNORM || xform == nullptr) return status;
  // The old form has the images of the axes and of the origin as rows.
  for (unsigned row = 0; row < 4; ++row)
    for (unsigned i = 0; i < 3; ++i) xform[row][i] = reply.hit.toWorld(i, row);
  return status;
}

int acedNEntSelP(const ACHAR* prompt, ads_name entity, ads_point point, int pickFlag,
                 ads_matrix xform, resbuf** containers) {
  AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr || entity == nullptr || (pickFlag != 0 && point == nullptr))
    return RTERROR;
  PickReply reply;
  if (pickFlag != 0)
    reply = hitAt(*document, toWorld(*document, {point[0], point[1], point[2]}));
  else
    reply = askPick(*document, prompt, &PickHit::leaf);
  const int status = giveNested(*document, reply, entity, point, containers);
  if (status != RTNORM || xform == nullptr) return status;
  for (unsigned row = 0; row < 4; ++row)
    for (unsigned column = 0; column < 4; ++column)
      xform[row][column] = reply.hit.toWorld(row, column);
  return status;
}
