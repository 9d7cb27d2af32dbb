#include "host/picture/pictures.h"

const kovra::launch::PictureLibrary* kovraPictureLibrary() {
  using namespace kovra;
  using namespace kovra::host;
  static constexpr launch::PictureLibrary kLibrary{plotPicture, pictureScreen, pictureDialog};
  return &kLibrary;
}
