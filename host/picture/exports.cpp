#include "host/picture/pictures.h"

const kovra::host::PictureLibrary* kovraPictureLibrary() {
  using namespace kovra::host;
  static constexpr PictureLibrary kLibrary{plotPicture, pictureScreen, pictureDialog};
  return &kLibrary;
}
