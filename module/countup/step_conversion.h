#pragma once

#include <optional>
#include <string>

namespace kovra {

/// The points in which the two dialogs with step fields differ.
struct StepConversionRules {
  bool loneMinusIsSign;     ///< "-" alone is a sign without digits, else a text like any other
  bool clearsWhatIsUnread;  ///< what can't be converted empties the other field, else it stays
};

/// Spells a decimal step in the numbering system of a row.
/// @return the text for the other field; nothing when that field stays as it is
std::optional<std::wstring> stepToRadix(std::wstring step, int row,
                                        const StepConversionRules& rules);

/// Spells a step of a row's numbering system in decimal; the same result. Rows in which a step
/// can't be typed leave the other field alone by either rule.
std::optional<std::wstring> stepToDecimal(std::wstring step, int row,
                                          const StepConversionRules& rules);

}  // namespace kovra
