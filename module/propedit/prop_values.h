#pragma once

#include <array>

#include "module/drawing/attachment.h"
#include "module/drawing/growing_list.h"
#include "module/drawing/text_groups.h"
#include "module/drawing/text_properties.h"

/// What the dialog shows of texts: names, numbers as users write them, labels of alignments.
namespace kovra {

/// The labels of the alignments in the user's language, by attachment index.
using AttachNames = std::array<CString, kAttachments>;
AttachNames LoadAttachNames();

/// Puts what a list says in the place of the values that count without it. Modes that have no
/// label, such as aligned, leave the alignment alone.
void ReadPropValues(resbuf* list, TextKind kind, const AttachNames& names, TextValues& values);

/// The values that all the entities have, and an empty one where they differ: names and labels
/// without regard to case, numbers as they are shown. An entity that is gone ends the comparison.
TextValues CommonPropValues(const GrowingList<AcDbObjectId>& ids);

}  // namespace kovra
