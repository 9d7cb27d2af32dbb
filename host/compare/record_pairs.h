#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/compare/record_groups.h"
#include "platform/dxf/record_store.h"

namespace kovra::host {

inline constexpr std::size_t kNoPartner = static_cast<std::size_t>(-1);

/// Names of places in a file (a section, a table, a block), as numbers that two drawings share.
class Places {
 public:
  std::size_t number(const std::string& name);

 private:
  std::map<std::string, std::size_t> numbers_;
};

/// A record that is compared.
struct ListedRecord {
  dxf::RecordIndex record;
  std::size_t place;
  bool inDrawingOrder;  ///< an entity: what lies behind it covers it
  std::size_t partner = kNoPartner;
};

/// The records of a drawing that mean something, in the order of the file, each with its place: all
/// but the ends of sections and tables, and the header, whose variables are compared by name.
std::vector<ListedRecord> listRecords(const dxf::RecordStore& store, Places& places);

/// The groups of a record; reads each into the same storage.
class GroupReader {
 public:
  explicit GroupReader(const dxf::RecordStore& store) : store_(store) {}
  ComparedGroups groups(dxf::RecordIndex record);
  /// The record's bytes, valid until the next call.
  std::string_view bytes(dxf::RecordIndex record) { return store_.bytes(record, scratch_); }
  const dxf::RecordStore& store() const { return store_; }

 private:
  const dxf::RecordStore& store_;
  dxf::RecordDraft draft_;
  std::string scratch_;
};

/// Whether equal bytes in both drawings are equal groups.
bool writtenAlike(const dxf::RecordStore& before, const dxf::RecordStore& after);

/// Finds the records of one drawing again in the other: by handle, then sections, tables, table
/// entries, blocks and classes by name, then what has no handle by its order in the same place.
void pairRecords(GroupReader& before, std::vector<ListedRecord>& earlier, GroupReader& after,
                 std::vector<ListedRecord>& later);

}  // namespace kovra::host
