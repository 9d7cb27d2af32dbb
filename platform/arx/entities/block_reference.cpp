#include "platform/arx/entities/block_reference.h"

#include <cmath>
#include <numbers>

#include "platform/arx/database/database.h"
#include "platform/arx/database/object_table.h"
#include "platform/arx/database/record_edit.h"
#include "platform/arx/entities/text.h"
#include "platform/arx/geometry/ocs.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace dxf = kovra::dxf;
using namespace kovra::arx;

ACRX_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, L"INSERT")

AcDbEntity* AcDbObjectIterator::entity(AcDb::OpenMode mode, bool openErased) {
  AcDbEntity* opened = nullptr;
  return acdbOpenObject(opened, objectId(), mode, openErased) == Acad::eOk ? opened : nullptr;
}

namespace {

constexpr Property kBlockName{kReferencePart, 2};
constexpr Property kPosition{kReferencePart, 10};
constexpr Property kScaleX{kReferencePart, 41};
constexpr Property kScaleY{kReferencePart, 42};
constexpr Property kScaleZ{kReferencePart, 43};
constexpr Property kRotation{kReferencePart, 50};
constexpr Property kNormal{kReferencePart, 210};

/// The attributes of one block reference in file order. Erased ones and steps backwards walk the
/// records behind the reference.
class AttributeIterator : public AcDbObjectIterator {
 public:
  AttributeIterator(AcDbDatabase& database, dxf::RecordIndex insert)
      : database_(database), insert_(insert) {
    start(true, true);
  }

  void start(bool atBeginning, bool skipErased) override {
    if (atBeginning && skipErased) {
      at_ = database_.structure().firstAttribute(insert_);
      return;
    }
    at_ = dxf::kNoRecord;
    const dxf::RecordStore& store = database_.store();
    const dxf::RecordIndex end = database_.structure().pastSubordinates(insert_);
    for (dxf::RecordIndex next = store.next(insert_); next != end; next = store.next(next)) {
      if (!isAttribute(next) || (skipErased && store.erased(next))) continue;
      at_ = next;
      if (atBeginning) return;
    }
  }

  bool done() const override { return at_ == dxf::kNoRecord; }

  void step(bool backwards, bool skipErased) override {
    if (done()) return;
    if (!backwards && skipErased) {
      at_ = database_.structure().nextAttribute(at_);
      return;
    }
    const dxf::RecordStore& store = database_.store();
    const dxf::RecordIndex end =
        backwards ? insert_ : database_.structure().pastSubordinates(insert_);
    do {
      at_ = backwards ? store.previous(at_) : store.next(at_);
    } while (at_ != end && (!isAttribute(at_) || (skipErased && store.erased(at_))));
    if (at_ == end) at_ = dxf::kNoRecord;
  }

  AcDbObjectId objectId() const override {
    return done() ? AcDbObjectId::kNull : database_.idOf(at_);
  }

 private:
  bool isAttribute(dxf::RecordIndex record) const {
    return database_.store().kind(record) == dxf::RecordKind::kAttrib;
  }

  AcDbDatabase& database_;
  dxf::RecordIndex insert_;
  dxf::RecordIndex at_ = dxf::kNoRecord;
};

/// For a reference that isn't in a database.
class NoAttributes : public AcDbObjectIterator {
 public:
  void start(bool, bool) override {}
  bool done() const override { return true; }
  void step(bool, bool) override {}
  AcDbObjectId objectId() const override { return AcDbObjectId::kNull; }
};

}  // namespace

AcDbBlockReference::AcDbBlockReference(Stored stored) : AcDbEntity(stored) {}

AcDbBlockReference::AcDbBlockReference() : AcDbEntity(Stored{}) {
  dxf::RecordDraft& draft = startGroups("INSERT");
  draft.appendMarker(kEntityPart);
  draft.appendText(8, std::string_view("0"));
  draft.appendMarker(kReferencePart);
  draft.appendText(2, std::string_view());
  draft.appendReal(10, 0);
  draft.appendReal(20, 0);
  draft.appendReal(30, 0);
}

AcDbObjectId AcDbBlockReference::blockTableRecord() const {
  if (database() == nullptr) return AcDbObjectId::kNull;
  const dxf::BlockNumber block =
      database()->structure().findBlock(cachedText(TextSlot::kName, kBlockName));
  return block == dxf::kNoBlock ? AcDbObjectId::kNull
                                : database()->idOf(database()->objects().blockObject(block));
}

