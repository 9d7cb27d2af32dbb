#include "host/terminal/candidate_table.h"

#include <algorithm>

#include "platform/arx/geometry/east_asian_width.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

constexpr size_t kMostCandidates = 200;
constexpr size_t kGap = 2;

using arx::columnsOf;

std::wstring padded(std::wstring text, size_t columns) {
  text.append(columns - std::min(columns, columnsOf(text)), L' ');
  return text;
}

}  // namespace

std::string candidateTable(const std::vector<launch::Offer>& candidates, size_t width) {
  const size_t count = std::min(candidates.size(), kMostCandidates);
  size_t widest = 0;
  bool notes = false;
  for (size_t i = 0; i < count; ++i) {
    widest = std::max(widest, columnsOf(candidates[i].name) + (candidates[i].folder ? 1 : 0));
    notes = notes || !candidates[i].note.empty();
  }
  const size_t columns = notes ? 1 : std::max<size_t>(1, width / (widest + kGap));
  std::wstring text;
  for (size_t i = 0; i < count; ++i) {
    const launch::Offer& offer = candidates[i];
    const bool last = (i + 1) % columns == 0 || i + 1 == count;
    const std::wstring name = offer.name + (offer.folder ? L"/" : L"");
    text += last && offer.note.empty() ? name : padded(name, widest + kGap);
    text += offer.note;
    if (last) text += L'\n';
  }
  if (candidates.size() > count)
    text += L"... and " + std::to_wstring(candidates.size() - count) + L" more\n";
  return win::toUtf8(text);
}

}  // namespace kovra::host
