#include "module/propedit/edit_text_property_apply.h"

#include <string>

#include "module/drawing/angles.h"
#include "module/drawing/auto_var.h"
#include "module/drawing/current_database.h"
#include "module/drawing/group_list.h"
#include "module/drawing/layer_snapshot.h"
#include "module/drawing/layers.h"
#include "module/drawing/regenerate.h"
#include "module/frame/companions/entity_attr_lib.h"
#include "module/frame/companions/ui_tools_lib.h"
#include "module/frame/narrow_text.h"
#include "module/frame/reporting.h"
#include "module/propedit/mtext_attachment.h"
#include "module/propedit/open_object.h"

namespace kovra {
namespace {

constexpr UINT kSelectPrompt = 7353;
constexpr int kSortCode = 12544;

/// A set as it counts in one drawing.
struct Application {
  const TextPropertySet& set;
  AcDbDatabase* database;  ///< null: no drawing is open
  AcDbObjectId layer;      ///< null: the drawing lacks the layer, or the set doesn't give one
};

double heightIn(const Application& application) {
  const double height = application.set.Height.value();
  const bool scaled = application.set.RefScale && application.database != nullptr;
  return scaled ? height * application.database->dimscale() : height;
}

bool applyLayer(AcDbEntity& entity, const Application& application) {
  return !application.set.has(kLayerBit) ||
         (!application.layer.isNull() &&
          entity.setLayer(application.layer, true, false) == Acad::eOk);
}

/// The text keeps its position, so at most its alignment point moves.
bool applyModes(AcDbText& text, const Application& application) {
  const auto horizontal = static_cast<AcDb::TextHorzMode>(application.set.HorizontalMode);
  const auto vertical = static_cast<AcDb::TextVertMode>(application.set.VerticalMode);
  if (text.horizontalMode() == horizontal && text.verticalMode() == vertical) return true;
  const AcGePoint3d place = text.position();
  if (text.setHorizontalMode(horizontal) != Acad::eOk) return false;
  if (text.setVerticalMode(vertical) != Acad::eOk) return false;
  NotifyEntityEdited(&text, application.database);
  return text.transformBy(AcGeMatrix3d::translation(place - text.position())) == Acad::eOk;
}

bool applyToText(AcDbText& text, const Application& application) {
  const TextPropertySet& set = application.set;
  if (!applyLayer(text, application)) return false;
  if (set.has(kHeightBit) && text.setHeight(heightIn(application)) != Acad::eOk) return false;
  if (set.has(kWidthFactorBit) && text.setWidthFactor(set.WidthFactor.value()) != Acad::eOk) {
    return false;
  }
  if (set.has(kRotationBit) && text.setRotation(set.Rotation.value() * kPi / 180.0) != Acad::eOk) {
    return false;
  }
  return !set.has(kAlignmentBit) || applyModes(text, application);
}

bool applyToMText(AcDbMText& text, const Application& application) {
  const TextPropertySet& set = application.set;
  if (!applyLayer(text, application)) return false;
  if (set.has(kHeightBit) && text.setTextHeight(heightIn(application)) != Acad::eOk) return false;
  if (set.has(kRotationBit) && text.setRotation(set.Rotation.value() * kPi / 180.0) != Acad::eOk) {
    return false;
  }
  if (!set.has(kAlignmentBit)) return true;
  const int attachment = MTextAttachmentOf(set.HorizontalMode, set.VerticalMode);
  if (attachment != 0 && attachment != text.attachment()) ChangeMTextAttachment(text, attachment);
  return true;
}

void applyToObject(const AcDbObjectId& id, const Application& application) {
  const OpenObject object(id);
  if (AcDbText* text = object.as<AcDbText>()) {
    if (text->upgradeOpen() == Acad::eOk) applyToText(*text, application);
  } else if (AcDbMText* paragraph = object.as<AcDbMText>()) {
    if (paragraph->upgradeOpen() == Acad::eOk) applyToMText(*paragraph, application);
  }
}

void regenerate() {
  CAutoVar echo;
  echo.Set(L"CMDECHO", 0);
  RegenerateDrawing();
}

void applyToObjects(const AcDbObjectIdArray& ids, const Application& application) {
  LayerSnapshot layers;
  layers.Capture(application.database);
  layers.UnlockAll();
  for (const AcDbObjectId& id : ids) applyToObject(id, application);
  layers.Restore();
  regenerate();
}

}  // namespace

void ApplyLoop(const TextPropertySet& set) {
  Application application{set, CurrentDatabase(), AcDbObjectId()};
  if (set.has(kLayerBit)) GLayerId(set.Layer.GetString(), application.layer);
  const std::string prompt = NarrowText(ResourceText(kSelectPrompt, kCommandLineLength));
  const GroupList filter(acutBuildList(RTDXF0, L"TEXT,MTEXT,ATTRIB", RTNONE));
  CAutoVar snap;
  CAutoVar objectSnap;
  snap.Set(L"SNAPMODE", 0);
  objectSnap.Set(L"OSMODE", 0);
  AcDbObjectIdArray ids;
  while (SelectObjectsSorted(prompt.c_str(), ids, filter.get(), kSortCode) == RTNORM) {
    applyToObjects(ids, application);
    ids.removeAll();
  }
}

void ChangeMTextAttachment(AcDbMText& text, int attachment) {
  AttachmentShift shift;
  if (!FindAttachmentShift(text.attachment(), attachment, shift)) return;
  const AcGeVector3d along = text.direction();
  const AcGeVector3d down = along.crossProduct(text.normal());
  const AcGePoint3d place = text.location() + along * (text.actualWidth() * shift.across) +
                            down * (text.actualHeight() * shift.down);
  text.setAttachment(static_cast<AcDbMText::AttachmentPoint>(attachment));
  text.setLocation(place);
}

}  // namespace kovra
