#include "module/align/entities_jig.h"

#include <algorithm>

#include "module/drawing/current_database.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kPlacePrompt = 8189;

}  // namespace

CEntities::CEntities(std::vector<double> distances, const AnchorModes* fixedModes)
    : distances_(std::move(distances)),
      modes_(fixedModes != nullptr ? *fixedModes : AnchorModes()),
      fixed_(fixedModes != nullptr) {}

CEntities::~CEntities() {
  for (AcDbEntity* entity : entities_) entity->close();
}

void CEntities::PlaceEntities(double x, double y) {
  const AcDbDatabase* const database = CurrentDatabase();
  ColumnDirection along = DraggedDirection(rotation_);
  const std::size_t count = std::min(entities_.size(), distances_.size());
  for (std::size_t i = 0; i < count; ++i) {
    AcDbText* const text = AcDbText::cast(entities_[i]);
    if (text == nullptr) continue;
    if (i == 0) {
      rotation_ = text->rotation();
      along = DraggedDirection(rotation_);
    }
    if (!fixed_) modes_ = AnchorModesOf(*text);
    text->setVisibility(AcDb::kVisible, true);
    const AcGePoint3d anchor(x + along.x * distances_[i], y + along.y * distances_[i], 0);
    SetTextAnchor(*text, modes_, anchor, database);
  }
}

Adesk::Boolean CEntities::subWorldDraw(AcGiWorldDraw* context) {
  for (AcDbEntity* entity : entities_) entity->worldDraw(context);
  return true;
}

CEntitiesJig::CEntitiesJig(std::vector<double> distances, const AnchorModes* fixedModes)
    : preview_(std::make_unique<CEntities>(std::move(distances), fixedModes)) {}

int CEntitiesJig::DragEntities(AcGePoint3d& point) {
  setDispPrompt(L"\n%s", ResourceText(kPlacePrompt).GetString());
  if (drag() != kNormal) return RTCAN;
  point = point_;
  return RTNORM;
}

AcEdJig::DragStatus CEntitiesJig::sampler() {
  setUserInputControls(kNullResponseAccepted);
  AcGePoint3d point;
  const DragStatus status = acquirePoint(point);
  if (status == kCancel || status == kNull) return status;
  if (point.isEqualTo(point_, AcGeContext::gTol)) return kNoChange;
  point_ = point;
  return status;
}

Adesk::Boolean CEntitiesJig::update() {
  preview_->PlaceEntities(point_.x, point_.y);
  return true;
}

void CEntitiesJig::appendEntities(std::vector<AcDbEntity*>& entities) const {
  entities.insert(entities.end(), preview_->entities().begin(), preview_->entities().end());
}

}  // namespace kovra
