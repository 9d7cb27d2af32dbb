#pragma once

#include <string>
#include <variant>

namespace kovra::win {

/// What a key of the user's dialog store holds: an integer isn't a text. Texts are UTF-8.
using StateValue = std::variant<int, std::string>;

}  // namespace kovra::win
