#include "module/countup/count_up_value.h"

#include <algorithm>
#include <limits>
#include <string>

#include "module/countup/char_width.h"
#include "module/countup/radix_rules.h"
#include "module/frame/companions/numbering_lib.h"
#include "module/frame/gates.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kCannotCountDown = 2769;
constexpr int kAllOfText = -1;

// A count of many copies may go beyond what the counter takes at once.
constexpr std::int64_t kLargestStep = std::numeric_limits<int>::max();

/// Reads the text, in full-width characters if it must be and may be.
/// @param flipped whether the text was turned to half width for that
bool readNumber(RadixNumber& number, std::wstring& text, int radixCode, bool& flipped) {
  flipped = false;
  if (number.Parse(text.c_str(), 0, kAllOfText)) return true;
  if (!DataVersionAtLeast10() || !FlipCharWidth(text)) return false;
  flipped = true;
  number.SetRadix(DottedRadixCode(radixCode, text));
  return number.Parse(text.c_str(), 0, kAllOfText);
}

void stepUp(RadixNumber& number, std::int64_t count) {
  for (; count > 0; count -= std::min(count, kLargestStep)) {
    number.Step(static_cast<int>(std::min(count, kLargestStep)));
  }
}

bool stepBack(RadixNumber& number, std::int64_t count) {
  for (; count > 0; count -= std::min(count, kLargestStep)) {
    if (!number.StepBack(static_cast<int>(std::min(count, kLargestStep)))) return false;
  }
  return number.Result() != nullptr;
}

std::wstring numberText(const RadixNumber& number) {
  CString text(number.Text());
  text.TrimLeft();
  return text.GetString();
}

/// Counts down. A number without leading zeros gets none by losing a digit.
bool countDown(RadixNumber& number, std::int64_t count) {
  const std::wstring before = numberText(number);
  if (!stepBack(number, count)) {
    acutPrintf(L"%s", ResourceText(kCannotCountDown, kCommandLineLength).GetString());
    return false;
  }
  if (before.starts_with(L'0')) return true;
  std::wstring after = numberText(number);
  while (after.size() >= 2 && after.starts_with(L'0')) after.erase(0, 1);
  if (after.size() != before.size()) number.SetFormat(after.c_str());
  return true;
}

}  // namespace

bool CountUpValue(CString& text, int radixCode, std::int64_t count) {
  std::wstring working = text.GetString();
  RadixNumber number(DottedRadixCode(radixCode, working));
  bool flipped = false;
  if (!readNumber(number, working, radixCode, flipped)) return false;
  if (count > 0) stepUp(number, count);
  if (count < 0 && !countDown(number, -count)) return false;
  const wchar_t* result = number.Result();
  if (result == nullptr) return false;
  working = result;
  if (flipped) FlipCharWidth(working);
  text = working.c_str();
  return true;
}

int CountUpText(const TextSource& text, int radixCode, std::int64_t count, CString& value) {
  if (text.value().IsEmpty()) return 0;
  value = text.value();
  if (count == 0) return 1;
  return CountUpValue(value, radixCode, count) ? 1 : 0;
}

}  // namespace kovra
