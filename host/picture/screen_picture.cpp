#include "host/picture/dialog_draw.h"
#include "host/picture/picture_draw.h"
#include "host/picture/pictures.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/entity.h"
#include "platform/arx/database/entity_order.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/documents/view.h"
#include "platform/arx/editor/picks/jig.h"
#include "platform/win/base/interaction.h"
#include "platform/win/desktop/desktop.h"
#include "platform/win/windows/window.h"

namespace kovra::host {
namespace {

void widen(RECT& box, const RECT& other) {
  box.left = std::min(box.left, other.left);
  box.top = std::min(box.top, other.top);
  box.right = std::max(box.right, other.right);
  box.bottom = std::max(box.bottom, other.bottom);
}

/// The current drawing in its window, with the preview of a running drag.
void drawDrawing(Canvas& canvas, Glyphs& glyphs, AcApDocument& document, const Bounds& place) {
  const arx::View view = arx::currentView(document);
  const double unit = view.unitsPerPixel();
  Page page;
  page.scale = 1 / unit;
  page.width = static_cast<int>(place.right);
  page.height = static_cast<int>(place.bottom);
  const double left = view.center.x - arx::windowSize().width * unit / 2;
  const double bottom = view.center.y - arx::windowSize().height * unit / 2;
  page.low = {left - place.left * unit, bottom, 0};
  PictureDraw draw(canvas, glyphs, page, Ground::kDark);
  canvas.beginClip(place);
  const arx::PlotGaps gaps =
      arx::plotSpace(*document.database(), arx::currentSpace(*document.database()), draw);
  if (!gaps.inPart.empty()) {
    win::interaction().freshLine();
    win::interaction().print("Drawn in part: " + gaps.inPart + '\n');
  }
  if (const AcEdJig* jig = arx::activeJig(); jig != nullptr && jig->entity() != nullptr)
    jig->entity()->worldDraw(&draw);
  canvas.endClip();
}

}  // namespace

Result<void> pictureScreen(const std::filesystem::path& file, PictureForm form) {
  const std::vector<HWND> dialogs = dialogsToDraw();
  const RECT window = win::screenPlace(win::drawingWindow());
  RECT all = window;
  for (const HWND dialog : dialogs) widen(all, win::screenPlace(dialog));
  const auto canvas = makeCanvas(form, win::widthOf(all), win::heightOf(all), {171, 171, 171});
  Glyphs glyphs;
  const Bounds place{
      static_cast<double>(window.left - all.left), static_cast<double>(window.top - all.top),
      static_cast<double>(window.right - all.left), static_cast<double>(window.bottom - all.top)};
  Path ground;
  ground.box(place.left, place.top, place.right, place.bottom);
  canvas->fill(ground, groundColor(Ground::kDark));
  if (AcApDocument* document = acDocManagerPtr()->curDocument())
    drawDrawing(*canvas, glyphs, *document, place);
  DialogDraw draw(*canvas, glyphs, {all.left, all.top});
  for (const HWND dialog : dialogs) draw.dialog(dialog);
  return writePicture(file, *canvas);
}

Result<void> pictureDialog(const std::filesystem::path& file, PictureForm form) {
  const std::vector<HWND> dialogs = dialogsToDraw();
  if (dialogs.empty()) return Error{ErrorKind::kInvalidInput, "no dialog is open"};
  const HWND dialog = dialogs.back();
  const RECT place = win::screenPlace(dialog);
  const auto canvas = makeCanvas(form, win::widthOf(place), win::heightOf(place), {});
  Glyphs glyphs;
  DialogDraw(*canvas, glyphs, {place.left, place.top}).dialog(dialog);
  return writePicture(file, *canvas);
}

}  // namespace kovra::host
