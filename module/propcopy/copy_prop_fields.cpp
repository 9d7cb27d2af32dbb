#include "module/propcopy/copy_prop_fields.h"

#include "module/drawing/system_variables.h"
#include "module/frame/reporting.h"
#include "module/propcopy/alignment_codes.h"

namespace kovra {
namespace {

constexpr UINT kCurrentLayerName = 2731;

std::wstring layerOf(const CString& entry) {
  CString layer = entry.Left(static_cast<int>(kLayerNameLength));
  if (layer.CompareNoCase(ResourceText(kCurrentLayerName)) == 0) {
    CString current;
    if (GetVar(L"CLAYER", current) == 0) layer = current;
  }
  return layer.GetString();
}

}  // namespace

CopyPropFields::CopyPropFields(UINT templateId)
    : TemplateId(templateId), UseDimScale(templateId == kDrawingsTemplate) {}

TagPatterns TagPatternsOf(const CopyPropFields& fields) {
  CString tags = fields.Tags;
  switch (fields.TagMode) {
    case kNameTags:
      return splitTagList(L"NAME+");
    case kSenbanTags:
      return splitTagList(L"SENBAN+");
    case kListedTags:
      return splitTagList(tags.TrimRight().GetString());
    default:
      return {};
  }
}

PropertySettings PropertySettingsOf(const CopyPropFields& fields) {
  const auto number = [&fields](CopyProperty property, double& setting) {
    if (fields.Ticks[property]) setting = _wtof(fields.Values[property].GetString());
  };
  PropertySettings settings;
  if (fields.Ticks[kCopyLayer]) settings.Layer = layerOf(fields.Values[kCopyLayer]);
  number(kCopyHeight, settings.Height);
  number(kCopyWidthFactor, settings.WidthFactor);
  number(kCopyRotation, settings.Rotation);
  if (fields.PropertyCount > kCopyAlignment && fields.Ticks[kCopyAlignment]) {
    settings.Alignment = AlignmentCode(fields.AlignIndex);
  }
  return settings;
}

}  // namespace kovra
