#include "module/propedit/mtext_attachment.h"

namespace kovra {
namespace {

constexpr int kColumns = 3;
constexpr int kAttachments = 9;
constexpr int kTopMode = 3;
constexpr int kMiddleMode = 4;
constexpr int kCenter = 5;

bool isAttachment(int number) {
  return number >= 1 && number <= kAttachments;
}

int columnOf(int attachment) {
  return (attachment - 1) % kColumns;
}

int rowOf(int attachment) {
  return (attachment - 1) / kColumns;
}

}  // namespace

bool ModesOfMTextAttachment(int attachment, int& horizontal, int& vertical) {
  if (!isAttachment(attachment)) return false;
  horizontal = columnOf(attachment);
  vertical = kTopMode - rowOf(attachment);
  return true;
}

int MTextAttachmentOf(int horizontal, int vertical) {
  if (horizontal == kMiddleMode) return kCenter;
  const bool isInBox = horizontal >= 0 && horizontal < kColumns && vertical >= 1;
  if (!isInBox || vertical > kTopMode) return 0;
  return kColumns * (kTopMode - vertical) + horizontal + 1;
}

bool FindAttachmentShift(int from, int to, AttachmentShift& shift) {
  if (!isAttachment(from) || !isAttachment(to)) return false;
  shift.across = (columnOf(to) - columnOf(from)) * 0.5;
  shift.down = (rowOf(to) - rowOf(from)) * 0.5;
  return true;
}

}  // namespace kovra
