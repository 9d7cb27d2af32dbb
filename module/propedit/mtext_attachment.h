#pragma once

/// Attachments of multi-line texts, 1 to 9 in rows from the top left to the bottom right, beside
/// the modes of one-line texts (module/drawing/attachment.h).
namespace kovra {

/// @return false, with the modes as they were, for a number that is no attachment
bool ModesOfMTextAttachment(int attachment, int& horizontal, int& vertical);

/// Middle gives the center of the box; 0 for modes that no attachment has, such as those on the
/// base line.
int MTextAttachmentOf(int horizontal, int vertical);

/// How far the attachment point lies from that of another attachment, as parts of the text's width
/// along its direction and of its height downward.
struct AttachmentShift {
  double across = 0;
  double down = 0;
};

/// @return false when either number is no attachment
bool FindAttachmentShift(int from, int to, AttachmentShift& shift);

}  // namespace kovra
