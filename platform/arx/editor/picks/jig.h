// Drags that a command steers sample by sample.
#pragma once
#include <string>

#include "platform/arx/base/ads.h"
#include "platform/arx/geometry/geometry.h"

class AcDbDimData;
class AcDbDimDataPtrArray;
class AcDbEntity;

namespace kovra::arx {
class JigDrag;
}

/// A drag: the sampler is asked for each place of the cursor, each click and each typed input, and
/// update after each sample that changed something. The entity is only shown; nothing enters the
/// drawing.
class AcEdJig {
 public:
  enum DragStatus {
    kNoChange = -6,  ///< the sample is the one before; no update
    kCancel = -4,
    kOther = -3,  ///< text that is neither a point nor a keyword
    kNull = -1,   ///< a plain Enter
    kNormal = 0,
    kKW1 = 1,  ///< the first keyword of the list; the others follow
    kKW2,
    kKW3,
    kKW4,
    kKW5,
    kKW6,
    kKW7,
    kKW8,
    kKW9
  };
  enum UserInputControls {
    kGovernedByOrthoMode = 0x1,
    kNullResponseAccepted = 0x2,
    kDontEchoCancelForCtrlC = 0x4,
    kDontUpdateLastPoint = 0x8,
    kNoDwgLimitsChecking = 0x10,
    kNoZeroResponseAccepted = 0x20,
    kNoNegativeResponseAccepted = 0x40,
    kAccept3dCoordinates = 0x80,
    kAcceptMouseUpAsPoint = 0x100,
    kAnyBlankTerminatesInput = 0x200,
    kInitialBlankTerminatesInput = 0x400,
    kAcceptOtherInputString = 0x800
  };
  enum CursorType {
    kCrosshair = 0,
    kRectCursor = 1,
    kRubberBand = 2,
    kNotRotated = 3,
    kTargetBox = 4,
    kRotatedCrosshair = 5,
    kCrosshairNoRotate = 6,
    kInvisible = 7,
    kEntitySelect = 8
  };

  AcEdJig() = default;
  virtual ~AcEdJig();
  AcEdJig(const AcEdJig&) = delete;
  AcEdJig& operator=(const AcEdJig&) = delete;

  virtual DragStatus sampler();
  virtual Adesk::Boolean update();
  /// What is shown; not owned.
  virtual AcDbEntity* entity() const;
  virtual AcDbDimDataPtrArray* dimData(double scale);
  virtual Acad::ErrorStatus setDimValue(const AcDbDimData* data, double value);

  /// Runs the drag: kNormal for a point, kCancel, kNull, kOther or the keyword's number. Nothing is
  /// sampled before the first input.
  DragStatus drag();

  /// For the sampler: what the user did. The world point is set for a place only, else for where
  /// the cursor is known to be.
  DragStatus acquirePoint(AcGePoint3d& point);
  /// For the sampler: the text of the input.
  DragStatus acquireString(ACHAR* text, std::size_t length);

  /// In the platform's wide format.
  void setDispPrompt(const ACHAR* format, ...);
  const ACHAR* dispPrompt() const { return prompt_.c_str(); }
  /// As acedInitGet has them.
  void setKeywordList(const ACHAR* keywords);
  const ACHAR* keywordList() const { return keywords_.c_str(); }
  void setUserInputControls(UserInputControls controls) { controls_ = controls; }
  UserInputControls userInputControls() const { return static_cast<UserInputControls>(controls_); }
  void setSpecialCursorType(CursorType cursor) { cursor_ = cursor; }
  CursorType specialCursorType() const { return cursor_; }

 private:
  friend class kovra::arx::JigDrag;

  std::wstring prompt_;
  std::wstring keywords_;
  int controls_ = 0;
  CursorType cursor_ = kCrosshair;
  kovra::arx::JigDrag* drag_ = nullptr;
};

namespace kovra::arx {

/// The jig that is being dragged, for whoever paints it; null without one.
AcEdJig* activeJig();

}  // namespace kovra::arx
