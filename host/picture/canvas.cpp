#include "host/picture/canvas.h"

#include "host/picture/png_canvas.h"
#include "host/picture/svg_canvas.h"
#include "platform/dxf/atomic_file.h"

namespace kovra::host {

std::unique_ptr<Canvas> makeCanvas(PictureForm form, int width, int height, Rgb ground) {
  if (form == PictureForm::kSvg) return std::make_unique<SvgCanvas>(width, height, ground);
  return std::make_unique<PngCanvas>(width, height, ground);
}

Result<void> writePicture(const std::filesystem::path& file, Canvas& canvas) {
  const Result<std::string> bytes = canvas.finish();
  if (!bytes) return bytes.error();
  dxf::AtomicFile out;
  if (const Result<void> opened = out.open(file.string()); !opened) return opened;
  out.append(bytes.value());
  const auto written = out.commit(false);
  return written ? Result<void>() : written.error();
}

}  // namespace kovra::host
