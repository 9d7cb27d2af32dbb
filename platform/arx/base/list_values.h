// What kind of value an element of a list has.
#pragma once
#include <cstddef>

#include "platform/arx/base/adesk.h"

namespace kovra::arx {

enum class ListValue { kNone, kReal, kPoint, kShort, kLong, kInt64, kText, kName, kBinary };

/// By the element's type: a result code or a group code. Unknown result codes have no value.
ListValue listValue(int type);

/// Memory for a text of so many characters and the 0 behind them, as lists own it; null without
/// memory. acutDelString and acutRelRb give it back.
ACHAR* takeListText(std::size_t length);

}  // namespace kovra::arx
