#include "module/propedit/edit_text_property_pick.h"

#include "module/drawing/angles.h"
#include "module/drawing/auto_var.h"
#include "module/drawing/entity_pick.h"
#include "module/drawing/number_text.h"
#include "module/frame/reporting.h"
#include "module/propedit/mtext_attachment.h"
#include "module/propedit/open_object.h"

namespace kovra {
namespace {

constexpr UINT kPickAll = 2783;
constexpr UINT kWrongKind = 2784;

UINT promptOf(unsigned mask) {
  switch (mask) {
    case kLayerBit:
      return 2778;
    case kHeightBit:
      return 2779;
    case kWidthFactorBit:
      return 2780;
    case kRotationBit:
      return 2781;
    case kAlignmentBit:
      return 2782;
    default:
      return kPickAll;
  }
}

/// Whether an entity is a text of a kind that properties can be taken from; missed otherwise.
PickAnswer checkPicked(const ads_name entity, AcDbObjectId& id) {
  if (acdbGetObjectId(id, entity) != Acad::eOk) return PickAnswer::missed;
  const OpenObject object(id);
  if (object.get() == nullptr) return PickAnswer::missed;
  if (object.as<AcDbText>() || object.as<AcDbMText>()) return PickAnswer::picked;
  ProjectMessage(kWrongKind);
  return PickAnswer::missed;
}

PickAnswer pickOnce(const ACHAR* prompt, AcDbObjectId& id) {
  ads_name entity = {};
  const PickAnswer answer = PickNestedEntity(prompt, entity);
  return answer == PickAnswer::picked ? checkPicked(entity, id) : answer;
}

void takeRotation(TextPropertySet& set, double radians) {
  set.Rotation.set(radians, DecimalText(DegreesOf(radians)));
}

void takeLayer(TextPropertySet& set, const AcDbEntity& entity) {
  set.Layer = entity.layerName();
}

void readText(TextPropertySet& set, const AcDbText& text, unsigned mask) {
  if (mask & kLayerBit) takeLayer(set, text);
  if (mask & kHeightBit) set.Height.set(text.height());
  if (mask & kWidthFactorBit) set.WidthFactor.set(text.widthFactor());
  if (mask & kRotationBit) takeRotation(set, text.rotation());
  if (mask & kAlignmentBit) {
    set.takeHorizontalMode(text.horizontalMode());
    set.takeVerticalMode(text.verticalMode());
  }
}

void readMText(TextPropertySet& set, const AcDbMText& text, unsigned mask) {
  if (mask & kLayerBit) takeLayer(set, text);
  if (mask & kHeightBit) set.Height.set(text.textHeight());
  if (mask & kRotationBit) takeRotation(set, text.rotation());
  if (mask & kAlignmentBit) {
    ModesOfMTextAttachment(text.attachment(), set.HorizontalMode, set.VerticalMode);
  }
}

}  // namespace

void PickTextProperty(TextPropertySet& set, unsigned mask) {
  const CString prompt = ResourceText(promptOf(mask), kCommandLineLength);
  CAutoVar snap;
  snap.Set(L"SNAPMODE", 0);
  AcDbObjectId id;
  PickAnswer pick = PickAnswer::missed;
  while (pick == PickAnswer::missed) pick = pickOnce(prompt.GetString(), id);
  if (pick == PickAnswer::picked) ReadTextProperties(set, id, mask);
}

void ReadTextProperties(TextPropertySet& set, const AcDbObjectId& id, unsigned mask) {
  const OpenObject object(id);
  if (const AcDbText* text = object.as<AcDbText>()) {
    readText(set, *text, mask);
  } else if (const AcDbMText* paragraph = object.as<AcDbMText>()) {
    readMText(set, *paragraph, mask);
  }
}

}  // namespace kovra
