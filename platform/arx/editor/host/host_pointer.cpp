#include <cmath>

#include "platform/arx/database/database.h"
#include "platform/arx/database/entity_order.h"
#include "platform/arx/database/object_id_set.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/documents/ucs.h"
#include "platform/arx/editor/documents/view.h"
#include "platform/arx/editor/host/message_hooks.h"
#include "platform/arx/editor/host_api.h"
#include "platform/arx/editor/picks/hit_test.h"
#include "platform/arx/editor/prompts/prompt.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"
#include "platform/win/base/messages.h"
#include "platform/win/base/pump.h"

namespace kovra::arx::host {
namespace {

Error refused(std::string message) {
  return {ErrorKind::kInvalidInput, std::move(message)};
}

/// The document that the pointer works in, or why it can't now.
Result<AcApDocument*> pointedDocument() {
  const win::Wait* top = win::Pump::instance().topWait();
  if (top != nullptr && top->kind == win::WaitKind::modalDialog)
    return refused("a dialog or a message box is open");
  AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr) return refused("no drawing is open");
  return document;
}

AcGePoint3d world(const AcApDocument& document, const PickPoint& point) {
  return toWorld(document, {point.x, point.y, point.z});
}

bool isOn(AcApDocument& document, std::wstring_view variable) {
  const Result<VariableValue> value = readVariable(document, variable);
  return value && value.value().integer != 0;
}

double snapped(double value, double spacing) {
  return spacing > 0 ? std::round(value / spacing) * spacing : value;
}

/// Where a pointer at this world point counts: on the snap grid, and straight from the base point
/// of the prompt.
AcGePoint3d effectivePoint(AcApDocument& document, const Question& question,
                           const AcGePoint3d& worldPoint) {
  AcGePoint3d point = toUcs(document, worldPoint);
  if (isOn(document, L"SNAPMODE")) {
    const Result<VariableValue> unit = readVariable(document, L"SNAPUNIT");
    if (unit) {
      point.x = snapped(point.x, unit.value().point[0]);
      point.y = snapped(point.y, unit.value().point[1]);
    }
  }
  if (question.base && question.ortho && isOn(document, L"ORTHOMODE")) {
    const AcGePoint3d base = toUcs(document, *question.base);
    if (std::abs(point.x - base.x) >= std::abs(point.y - base.y))
      point.y = base.y;
    else
      point.x = base.x;
  }
  return toWorld(document, point);
}

/// Puts the cursor over a world point and sends the mouse message of it there.
bool sendMouse(AcApDocument& document, UINT message, WPARAM keys, const AcGePoint3d& point) {
  Cursor& cursor = document.session().cursor;
  cursor.known = true;
  cursor.point = point;
  cursor.effective = point;
  worldToPixel(currentView(document), point, cursor.pixelX, cursor.pixelY);
  return sendDrawingMessage(message, keys, cursor.pixelX, cursor.pixelY);
}

/// Presses and lets go the left button at a world point; false when a filter kept the press.
bool sendClick(AcApDocument& document, const AcGePoint3d& point) {
  focusDrawing();
  if (!sendMouse(document, WM_MOUSEMOVE, 0, point)) return false;
  if (!sendMouse(document, WM_LBUTTONDOWN, MK_LBUTTON, point)) return false;
  sendMouse(document, WM_LBUTTONUP, 0, point);
  return true;
}

/// Clicks at a world point.
void click(AcApDocument& document, const AcGePoint3d& point, Aim aim) {
  if (!sendClick(document, point)) return;
  ActivePrompt* prompt = topPrompt();
  if (prompt == nullptr || prompt->answered() || !prompt->question().takesPoints) return;
  Answer answer;
  answer.kind = AnswerKind::kPoint;
  answer.point = aim == Aim::kExact ? point : effectivePoint(document, prompt->question(), point);
  prompt->answer(std::move(answer));
}

std::string handleText(uint64_t handle) {
  char text[20];
  std::snprintf(text, sizeof text, "%llX", static_cast<unsigned long long>(handle));
  return text;
}

Result<AcDbObjectId> entityOf(const AcApDocument& document, uint64_t handle) {
  const AcDbDatabase& database = *document.database();
  const dxf::RecordIndex record = database.store().find(handle);
  if (record == dxf::kNoRecord || database.store().erased(record))
    return refused("no object has the handle " + handleText(handle));
  return database.idOf(record);
}

Result<std::vector<AcDbObjectId>> chosen(AcApDocument& document, const SelectionInput& input,
                                         Attributes attributes) {
  if (input.all) return allEntities(document, attributes);
  if (input.box) {
    const AcGePoint3d first = world(document, input.box->first);
    const AcGePoint3d second = world(document, input.box->second);
    return entitiesInBox(document, first, second, second.x < first.x, attributes);
  }
  std::vector<AcDbObjectId> ids;
  for (const uint64_t handle : input.handles) {
    const Result<AcDbObjectId> id = entityOf(document, handle);
    if (!id) return id.error();
    const AcDbDatabase& database = *document.database();
    const dxf::RecordIndex record = id.value().index();
    const dxf::RecordIndex reference =
        attributes == Attributes::kTaken ? attributeOwner(database, record) : dxf::kNoRecord;
    if (!isEntityOfCurrentSpace(database, reference != dxf::kNoRecord ? reference : record))
      return refused("the object " + handleText(handle) + " isn't an entity of the current space");
    ids.push_back(id.value());
  }
  return ids;
}

}  // namespace

