#include "platform/arx/entities/mtext_columns.h"

#include <algorithm>

namespace kovra::arx {
namespace {

// Groups of the embedded object.
constexpr int kHeight = 41;
constexpr int kColumnWidth = 44;
constexpr int kGap = 45;
constexpr int kSingleHeight = 46;
constexpr int kType = 71;  // none, static, dynamic
constexpr int kCount = 72;
constexpr int kLeftward = 74;

}  // namespace

bool MTextColumns::isPast(std::size_t column, double depth) const {
  const double end = column < heights.size() ? heights[column] : height;
  constexpr double kRounding = 1e-9;
  return end > 0 && depth > end * (1 + kRounding);
}

double MTextColumns::widthOf(std::size_t columns) const {
  return static_cast<double>(columns) * (width + gap) - gap;
}

double MTextColumns::leftOf(std::size_t column, std::size_t columns) const {
  const std::size_t before = leftward ? columns - 1 - column : column;
  return static_cast<double>(before) * (width + gap);
}

std::optional<MTextColumns> readColumns(const dxf::RecordDraft& draft) {
  const dxf::RecordDraft::Range embedded = draft.embedded();
  const auto real = [&](int code) {
    const std::size_t group = draft.findIn(embedded, code);
    return group == dxf::kNoGroup ? 0 : draft.real(group);
  };
  MTextColumns columns;
  columns.width = real(kColumnWidth);
  if (real(kType) == 0 || !(columns.width > 0)) return std::nullopt;
  constexpr double kMost = 1000;
  columns.gap = real(kGap);
  columns.count = static_cast<std::size_t>(std::clamp(real(kCount), 0.0, kMost));
  columns.height = real(kHeight);
  columns.leftward = real(kLeftward) != 0;
  for (std::size_t i = embedded.begin; i < embedded.end; ++i)
    if (draft.code(i) == kSingleHeight) columns.heights.push_back(draft.real(i));
  return columns;
}

}  // namespace kovra::arx
