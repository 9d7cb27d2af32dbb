#include "host/picture_library.h"

#include "host/program_files.h"
#include "platform/win/loader.h"
#include "platform/win/wide_text.h"

namespace kovra::host {
namespace {

Error cannotDraw(const std::string& reason) {
  return {ErrorKind::kNotReadable, "no picture can be drawn: " + reason};
}

}  // namespace

Result<PictureForm> pictureForm(const std::filesystem::path& file) {
  const std::wstring end = win::fromUtf8(file.extension().string());
  if (win::equalNoCase(end, L".svg")) return PictureForm::kSvg;
  if (win::equalNoCase(end, L".png")) return PictureForm::kPng;
  return Error{ErrorKind::kInvalidInput, file.string() + ": a picture's name ends in .svg or .png"};
}

Result<PictureLibrary> loadPictureLibrary() {
  const Result<std::filesystem::path> file = findProgramFile("kovra_picture.so");
  if (!file) return file.error();
  const win::LoadResult loaded = win::loadLibrary(file.value());
  if (!loaded) return cannotDraw(loaded.error);
  const auto exported = reinterpret_cast<decltype(&kovraPictureLibrary)>(
      win::exportByName(loaded.module, "kovraPictureLibrary"));
  if (exported == nullptr) return cannotDraw(file.value().string() + " is another library");
  return *exported();
}

}  // namespace kovra::host