Result<void> clickPoint(PickPoint point, Aim aim) {
  const Result<AcApDocument*> document = pointedDocument();
  if (!document) return document.error();
  const ActivePrompt* prompt = topPrompt();
  if (prompt == nullptr || prompt->isIdle()) return refused("nothing asks for a point");
  click(*document.value(), world(*document.value(), point), aim);
  return {};
}

Result<void> moveCursor(PickPoint point, Aim aim) {
  const Result<AcApDocument*> pointed = pointedDocument();
  if (!pointed) return pointed.error();
  AcApDocument& document = *pointed.value();
  const AcGePoint3d at = world(document, point);
  cursorEntersDrawing();
  if (!sendMouse(document, WM_MOUSEMOVE, 0, at)) return {};
  const ActivePrompt* prompt = topPrompt();
  if (prompt == nullptr || prompt->answered()) return {};
  const AcGePoint3d counts =
      aim == Aim::kExact ? at : effectivePoint(document, prompt->question(), at);
  document.session().cursor.effective = counts;
  if (prompt->question().cursorMoved) prompt->question().cursorMoved(counts);
  return {};
}

Result<void> pickEntity(uint64_t handle) {
  const Result<AcApDocument*> document = pointedDocument();
  if (!document) return document.error();
  const ActivePrompt* prompt = topPrompt();
  if (prompt == nullptr || prompt->isIdle()) return refused("nothing asks for an object");
  const Result<AcDbObjectId> id = entityOf(*document.value(), handle);
  if (!id) return id.error();
  const std::optional<AcGePoint3d> point = pickPointOf(*document.value(), id.value());
  if (!point) return refused("the object " + handleText(handle) + " can't be picked anywhere");
  click(*document.value(), *point, Aim::kExact);
  return {};
}

Result<void> select(const SelectionInput& input) {
  const Result<AcApDocument*> document = pointedDocument();
  if (!document) return document.error();
  ActivePrompt* prompt = topPrompt();
  if (prompt == nullptr || !prompt->question().takesEntities)
    return refused("nothing asks for a selection");
  const Attributes attributes =
      prompt->question().takesAttributes ? Attributes::kTaken : Attributes::kLeftOut;
  Result<std::vector<AcDbObjectId>> ids = chosen(*document.value(), input, attributes);
  if (!ids) return ids.error();
  focusDrawing();
  Answer answer;
  answer.kind = AnswerKind::kEntities;
  answer.entities = std::move(ids.value());
  prompt->answer(std::move(answer));
  return {};
}

namespace {

/// Makes entities the implied selection, behind those that it has.
void addImplied(AcApDocument& document, const std::vector<AcDbObjectId>& ids) {
  std::vector<AcDbObjectId>& implied = document.session().implied;
  ObjectIdSet present;
  for (const AcDbObjectId& id : implied) present.insert(id);
  for (const AcDbObjectId& id : ids)
    if (present.insert(id)) implied.push_back(id);
}

}  // namespace

Result<IdleClick> clickIdle(PickPoint point) {
  const Result<AcApDocument*> document = pointedDocument();
  if (!document) return document.error();
  const auto isIdle = [] { return topPrompt() != nullptr && topPrompt()->isIdle(); };
  if (!isIdle()) return refused("a command is running");
  const AcGePoint3d at = world(*document.value(), point);
  if (!sendClick(*document.value(), at) || !isIdle()) return IdleClick::kTaken;
  const std::optional<PickHit> hit = pickAt(*document.value(), at);
  if (!hit) return IdleClick::kMissed;
  addImplied(*document.value(), {hit->entity});
  return IdleClick::kAdded;
}

Result<void> preselect(const SelectionInput& input) {
  const Result<AcApDocument*> document = pointedDocument();
  if (!document) return document.error();
  const ActivePrompt* prompt = topPrompt();
  if (prompt == nullptr || !prompt->isIdle()) return refused("a command is running");
  Result<std::vector<AcDbObjectId>> ids = chosen(*document.value(), input, Attributes::kLeftOut);
  if (!ids) return ids.error();
  focusDrawing();
  if (!input.adding) document.value()->session().implied.clear();
  addImplied(*document.value(), ids.value());
  return {};
}

}  // namespace kovra::arx::host
