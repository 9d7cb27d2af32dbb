#pragma once

#include <memory>
#include <vector>

#include "module/align/column_layout.h"
#include "module/align/text_anchor.h"

namespace kovra {

/// A column of texts of the drawing as one drawable. The texts are open for write; it closes them
/// at its end and so gives the drawing what was seen.
class CEntities : public AcDbEntity {
 public:
  /// @param distances along the column, one for each text
  /// @param fixedModes the alignment of all texts; null: each has its own
  CEntities(std::vector<double> distances, const AnchorModes* fixedModes);
  ~CEntities() override;

  void add(AcDbEntity* entity) { entities_.push_back(entity); }
  const std::vector<AcDbEntity*>& entities() const { return entities_; }

  /// Puts the anchor of the first text at the point, the others behind it along the first one's
  /// rotation, all at a height of 0, and shows them. World coordinates.
  void PlaceEntities(double x, double y);

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* context) override;

 private:
  std::vector<AcDbEntity*> entities_;
  std::vector<double> distances_;
  AnchorModes modes_;
  bool fixed_;
  double rotation_ = 0;  ///< radians
};

/// Drags a column of texts by the point that the user is asked for.
class CEntitiesJig : public AcEdJig {
 public:
  /// As CEntities.
  CEntitiesJig(std::vector<double> distances, const AnchorModes* fixedModes);

  /// Takes charge of a text that is open for write, in the order of the distances.
  void AddEntity(AcDbEntity* entity) { preview_->add(entity); }

  /// Asks for a point while the column follows the cursor.
  /// @return RTNORM with the point in world coordinates, else RTCAN
  int DragEntities(AcGePoint3d& point);

  DragStatus sampler() override;
  Adesk::Boolean update() override;
  AcDbEntity* entity() const override { return preview_.get(); }
  /// Appends the texts of the column, in its order.
  virtual void appendEntities(std::vector<AcDbEntity*>& entities) const;

 private:
  std::unique_ptr<CEntities> preview_;
  AcGePoint3d point_;  ///< last accepted place of the cursor
};

}  // namespace kovra
