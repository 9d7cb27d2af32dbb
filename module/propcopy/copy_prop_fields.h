#pragma once

#include <array>

#include "module/frame/seam.h"
#include "module/propcopy/property_settings.h"
#include "module/propcopy/tag_patterns.h"

namespace kovra {

/// The property copy dialog in its three forms: up to data version "11.0", up to "12.0", and from
/// there on.
inline constexpr UINT kFourPropertiesTemplate = 530;
inline constexpr UINT kFivePropertiesTemplate = 533;
inline constexpr UINT kDrawingsTemplate = 535;

/// Places in CopyPropFields::Ticks and Values.
enum CopyProperty {
  kCopyLayer,
  kCopyHeight,
  kCopyWidthFactor,
  kCopyRotation,
  kCopyAlignment,
  kCopyProperties
};

/// Values of CopyPropFields::TagMode.
enum TagMode { kNoTags = -1, kNameTags, kSenbanTags, kListedTags };

/// Values of CopyPropFields::Scope.
enum CopyScope { kSelectionScope, kDrawingScope, kChosenDrawingsScope, kProjectScope };

/// What the property copy dialog gives back.
struct CopyPropFields {
  explicit CopyPropFields(UINT templateId);

  UINT TemplateId;
  int PropertyCount = kCopyAlignment;  ///< properties that the template offers
  int TagMode = kNameTags;
  CString Tags;  ///< for kListedTags: patterns with commas between them
  std::array<bool, kCopyProperties> Ticks = {};
  std::array<CString, kCopyProperties> Values;  ///< as the combo boxes show them
  int AlignIndex = 0;                           ///< into AlignmentCodeTable; -1: nothing chosen
  bool UseDimScale;                             ///< the height times the dimension scale
  int Scope = kSelectionScope;
  CStringArray PresetDrawings;  ///< for kChosenDrawingsScope; empty: the user is asked
};

/// The tags that the fields mean.
TagPatterns TagPatternsOf(const CopyPropFields& fields);

/// The properties that the fields set; those without a tick stay as they are. The entry for the
/// current layer stands for the layer that is current now.
PropertySettings PropertySettingsOf(const CopyPropFields& fields);

}  // namespace kovra
