#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// What the cursor looks like while a point is asked for.
inline constexpr int kCrosshairCursor = 0;
inline constexpr int kEntitySelectCursor = 8;

/// What JigPoint gives when the keyword of a dialog's request was typed.
inline constexpr int kJigKeyword = -5005;

/// The text that the running Text command places next, outside any database; null while none runs.
/// The command owns it.
extern AcDbText* TextPreview;

/// Last place, in world coordinates, that any EntJig accepted; kept until the library is unloaded.
extern AcGePoint3d LastJigPoint;

/// Drags one entity, which stays its owner's and may be null; texts alone follow the cursor.
class EntJig : public AcEdJig {
 public:
  EntJig(int cursor, AcDbEntity* entity) : cursor_(cursor), entity_(entity) {}

  DragStatus sampler() override;
  Adesk::Boolean update() override;
  AcDbEntity* entity() const override { return entity_; }

  /// The last acquired point, in world coordinates.
  const AcGePoint3d& point() const { return point_; }

 private:
  int cursor_;
  AcDbEntity* entity_;
  AcGePoint3d point_;
};

/// Asks for a point while an entity, or null, follows the cursor. The entity stays where the last
/// place of the cursor left it.
/// @param point in world coordinates, set for RTNORM only
/// @return RTNORM; kJigKeyword for the keyword "_."; RTCAN; RTNONE for a plain Enter; RTERROR for
///         other input; -1 when the jig can't be made
int JigPoint(const ACHAR* prompt, AcDbEntity* entity, AcGePoint3d& point, int cursor);

/// Asks for a point while TextPreview follows the cursor. Dialogs ask for something else at this
/// prompt by typing the keyword, a point and a number ("_. .3").
/// @param point in coordinates of the UCS, set for the result 0 only
/// @param request number of a dialog's request, 0 without one
/// @return 0 a point; 1 cancel, or the request 0; 2 another request; -1 anything else
int GetInsertPoint(const ACHAR* prompt, ads_point point, int& request, int cursor);

}  // namespace kovra
