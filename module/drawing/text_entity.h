#pragma once

#include <vector>

#include "module/drawing/group_list.h"

namespace kovra {

/// What a new text takes from the drawing.
struct TextCommonProps {
  int color = 256;         ///< color number, 0 by block, 256 by layer
  ACHAR layer[256] = L"";  ///< layer name
};

/// The form of a new text.
struct TextGeometry {
  double height = 0;       ///< drawing units
  double widthFactor = 1;  ///< width in relation to the style's font
  double rotation = 0;     ///< radians
  int attachment = 0;      ///< attachment index, 0 to 12
};

/// Makes a TEXT in the current space; the point is its insertion and its alignment point.
/// @return 0 with the new entity's name; -1 the list can't be built, -2 the entity wasn't made or
///         can't be found, -3 the attachment index is outside 0 to 12
int AddText(const TextCommonProps& properties, const TextGeometry& geometry, const ACHAR* style,
            const ACHAR* value, const ads_point point, ads_name entity);

/// A TEXT that copies are made of. It is read once, and the list for its copies is built once; the
/// copies of a large pattern so cost little more than what differs from copy to copy.
class TextSource {
 public:
  /// Any name will do, and stands for its text where one is asked for; copies can be made of a text
  /// only.
  TextSource(const ads_name text);

  /// The value, group 1; empty when the entity is no TEXT or has none.
  const CString& value() const { return value_; }

 private:
  friend int CopyTextEntity(const TextSource& source, ads_name entity, const ACHAR* value,
                            double offsetX, double offsetY);

  /// A point of the list, and where it lies in the source.
  struct Place {
    resbuf* element;
    ads_point from;
  };

  CString value_;
  GroupList copy_;  ///< what acdbEntMake gets; each copy sets its value and its points
  std::vector<Place> places_;
};

/// Makes a TEXT in the current space with the properties of `source`, another value, and both of
/// its points displaced in X and Y.
/// @return non-zero when the new entity exists
int CopyTextEntity(const TextSource& source, ads_name entity, const ACHAR* value, double offsetX,
                   double offsetY);

}  // namespace kovra
