#include <cmath>
#include <numbers>

#include "platform/arx/builtin_commands.h"
#include "platform/arx/documents.h"
#include "platform/arx/prompts.h"
#include "platform/arx/ucs.h"

namespace kovra::arx {
namespace {

/// Turns the UCS so that its X axis goes through a point and, if asked for, its Y side holds
/// another one; the points are in the UCS.
void alignUcs(AcApDocument& document) {
  const Reply onX = askPoint(L"Specify point on X-axis or <accept>: ", {}, AcGePoint3d());
  if (!onX || onX.point.asVector().isZeroLength()) return;
  const AcGeVector3d x = onX.point.asVector().normal();
  const AcGeMatrix3d toWorld = ucsToWcs(document);
  AcGeVector3d y = AcGeVector3d::kZAxis.crossProduct(x);
  if (y.isZeroLength()) y = AcGeVector3d::kYAxis;
  const Reply onPlane = askPoint(L"Specify point on the XY plane or <accept>: ", {}, AcGePoint3d());
  if (onPlane.status == RTCAN) return;
  const AcGeVector3d normal = x.crossProduct(onPlane ? onPlane.point.asVector() : y);
  const AcGeVector3d side =
      normal.isZeroLength() ? y.normal() : normal.normal().crossProduct(x).normal();
  setUcs(document, toWorld.translation().asPoint(), AcGeVector3d(x).transformBy(toWorld),
         AcGeVector3d(side).transformBy(toWorld));
}

void moveOrigin(AcApDocument& document, const AcGePoint3d& origin) {
  const AcGeMatrix3d toWorld = ucsToWcs(document);
  setUcs(document, AcGePoint3d(origin).transformBy(toWorld),
         AcGeVector3d(1, 0, 0).transformBy(toWorld), AcGeVector3d(0, 1, 0).transformBy(toWorld));
}

void askOrigin(AcApDocument& document) {
  const Reply origin = askPoint(L"Specify new origin point <0,0,0>: ", {});
  if (origin) moveOrigin(document, origin.point);
}

void turnAboutZ(AcApDocument& document) {
  const Reply degrees = askReal(L"Specify rotation angle about Z axis <90>: ", {});
  if (degrees.status == RTCAN) return;
  const double angle = (degrees ? degrees.real : 90) * std::numbers::pi / 180;
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  const AcGeMatrix3d toWorld = ucsToWcs(document);
  setUcs(document, toWorld.translation().asPoint(), AcGeVector3d(c, s, 0).transformBy(toWorld),
         AcGeVector3d(-s, c, 0).transformBy(toWorld));
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
  if (choice) {
    moveOrigin(document, choice.point);
    return alignUcs(document);
  }
  if (choice.text == L"Origin") return askOrigin(document);
  if (choice.text == L"Z") return turnAboutZ(document);
  setUcs(document, AcGePoint3d(), AcGeVector3d(1, 0, 0), AcGeVector3d(0, 1, 0));
}

}  // namespace kovra::arx
