#pragma once

#include "module/frame/seam.h"

namespace kovra {

enum class PickAnswer {
  picked,
  missed,  ///< nothing lies there: ask again
  ended,   ///< Esc, or Enter alone
};

/// What acedEntSel and acedNEntSelP say with their result. To be called at once: ERRNO is that of
/// the last question.
PickAnswer PickAnswerOf(int result);

/// Asks once for an entity; a text or an attribute inside a block reference is picked itself.
PickAnswer PickNestedEntity(const ACHAR* prompt, ads_name entity);

}  // namespace kovra
