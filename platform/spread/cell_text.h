#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/spread/spread.h"

/// What cells make of their texts, by their kind. Numbers are decimal texts throughout, so that
/// nothing is lost or gained by the way; digits of full width count as digits.
namespace kovra::spread {

/// What is seen of a cell: a number with its digits, any other text as it is.
std::wstring shownText(const SS_CELLTYPE& type, std::wstring_view data);

/// Whether a user who types may come by this text on the way to one that the cell takes.
bool mayBeTyped(const SS_CELLTYPE& type, std::wstring_view text);

/// What a cell holds after a user has entered the text; nothing when the cell can't take it.
std::optional<std::wstring> enteredText(const SS_CELLTYPE& type, std::wstring_view text);

}  // namespace kovra::spread
