#include "module/textcmd/text_jig.h"

#include <algorithm>

#include "module/drawing/attachment.h"
#include "module/drawing/current_database.h"

namespace kovra {
TextJigEnt::TextJigEnt(std::span<AcDbText* const> texts, std::span<const AcGeVector3d> offsets) {
  const std::size_t count = std::min(texts.size(), offsets.size());
  for (std::size_t i = 0; i < count; ++i) {
    texts_.add(texts[i]);
    offsets_.add(offsets[i]);
  }
}

void TextJigEnt::moveTo(const AcGePoint3d& cursor) {
  AcDbDatabase* const database = CurrentDatabase();
  for (int i = 0; i < texts_.size(); ++i) {
    AcDbText* const text = texts_[i];
    if (text == nullptr) continue;
    const AcGePoint3d place = cursor + offsets_[i];
    if (IsPlacedByPosition(text->horizontalMode(), text->verticalMode())) {
      text->setPosition(place);
    } else {
      text->setAlignmentPoint(place);
      text->adjustAlignment(database);
    }
  }
}

Adesk::Boolean TextJigEnt::subWorldDraw(AcGiWorldDraw* context) {
  for (AcDbText* text : texts_) {
    if (text != nullptr) context->geometry().draw(text);
  }
  return true;
}

TextJig::TextJig(std::span<AcDbText* const> texts, std::span<const AcGeVector3d> offsets)
    : drawable_(texts, offsets) {}

AcEdJig::DragStatus TextJig::sampler() {
  setUserInputControls(kNullResponseAccepted);
  AcGePoint3d point;
  const DragStatus status = acquirePoint(point);
  if (status == kCancel || status == kNull) return status;
  if (point.isEqualTo(point_, AcGeContext::gTol)) return kNoChange;
  point_ = point;
  return status;
}

Adesk::Boolean TextJig::update() {
  drawable_.moveTo(point_);
  return true;
}

AcDbEntity* TextJig::entity() const {
  // The platform asks for an entity that it may change; it only shows this one.
  return &drawable_;
}

bool TextJig::appendTexts(std::vector<AcDbText*>& texts) const {
  texts.insert(texts.end(), drawable_.texts().begin(), drawable_.texts().end());
  return drawable_.texts().size() > 0;
}

bool RunTextJig(TextJig& jig, const ACHAR* prompt) {
  acutPrintf(L"\n%s", prompt);
  const AcEdJig::DragStatus status = jig.drag();
  return status != AcEdJig::kCancel && status != AcEdJig::kNull;
}

}  // namespace kovra
