#pragma once

#include <span>
#include <vector>

#include "module/drawing/growing_list.h"
#include "module/frame/seam.h"

namespace kovra {

/// A batch of texts as one drawable. It borrows the texts, which are outside any database.
class TextJigEnt : public AcDbEntity {
 public:
  /// Pairs of a text and its offset from the cursor, in world coordinates; surplus entries of the
  /// longer list are left out.
  TextJigEnt(std::span<AcDbText* const> texts, std::span<const AcGeVector3d> offsets);

  const GrowingList<AcDbText*>& texts() const { return texts_; }
  /// Puts every text at the cursor plus its offset.
  void moveTo(const AcGePoint3d& cursor);

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* context) override;

 private:
  GrowingList<AcDbText*> texts_;
  GrowingList<AcGeVector3d> offsets_;
};

/// Drags a batch of texts by the point that the user is asked for. The texts stay their owner's,
/// and where the last place of the cursor left them.
class TextJig : public AcEdJig {
 public:
  /// As TextJigEnt.
  TextJig(std::span<AcDbText* const> texts, std::span<const AcGeVector3d> offsets);

  DragStatus sampler() override;
  Adesk::Boolean update() override;
  AcDbEntity* entity() const override;
  /// Appends the texts of the batch, in its order. False for an empty batch.
  virtual bool appendTexts(std::vector<AcDbText*>& texts) const;

 private:
  AcGePoint3d point_;  ///< last accepted place of the cursor, in world coordinates
  mutable TextJigEnt drawable_;
};

/// Asks for a point while the batch follows the cursor.
/// @return false for a cancelled drag and a plain Enter; then the texts haven't been placed
bool RunTextJig(TextJig& jig, const ACHAR* prompt);

}  // namespace kovra
