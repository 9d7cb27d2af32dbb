#pragma once

#include "module/drawing/text_groups.h"
#include "module/drawing/text_properties.h"

namespace kovra {

/// What a text is given, in the form of its groups.
struct TextChange {
  TextPropertySet checks = {};  ///< the properties that are to be changed
  CString layer;
  CString style;
  double height = 0;       ///< drawing units
  double widthFactor = 0;  ///< width in relation to the style's font
  double rotation = 0;     ///< radians
  TextModes modes;
};

/// @param values what the fields hold: rotation in degrees; a text that is no number counts as 0
/// @param attachIndex -1 stands for the first alignment
TextChange TextChangeOf(const TextPropertySet& checks, const TextValues& values, int attachIndex);

enum class ChangeResult {
  unchanged,  ///< the text is so already
  changed,
  refused  ///< by the drawing: a locked layer, a height that isn't above 0, a missing style
};

/// Gives a TEXT the properties that are ticked; the others, and groups that are equal already, stay
/// as they are. A text that gets an alignment keeps the place of its group 10.
ChangeResult ChangeEntity(const ads_name entity, const TextChange& change);

}  // namespace kovra
