#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dxf/record_table.h"
#include "platform/dxf/result.h"

namespace kovra::dxf {

/// What one pass over a file finds.
struct ScannedFile {
  Dialect dialect;  ///< the written form and what records have; not yet what the header tells
  RecordTable records;
  std::vector<RecordIndex> structural;  ///< SECTION, ENDSEC, TABLE, ENDTAB, BLOCK, ENDBLK
  std::uint64_t recordsEnd = 0;  ///< where the last record ends; what follows is kept as it is
  std::uint64_t greatestHandle = 0;
};

/// Gives the bytes of a file that have come so far, at the same place each time: more than `seen`,
/// unless these are all.
using ByteSource = std::function<std::string_view(std::size_t seen)>;

/// Finds the records of a file while it is read. `size` is that of the whole file where it is
/// known: room is made for its records. Errors are kBadFormat with the place in the message.
Result<ScannedFile> scanRecords(const ByteSource& source, const std::string& name,
                                std::size_t size = 0);

}  // namespace kovra::dxf
