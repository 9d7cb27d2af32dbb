#include "module/countup/step_conversion.h"

#include "module/countup/radix_rules.h"
#include "module/frame/companions/numbering_lib.h"

namespace kovra {
namespace {

constexpr int kDecimalCode = 10;

std::optional<std::wstring> unread(const StepConversionRules& rules) {
  if (rules.clearsWhatIsUnread) return std::wstring();
  return std::nullopt;
}

/// Takes a leading "-" off.
bool takeSign(std::wstring& step, const StepConversionRules& rules) {
  const bool negative = step.starts_with(L'-') && (rules.loneMinusIsSign || step.size() > 1);
  if (negative) step.erase(0, 1);
  return negative;
}

/// The number spelled in another radix, "" for what that radix can't spell; nothing when the text
/// is no number.
std::optional<std::wstring> respell(const std::wstring& number, int fromCode, int toCode) {
  RadixNumber counter(fromCode);
  if (!counter.Parse(number.c_str(), 0, -1)) return std::nullopt;
  counter.SetRadix(toCode);
  return std::wstring(counter.Text());
}

}  // namespace

std::optional<std::wstring> stepToRadix(std::wstring step, int row,
                                        const StepConversionRules& rules) {
  const RadixRules* radix = radixRules(row);
  if (radix == nullptr) return std::nullopt;
  if (!radix->stepIsShownInRadix) return unread(rules);
  const bool negative = takeSign(step, rules);
  const auto number = respell(step, kDecimalCode, radix->code);
  if (!number) return unread(rules);
  if (number->empty()) return std::wstring(L"0");
  return negative ? L"-" + *number : *number;
}

std::optional<std::wstring> stepToDecimal(std::wstring step, int row,
                                          const StepConversionRules& rules) {
  const RadixRules* radix = radixRules(row);
  if (radix == nullptr || !radix->stepCanBeTypedInRadix) return std::nullopt;
  const bool negative = takeSign(step, rules);
  const auto number = respell(step, radix->code, kDecimalCode);
  if (!number) return unread(rules);
  return negative ? L"-" + *number : *number;
}

}  // namespace kovra
