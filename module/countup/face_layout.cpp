#include "module/countup/face_layout.h"

namespace kovra {

FaceLayout layOutFace(int width, int height, int iconSize, int captionHeight) {
  constexpr int kGap = 2;
  const int below = captionHeight > 0 ? kGap + captionHeight : 0;
  const int top = (height - iconSize - below) / 2;
  return {(width - iconSize) / 2, top, top + iconSize + kGap};
}

}  // namespace kovra
