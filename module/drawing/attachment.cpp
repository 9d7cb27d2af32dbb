#include "module/drawing/attachment.h"

#include <algorithm>

namespace kovra {
namespace {

constexpr int kAlignedMode = 3;
constexpr int kMiddleMode = 4;
constexpr int kFitMode = 5;
constexpr int kTopMode = 3;

constexpr int kMiddleIndex = 3;
constexpr int kFirstBoxIndex = 4;

constexpr int kFirstBaseLineCode = 10;
constexpr int kMiddleCode = 14;
constexpr int kBottomCenterCode = 8;

}  // namespace

int AttachIndex(int code) {
  const auto place = std::find(AttachCodes.begin(), AttachCodes.end(), code);
  return place != AttachCodes.end() ? static_cast<int>(place - AttachCodes.begin()) : -1;
}

int AttachIndexToModes(int index, int& horizontal, int& vertical) {
  horizontal = 0;
  vertical = 0;
  if (index < 0 || index >= kAttachments) return -1;
  if (index < kMiddleIndex) {
    horizontal = index;
  } else if (index == kMiddleIndex) {
    horizontal = kMiddleMode;
  } else {
    horizontal = (index - kFirstBoxIndex) % 3;
    vertical = kTopMode - (index - kFirstBoxIndex) / 3;
  }
  return 0;
}

int ModesToAttachIndex(int horizontal, int vertical) {
  for (int index = 0; index < kAttachments; ++index) {
    int indexHorizontal = 0;
    int indexVertical = 0;
    AttachIndexToModes(index, indexHorizontal, indexVertical);
    if (indexHorizontal == horizontal && indexVertical == vertical) return index;
  }
  return -1;
}

int NearestAttachIndex(int horizontal, int vertical) {
  if (vertical <= 0) return ModesToAttachIndex(horizontal, vertical);
  const int index = horizontal - 3 * vertical + kAttachments;
  return index >= 0 && index < kAttachments ? index : -1;
}

int ModesToAttachCode(int horizontal, int vertical) {
  if (horizontal < 0 || horizontal > kFitMode) return -1;
  if (vertical < 0 || vertical > kTopMode) return -2;
  if (horizontal == kAlignedMode || horizontal == kFitMode) return horizontal + kFirstBaseLineCode;
  if (horizontal < kAlignedMode) return horizontal - 3 * vertical + kFirstBaseLineCode;
  // A middle text in a row of the box counts as the center of that row.
  return vertical == 0 ? kMiddleCode : kBottomCenterCode + 3 - 3 * vertical;
}

bool IsPlacedByPosition(int horizontal, int vertical) {
  return vertical == 0 && (horizontal == 0 || horizontal == kAlignedMode || horizontal == kFitMode);
}

}  // namespace kovra
