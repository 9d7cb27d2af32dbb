#include "module/drawing/highlight.h"

namespace kovra {
namespace {

// Modes of acedRedraw.
constexpr int kHighlight = 3;
constexpr int kNoHighlight = 4;

}  // namespace

void HighlightEntity(const ads_name entity, bool on) {
  acedRedraw(entity, on ? kHighlight : kNoHighlight);
}

}  // namespace kovra
