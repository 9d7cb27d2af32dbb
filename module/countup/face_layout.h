#pragma once

namespace kovra {

/// Where a button's icon and caption lie, in pixels from its upper left corner.
struct FaceLayout {
  int iconLeft;
  int iconTop;
  int captionTop;
};

/// Centres the icon, together with the caption beneath it if there is one (a height above 0).
FaceLayout layOutFace(int width, int height, int iconSize, int captionHeight);

}  // namespace kovra
