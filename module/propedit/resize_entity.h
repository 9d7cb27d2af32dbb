#pragma once

#include "module/drawing/text_groups.h"
#include "module/frame/seam.h"

namespace kovra {

/// The text or attribute that is resized, as it was when it was selected.
struct ResizeEntity {
  ads_name name = {};
  TextKind EntityKind = TextKind::other;  ///< a text, an attribute; other: none is selected
  AcGePoint3d OldPosition;                ///< world
  AcGePoint3d OldAlignmentPoint;          ///< world
  bool LeftAligned = true;                ///< by both modes: its position fixes it
  double OldHeight = -1.0;                ///< drawing units

  bool isSelected() const { return EntityKind != TextKind::other; }
  /// Null when the entity is gone, or its drawing.
  AcDbObjectId id() const;
};

/// Reads a text or an attribute. False for anything else; `entity` is none then.
bool ReadResizeEntity(const ads_name name, ResizeEntity& entity);

/// Lets the user select a text or an attribute on a layer that isn't locked.
/// @return false when the user has cancelled, also with an empty answer
bool SelectResizeEntity(ResizeEntity& entity);

/// The implied selection, if it is one text on a layer that isn't locked. False otherwise.
bool TakePreselectedText(ads_name name);

/// Shows that the entity is the one, or no more. Nothing happens without one.
void HighlightResizeEntity(const ResizeEntity& entity, bool on);

/// Height, position and alignment point as they were when the entity was selected. Nothing happens
/// to an entity that can't be opened for writing.
void RestoreResizeEntity(const ResizeEntity& entity);

enum class HeightChange {
  done,
  invalid,  ///< the text is no height
  refused,  ///< the entity can't be changed, or there is none
};

/// Gives the entity the height that the text says. Nothing changes when the text is how a field
/// shows the height that it has: what a drawing holds may be finer.
HeightChange SetResizeHeight(const ResizeEntity& entity, const CString& height);

}  // namespace kovra
