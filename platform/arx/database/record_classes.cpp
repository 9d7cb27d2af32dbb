#include "platform/arx/database/record_classes.h"

#include <array>
#include <limits>

namespace kovra::arx {
namespace {

constinit std::array<RecordClass, std::numeric_limits<std::uint8_t>::max() + 1> claims{};

}  // namespace

void openRecordsAs(dxf::RecordKind kind, const RecordClass& row) {
  claims[static_cast<std::size_t>(kind)] = row;
}

const RecordClass* claimedClass(dxf::RecordKind kind) {
  const RecordClass& row = claims[static_cast<std::size_t>(kind)];
  return row.theClass != nullptr ? &row : nullptr;
}

}  // namespace kovra::arx
