#include "module/textcmd/entity_jig.h"

#include <memory>
#include <new>

#include "module/drawing/coordinates.h"
#include "module/drawing/current_database.h"
#include "module/frame/companions/entity_attr_lib.h"
#include "module/frame/reporting.h"

namespace kovra {

AcDbText* TextPreview = nullptr;
AcGePoint3d LastJigPoint;

namespace {

/// Moves that are shorter are none, in drawing units.
constexpr double kSmallestMove = 0.0001;

constexpr const ACHAR* kRequestKeyword = L"_.";

constexpr auto kInputControls = static_cast<AcEdJig::UserInputControls>(
    AcEdJig::kNullResponseAccepted | AcEdJig::kNoZeroResponseAccepted |
    AcEdJig::kNoNegativeResponseAccepted | AcEdJig::kAccept3dCoordinates |
    AcEdJig::kAnyBlankTerminatesInput | AcEdJig::kInitialBlankTerminatesInput |
    AcEdJig::kAcceptOtherInputString);
static_assert(kInputControls == 3810);

int jigResult(AcEdJig::DragStatus status) {
  switch (status) {
    case AcEdJig::kNormal:
      return RTNORM;
    case AcEdJig::kKW1:
      return kJigKeyword;
    case AcEdJig::kCancel:
      return RTCAN;
    case AcEdJig::kNull:
      return RTNONE;
    default:
      return RTERROR;
  }
}

/// Reads what the input holds behind the keyword: 2 for a request, 1 for the request 0, -1 for
/// something else.
int readRequest(int& request) {
  ACHAR rest[256] = L"";
  acedGetString(1, L"", rest);
  if (rest[0] != L'.') return -1;
  request = _wtoi(rest + 1);
  return request != 0 ? 2 : 1;
}

}  // namespace

AcEdJig::DragStatus EntJig::sampler() {
  setSpecialCursorType(static_cast<CursorType>(cursor_));
  setUserInputControls(kInputControls);
  setKeywordList(kRequestKeyword);
  const DragStatus status = acquirePoint(point_);
  if (point_.distanceTo(LastJigPoint) <= kSmallestMove) {
    return status == kNormal ? kNoChange : status;
  }
  LastJigPoint = point_;
  return status;
}

Adesk::Boolean EntJig::update() {
  AcDbText* text = AcDbText::cast(entity_);
  if (text == nullptr) return true;
  text->setPosition(point_);
  text->setAlignmentPoint(point_);
  NotifyEntityEdited(text, CurrentDatabase());
  return true;
}

int JigPoint(const ACHAR* prompt, AcDbEntity* entity, AcGePoint3d& point, int cursor) {
  const std::unique_ptr<EntJig> jig(new (std::nothrow) EntJig(cursor, entity));
  if (jig == nullptr) {
    TraceError(L"JigPoint error new");
    return -1;
  }
  jig->setDispPrompt(L"%s", prompt);
  const AcEdJig::DragStatus status = jig->drag();
  if (status == AcEdJig::kNormal) point = jig->point();
  return jigResult(status);
}

int GetInsertPoint(const ACHAR* prompt, ads_point point, int& request, int cursor) {
  request = 0;
  AcGePoint3d world;
  switch (JigPoint(prompt, TextPreview, world, cursor)) {
    case RTNORM: {
      const ads_point given = {world.x, world.y, world.z};
      WorldToUcs(given, point);
      return 0;
    }
    case RTCAN:
      return 1;
    case kJigKeyword:
      return readRequest(request);
    default:
      return -1;
  }
}

}  // namespace kovra
