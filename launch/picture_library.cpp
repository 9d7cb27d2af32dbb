#include "launch/picture_library.h"

#include "launch/program_library.h"
#include "platform/win/base/wide_text.h"

namespace kovra::launch {

Result<PictureForm> pictureForm(const std::filesystem::path& file) {
  const std::wstring end = win::fromUtf8(file.extension().string());
  if (win::equalNoCase(end, L".svg")) return PictureForm::kSvg;
  if (win::equalNoCase(end, L".png")) return PictureForm::kPng;
  return Error{ErrorKind::kInvalidInput, file.string() + ": a picture's name ends in .svg or .png"};
}

Result<PictureLibrary> loadPictureLibrary() {
  const auto library = loadProgramExport<decltype(kovraPictureLibrary)>(
      "kovra_picture.so", "kovraPictureLibrary", "no picture can be drawn");
  if (!library) return library.error();
  return *library.value()();
}

}  // namespace kovra::launch
