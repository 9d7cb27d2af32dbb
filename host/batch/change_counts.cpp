#include "host/batch/change_counts.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "host/compare/change_writer.h"
#include "host/compare/drawing_diff.h"

namespace kovra::host {
namespace {

using json = nlohmann::ordered_json;

struct Count {
  std::size_t records = 0;
  std::map<int, std::size_t> groups;
};

using Counts = std::map<std::pair<std::string, std::string>, Count>;  // by change and type

void add(const RecordChange& change, Counts& counts) {
  Count& count = counts[{changeName(change.kind), change.type}];
  ++count.records;
  if (change.kind == ChangeKind::kAdded || change.kind == ChangeKind::kErased) return;
  std::set<int> codes;
  for (const GroupChange& group : change.groups) codes.insert(group.code);
  for (const int code : codes) ++count.groups[code];
}

json toJson(const Counts& counts) {
  json all = json::array();
  for (const auto& [kind, count] : counts) {
    json groups = json::object();
    for (const auto& [code, records] : count.groups) groups[std::to_string(code)] = records;
    all.push_back({{"change", kind.first},
                   {"type", kind.second},
                   {"records", count.records},
                   {"groups", std::move(groups)}});
  }
  return all;
}

}  // namespace

bool haveSameBytes(const std::string& before, const std::string& after) {
  std::ifstream left(before, std::ios::binary);
  std::ifstream right(after, std::ios::binary);
  if (!left || !right) return false;
  using Bytes = std::istreambuf_iterator<char>;
  return std::equal(Bytes(left), Bytes(), Bytes(right), Bytes());
}

std::string changesJson(const std::string& before, const std::string& after) {
  const auto earlier = dxf::RecordStore::readFile(before);
  const auto later = dxf::RecordStore::readFile(after);
  if (!earlier || !later) return "null";
  Counts counts;
  compareDrawings(*earlier.value(), *later.value(),
                  [&](const RecordChange& change) { add(change, counts); });
  return toJson(counts).dump(-1, ' ', false, json::error_handler_t::replace);
}

}  // namespace kovra::host
