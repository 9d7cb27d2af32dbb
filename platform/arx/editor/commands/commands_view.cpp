#include "platform/arx/editor/commands/builtin_commands.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/documents/ucs.h"
#include "platform/arx/editor/prompts/prompts.h"
#include "platform/arx/geometry/typed_point.h"

namespace kovra::arx {
namespace {

/// Sets a UCS from what was given in the present one.
void setRelativeUcs(AcApDocument& document, const AcGePoint3d& origin, AcGeVector3d x,
                    AcGeVector3d y) {
  const AcGeMatrix3d toWorld = ucsToWcs(document);
  AcGePoint3d worldOrigin = origin;
  setUcs(document, worldOrigin.transformBy(toWorld), x.transformBy(toWorld),
         y.transformBy(toWorld));
}

void moveOrigin(AcApDocument& document, const AcGePoint3d& origin) {
  setRelativeUcs(document, origin, AcGeVector3d(1, 0, 0), AcGeVector3d(0, 1, 0));
}

/// A new origin, and if they are given a point on the X axis and one on the side of the Y axis.
void askAxes(AcApDocument& document, const AcGePoint3d& origin) {
  const Reply onX = askPoint(L"Specify point on X-axis or <accept>: ", {}, origin);
  if (onX.status == RTCAN) return;
  if (!onX || (onX.point - origin).isZeroLength()) return moveOrigin(document, origin);
  const AcGeVector3d x = (onX.point - origin).normal();
  const Reply onPlane = askPoint(L"Specify point on the XY plane or <accept>: ", {}, origin);
  if (onPlane.status == RTCAN) return;
  AcGeVector3d z = x.crossProduct(onPlane ? onPlane.point - origin : AcGeVector3d());
  if (z.isZeroLength()) z = AcGeVector3d(0, 0, 1) - x * x.z;
  if (z.isZeroLength()) z = AcGeVector3d(1, 0, 0);
  setRelativeUcs(document, origin, x, z.normal().crossProduct(x));
}

void askOrigin(AcApDocument& document) {
  const Reply origin = askPoint(L"Specify new origin point <0,0,0>: ", {});
  if (origin) moveOrigin(document, origin.point);
}

void turnAboutZ(AcApDocument& document) {
  const Reply degrees = askReal(L"Specify rotation angle about Z axis <90>: ", {});
  if (degrees.status == RTCAN) return;
  const AcGeVector3d x = directionOf(degrees ? degrees.real : 90);
  setRelativeUcs(document, AcGePoint3d(), x, AcGeVector3d(-x.y, x.x, 0));
}

}  // namespace

void regenCommand(AcApDocument&) {
  showMessage(L"Regenerating model.");
}

void ucsCommand(AcApDocument& document) {
  const bool world = ucsToWcs(document).isEqualTo(AcGeMatrix3d());
  showMessage(std::wstring(L"Current ucs name:  ") + (world ? L"*WORLD*" : L"*NO NAME*"));
  const Reply choice = askPoint(L"Specify origin of UCS or [Origin/World/Z] <World>: ",
                                {0, KeywordList(L"Origin World Z")});
  if (choice.status == RTCAN) return;
  if (choice) return askAxes(document, choice.point);
  if (choice.text == L"Origin") return askOrigin(document);
  if (choice.text == L"Z") return turnAboutZ(document);
  setUcs(document, AcGePoint3d(), AcGeVector3d(1, 0, 0), AcGeVector3d(0, 1, 0));
}

}  // namespace kovra::arx