AcGeVector3d AcDbBlockReference::normal() const {
  const std::optional<AcGePoint3d> normal = readPoint(groups(), kNormal);
  return normal && !normal->asVector().isZeroLength() ? normal->asVector() : AcGeVector3d(0, 0, 1);
}

AcGePoint3d AcDbBlockReference::position() const {
  return ocsToWcs(readPoint(groups(), kPosition).value_or(AcGePoint3d()), normal());
}

Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& point) {
  if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z))
    return Acad::eInvalidInput;
  return apply(
      [&](RecordEdit& edit) { return edit.setPoint(kPosition, wcsToOcs(point, normal())); });
}

double AcDbBlockReference::rotation() const {
  return normalizedAngle(readReal(groups(), kRotation, 0) * std::numbers::pi / 180);
}

Acad::ErrorStatus AcDbBlockReference::setRotation(double angle) {
  if (!std::isfinite(angle)) return Acad::eInvalidInput;
  if (normalizedAngle(angle) == rotation()) return canWrite() ? Acad::eOk : Acad::eNotOpenForWrite;
  return apply([&](RecordEdit& edit) { return edit.setReal(kRotation, degreesOf(angle), 0); });
}

AcGeScale3d AcDbBlockReference::scaleFactors() const {
  return {readReal(groups(), kScaleX, 1), readReal(groups(), kScaleY, 1),
          readReal(groups(), kScaleZ, 1)};
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const {
  const AcGeVector3d plane = normal();
  const AcGeScale3d factors = scaleFactors();
  AcGeMatrix3d scale;
  scale(0, 0) = factors.sx;
  scale(1, 1) = factors.sy;
  scale(2, 2) = factors.sz;
  AcGePoint3d base;
  if (database() != nullptr) {
    const AcDbObjectId block = blockTableRecord();
    if (!block.isNull()) base = database()->objects().blockOrigin(block.index());
  }
  const AcGePoint3d inPlane = readPoint(groups(), kPosition).value_or(AcGePoint3d());
  return ocsToWcs(plane) * AcGeMatrix3d::translation(inPlane.asVector()) *
         AcGeMatrix3d::rotation(rotation(), AcGeVector3d::kZAxis) * scale *
         AcGeMatrix3d::translation(-base.asVector());
}

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const {
  if (database() == nullptr) return new NoAttributes;
  return new AttributeIterator(*database(), recordIndex());
}

Acad::ErrorStatus AcDbBlockReference::openAttribute(AcDbAttribute*& attribute, AcDbObjectId id,
                                                    AcDb::OpenMode mode, bool openErased) const {
  return acdbOpenObject(attribute, id, mode, openErased);
}

Acad::ErrorStatus AcDbBlockReference::transformBy(const AcGeMatrix3d& matrix) {
  if (!canWrite()) return Acad::eNotOpenForWrite;
  const AcGeVector3d plane = normal();
  AcGeVector3d along =
      AcGeVector3d(std::cos(rotation()), std::sin(rotation()), 0).transformBy(ocsToWcs(plane));
  along.transformBy(matrix);
  const double factor = along.length();
  AcGeVector3d up = AcGeVector3d(plane).transformBy(matrix);
  // Motions and uniform scalings that keep the plane; anything else would need another normal.
  if (factor <= 0 || !up.normal().isEqualTo(plane.normal()) ||
      std::fabs(std::fabs(matrix.det()) - factor * factor * factor) > 1e-9 * factor ||
      matrix.det() < 0)
    return Acad::eNotApplicable;
  setPosition(position().transformBy(matrix));
  along.transformBy(wcsToOcs(plane));
  const double turned = normalizedAngle(std::atan2(along.y, along.x));
  if (std::fabs(turned - rotation()) > 1e-12) setRotation(turned);
  if (std::fabs(factor - 1) > 1e-12) {
    const AcGeScale3d scale = scaleFactors();
    apply([&](RecordEdit& edit) {
      edit.setReal(kScaleX, scale.sx * factor, 1);
      edit.setReal(kScaleY, scale.sy * factor, 1);
      return edit.setReal(kScaleZ, scale.sz * factor, 1);
    });
  }
  return Acad::eOk;
}
