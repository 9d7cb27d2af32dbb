#include "platform/arx/base/list_values.h"

#include <array>

#include "platform/arx/base/result_codes.h"
#include "platform/dxf/values.h"

namespace kovra::arx {
namespace {

ListValue ofResultCode(int type) {
  switch (type) {
    case RTREAL:
    case RTANG:
    case RTORINT:
      return ListValue::kReal;
    case RTPOINT:
    case RT3DPOINT:
      return ListValue::kPoint;
    case RTSHORT:
      return ListValue::kShort;
    case RTLONG:
      return ListValue::kLong;
    case RTSTR:
    case RTDXF0:
      return ListValue::kText;
    case RTENAME:
    case RTPICKS:
      return ListValue::kName;
    default:
      return ListValue::kNone;
  }
}

/// Handles that lists give as text; other references are names.
bool isTextHandle(int code) {
  return code == 5 || code == 105 || code == 1005 || (code >= 320 && code < 330) || code == 480 ||
         code == 481;
}

ListValue ofGroupCode(int code) {
  if (dxf::isPointCode(code)) return ListValue::kPoint;
  switch (dxf::valueType(code)) {
    case dxf::ValueType::kReal:
      return ListValue::kReal;
    case dxf::ValueType::kInt16:
    case dxf::ValueType::kBool:
      return ListValue::kShort;
    case dxf::ValueType::kInt32:
      return ListValue::kLong;
    case dxf::ValueType::kInt64:
      return ListValue::kInt64;
    case dxf::ValueType::kBinary:
      return ListValue::kBinary;
    case dxf::ValueType::kHandle:
      return isTextHandle(code) ? ListValue::kText : ListValue::kName;
    case dxf::ValueType::kText:
      break;
  }
  return ListValue::kText;
}

constexpr std::size_t kGroupCodes = 1072;

/// Lists are made and given back by the million.
std::array<ListValue, kGroupCodes> makeGroupValues() {
  std::array<ListValue, kGroupCodes> values{};
  for (std::size_t code = 0; code < kGroupCodes; ++code)
    values[code] = ofGroupCode(static_cast<int>(code));
  return values;
}

const std::array<ListValue, kGroupCodes> kGroupValues = makeGroupValues();

}  // namespace

ListValue listValue(int type) {
  if (type >= 0 && type < static_cast<int>(kGroupCodes))
    return kGroupValues[static_cast<std::size_t>(type)];
  if (type >= RTNONE) return ofResultCode(type);
  if (type == -1 || type == -2) return ListValue::kName;
  return type == -4 ? ListValue::kText : ListValue::kNone;
}

}  // namespace kovra::arx
