// What kind of value an element of a list has.
#pragma once

namespace kovra::arx {

enum class ListValue { kNone, kReal, kPoint, kShort, kLong, kInt64, kText, kName, kBinary };

/// By the element's type: a result code or a group code. Unknown result codes have no value.
ListValue listValue(int type);

}  // namespace kovra::arx
