#include "platform/arx/editor/documents/ucs.h"

#include "platform/arx/database/database.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/entities/record_geometry.h"
#include "platform/arx/geometry/ocs.h"
#include "platform/arx/lists/entity_lists.h"
#include "platform/dxf/structure.h"

namespace kovra::arx {
namespace {

/// Header variables of the model space's or the paper space's UCS.
struct UcsNames {
  const char* origin;
  const char* xAxis;
  const char* yAxis;
};

const UcsNames& ucsNames(const AcDbDatabase& database) {
  static constexpr UcsNames kModel{"$UCSORG", "$UCSXDIR", "$UCSYDIR"};
  static constexpr UcsNames kPaper{"$PUCSORG", "$PUCSXDIR", "$PUCSYDIR"};
  return database.currentSpaceId() == database.modelSpaceId() ? kModel : kPaper;
}

AcGePoint3d headerPoint(const AcDbDatabase& database, const char* name, const AcGePoint3d& other) {
  const std::optional<HeaderValue> value = database.headerValue(name);
  const AcGePoint3d* point = value ? std::get_if<AcGePoint3d>(&*value) : nullptr;
  return point != nullptr ? *point : other;
}

/// Sets a point unless a drawing without the variable means the same.
void setHeaderPoint(AcDbDatabase& database, const char* name, const AcGePoint3d& value,
                    const AcGePoint3d& other) {
  if (!database.headerValue(name) && value.isEqualTo(other)) return;
  database.setHeaderValue(name, value);
}

constexpr AcGePoint3d kXPoint(1, 0, 0);
constexpr AcGePoint3d kYPoint(0, 1, 0);

AcGeVector3d ucsAxis(const AcDbDatabase& database, const char* UcsNames::*name,
                     const AcGePoint3d& other) {
  return headerPoint(database, ucsNames(database).*name, other).asVector().normal();
}

}  // namespace

}  // namespace kovra::arx

AcGeVector3d AcDbDatabase::ucsxdir() const {
  return kovra::arx::ucsAxis(*this, &kovra::arx::UcsNames::xAxis, kovra::arx::kXPoint);
}

AcGeVector3d AcDbDatabase::ucsydir() const {
  return kovra::arx::ucsAxis(*this, &kovra::arx::UcsNames::yAxis, kovra::arx::kYPoint);
}

namespace kovra::arx {

namespace {

AcGeMatrix3d matrixOfUcs(const AcDbDatabase& database) {
  const AcGePoint3d origin = headerPoint(database, ucsNames(database).origin, AcGePoint3d());
  const AcGeVector3d x = database.ucsxdir();
  const AcGeVector3d y = database.ucsydir();
  const AcGeVector3d z = x.crossProduct(y);
  if (z.isZeroLength()) return AcGeMatrix3d();
  AcGeMatrix3d matrix;
  matrix.setCoordSystem(origin, x, z.normal().crossProduct(x), z.normal());
  return matrix;
}

/// Made again when the header, which also says which space is the current one, has changed.
const UcsMatrices& ucsMatrices(const AcApDocument& document) {
  const AcDbDatabase& database = *document.database();
  const dxf::RecordIndex record = database.structure().headerRecord();
  dxf::RecordState header;
  if (record != dxf::kNoRecord) header = database.store().state(record);
  UcsMatrices& matrices = document.session().ucs;
  const bool same = matrices.known && matrices.header.overlay == header.overlay &&
                    matrices.header.erased == header.erased;
  if (same) return matrices;
  matrices.known = true;
  matrices.header = header;
  matrices.toWorld = matrixOfUcs(database);
  matrices.fromWorld = matrices.toWorld.inverse();
  return matrices;
}

}  // namespace

AcGeMatrix3d ucsToWcs(const AcApDocument& document) {
  return ucsMatrices(document).toWorld;
}

AcGeMatrix3d wcsToUcs(const AcApDocument& document) {
  return ucsMatrices(document).fromWorld;
}

AcGePoint3d toWorld(const AcApDocument& document, const AcGePoint3d& ucsPoint) {
  AcGePoint3d point = ucsPoint;
  return point.transformBy(ucsMatrices(document).toWorld);
}

AcGePoint3d toUcs(const AcApDocument& document, const AcGePoint3d& worldPoint) {
  AcGePoint3d point = worldPoint;
  return point.transformBy(ucsMatrices(document).fromWorld);
}

void setUcs(AcApDocument& document, const AcGePoint3d& origin, const AcGeVector3d& xAxis,
            const AcGeVector3d& yAxis) {
  AcDbDatabase& database = *document.database();
  const UcsNames& names = ucsNames(database);
  setHeaderPoint(database, names.origin, origin, AcGePoint3d());
  setHeaderPoint(database, names.xAxis, xAxis.asPoint(), kXPoint);
  setHeaderPoint(database, names.yAxis, yAxis.asPoint(), kYPoint);
}

namespace {

/// The coordinate system that an argument of acedTrans names, as a matrix to the world.
bool systemToWorld(const AcApDocument& document, const resbuf* system, AcGeMatrix3d& matrix) {
  if (system == nullptr) return false;
  matrix.setToIdentity();
  switch (system->restype) {
    case RTSHORT:
      if (system->resval.rint == 1) matrix = ucsToWcs(document);
      return system->resval.rint >= 0 && system->resval.rint <= 2;
    case RT3DPOINT:
    case RTPOINT: {
      const double* normal = system->resval.rpoint;
      matrix = ocsToWcs(AcGeVector3d(normal[0], normal[1], normal[2]));
      return true;
    }
    case RTENAME: {
      AcDbObjectId id;
      if (acdbGetObjectId(id, system->resval.rlname) != Acad::eOk) return false;
      matrix = ocsToWcs(entityNormal(id));
      return true;
    }
    default:
      return false;
  }
}

bool convert(const AcGeMatrix3d& matrix, const ads_point point, ads_point result, bool vector) {
  AcGePoint3d moved(point[0], point[1], point[2]);
  if (vector)
    moved = moved.asVector().transformBy(matrix).asPoint();
  else
    moved.transformBy(matrix);
  result[0] = moved.x;
  result[1] = moved.y;
  result[2] = moved.z;
  return true;
}

}  // namespace
}  // namespace kovra::arx

int acedTrans(const ads_point point, const resbuf* from, const resbuf* to, int displacement,
              ads_point result) {
  const AcApDocument* document = kovra::arx::DocumentList::instance().current();
  AcGeMatrix3d source;
  AcGeMatrix3d target;
  if (document == nullptr || point == nullptr || result == nullptr ||
      !kovra::arx::systemToWorld(*document, from, source) ||
      !kovra::arx::systemToWorld(*document, to, target))
    return RTERROR;
  kovra::arx::convert(target.inverse() * source, point, result, displacement != 0);
  return RTNORM;
}

bool acdbUcs2Wcs(const ads_point point, ads_point result, bool vector) {
  const AcApDocument* document = kovra::arx::DocumentList::instance().current();
  return document != nullptr &&
         kovra::arx::convert(kovra::arx::ucsToWcs(*document), point, result, vector);
}

bool acdbWcs2Ucs(const ads_point point, ads_point result, bool vector) {
  const AcApDocument* document = kovra::arx::DocumentList::instance().current();
  return document != nullptr &&
         kovra::arx::convert(kovra::arx::wcsToUcs(*document), point, result, vector);
}
