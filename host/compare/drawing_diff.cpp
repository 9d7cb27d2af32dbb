#include "host/compare/drawing_diff.h"

#include <algorithm>
#include <iterator>

#include "host/compare/record_groups.h"
#include "host/compare/record_pairs.h"
#include "platform/dxf/structure.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

using dxf::RecordIndex;
using dxf::RecordKind;
using dxf::SectionKind;
using Take = std::function<void(const RecordChange&)>;

constexpr int kVariableCode = 9;
constexpr int kNameCode = 2;

using Variables = std::map<std::string, ComparedGroups>;

Variables headerVariables(const dxf::RecordStore& store) {
  Variables variables;
  if (store.headerRecord() == dxf::kNoRecord) return variables;
  ComparedGroups* variable = nullptr;
  for (ComparedGroup& group : GroupReader(store).groups(store.headerRecord())) {
    if (group.code == kVariableCode) {
      variable = &variables[group.value];
    } else if (variable != nullptr) {
      variable->push_back(std::move(group));
    }
  }
  return variables;
}

void compareVariable(const std::string& name, const ComparedGroups* before,
                     const ComparedGroups* after, const Take& take) {
  RecordChange change;
  change.type = name;
  change.place = "HEADER";
  if (before != nullptr && after != nullptr) {
    change.groups = compareGroups(*before, *after);
    if (change.groups.empty()) return;
  } else {
    change.kind = before != nullptr ? ChangeKind::kErased : ChangeKind::kAdded;
    change.groups = loneGroups(before != nullptr ? *before : *after, change.kind);
  }
  take(change);
}

void compareHeaders(const dxf::RecordStore& before, const dxf::RecordStore& after,
                    const Take& take) {
  const Variables earlier = headerVariables(before);
  const Variables later = headerVariables(after);
  const auto find = [](const Variables& variables, const std::string& name) {
    const auto found = variables.find(name);
    return found != variables.end() ? &found->second : nullptr;
  };
  for (const auto& [name, groups] : earlier)
    compareVariable(name, &groups, find(later, name), take);
  for (const auto& [name, groups] : later) {
    if (find(earlier, name) == nullptr) compareVariable(name, nullptr, &groups, take);
  }
}

/// Says where records lie, in the words that users have for it. A drawing's structure is only
/// built when there is something to say.
class PlaceNames {
 public:
  explicit PlaceNames(dxf::RecordStore& store) : store_(store) {}

  std::string of(RecordIndex record) {
    if (!structure_) structure_.emplace(store_);
    const dxf::BlockNumber block = structure_->blockOf(record);
    if (block != dxf::kNoBlock) return win::toUtf8(structure_->spaceName(block));
    switch (store_.section(record)) {
      case SectionKind::kTables:
        return "TABLES";
      case SectionKind::kBlocks:
        return "BLOCKS";
      case SectionKind::kObjects:
        return "OBJECTS";
      case SectionKind::kClasses:
        return "CLASSES";
      case SectionKind::kEntities:
        return "ENTITIES";
      default:
        return {};
    }
  }

 private:
  dxf::RecordStore& store_;
  std::optional<dxf::Structure> structure_;
};

/// Whether group 2 of a record is what users call it by.
bool hasName(RecordKind kind) {
  return (kind >= RecordKind::kVport && kind <= RecordKind::kBlockRecord) ||
         kind == RecordKind::kBlock || kind == RecordKind::kInsert || kind == RecordKind::kAttrib ||
         kind == RecordKind::kAttDef || kind == RecordKind::kTable || kind == RecordKind::kSection;
}

class Comparison {
 public:
  Comparison(dxf::RecordStore& before, dxf::RecordStore& after, const Take& take)
      : before_(before),
        after_(after),
        beforeNames_(before),
        afterNames_(after),
        alike_(writtenAlike(before, after)),
        take_(take) {
    Places places;
    earlier_ = listRecords(before, places);
    later_ = listRecords(after, places);
    pairRecords(before_, earlier_, after_, later_);
  }

  void run() {
    for (const ListedRecord& listed : earlier_) {
      if (listed.partner == kNoPartner)
        tell(ChangeKind::kErased, before_, beforeNames_, listed.record);
    }
    const std::vector<bool> moved = findMoved();
    for (std::size_t j = 0; j < later_.size(); ++j) {
      if (later_[j].partner == kNoPartner) {
        tell(ChangeKind::kAdded, after_, afterNames_, later_[j].record);
      } else {
        comparePair(earlier_[later_[j].partner].record, later_[j].record, moved[j]);
      }
    }
  }

 private:
  RecordChange describe(ChangeKind kind, GroupReader& reader, PlaceNames& names, RecordIndex record,
                        const ComparedGroups& groups) {
    const dxf::RecordStore& store = reader.store();
    RecordChange change;
    change.kind = kind;
    change.type = store.typeName(record);
    change.handle = store.handle(record);
    if (hasName(store.kind(record))) change.name = valueOf(groups, kNameCode);
    change.place = names.of(record);
    return change;
  }

  void tell(ChangeKind kind, GroupReader& reader, PlaceNames& names, RecordIndex record) {
    const ComparedGroups groups = reader.groups(record);
    RecordChange change = describe(kind, reader, names, record, groups);
    change.groups = loneGroups(groups, kind);
    take_(change);
  }

  void comparePair(RecordIndex left, RecordIndex right, bool moved) {
    const bool same = alike_ && before_.bytes(left) == after_.bytes(right);
    if (same && !moved) return;
    const ComparedGroups groups = after_.groups(right);
    std::vector<GroupChange> changes;
    if (!same) changes = compareGroups(before_.groups(left), groups);
    if (changes.empty() && !moved) return;
    RecordChange change = describe(moved ? ChangeKind::kMoved : ChangeKind::kChanged, after_,
                                   afterNames_, right, groups);
    change.groups = std::move(changes);
    take_(change);
  }

  /// Which of the later records lie in another place, or, of those whose order counts, had to be
  /// taken out to give the others their former order: as few as can be.
  std::vector<bool> findMoved() const {
    std::vector<bool> moved(later_.size(), false);
    std::vector<std::size_t> ordered;  // later places of records whose order counts
    for (std::size_t j = 0; j < later_.size(); ++j) {
      if (later_[j].partner == kNoPartner) continue;
      if (later_[j].place != earlier_[later_[j].partner].place) {
        moved[j] = true;
      } else if (later_[j].inDrawingOrder) {
        ordered.push_back(j);
      }
    }
    markDisplaced(ordered, moved);
    return moved;
  }

  /// Longest increasing subsequence of the former places; what isn't in it was moved.
  void markDisplaced(const std::vector<std::size_t>& ordered, std::vector<bool>& moved) const {
    const auto former = [&](std::size_t k) { return later_[ordered[k]].partner; };
    std::vector<std::size_t> ends;  // of the best sequence of each length
    std::vector<std::size_t> previous(ordered.size(), kNoPartner);
    for (std::size_t k = 0; k < ordered.size(); ++k) {
      const auto place =
          std::lower_bound(ends.begin(), ends.end(), former(k),
                           [&](std::size_t end, std::size_t value) { return former(end) < value; });
      if (place != ends.begin()) previous[k] = *std::prev(place);
      if (place == ends.end()) {
        ends.push_back(k);
      } else {
        *place = k;
      }
    }
    if (ends.size() == ordered.size()) return;
    for (const std::size_t j : ordered) moved[j] = true;
    for (std::size_t k = ends.back(); k != kNoPartner; k = previous[k]) moved[ordered[k]] = false;
  }

  GroupReader before_;
  GroupReader after_;
  PlaceNames beforeNames_;
  PlaceNames afterNames_;
  bool alike_;
  const Take& take_;
  std::vector<ListedRecord> earlier_;
  std::vector<ListedRecord> later_;
};

}  // namespace

void compareDrawings(dxf::RecordStore& before, dxf::RecordStore& after, const Take& take) {
  compareHeaders(before, after, take);
  Comparison(before, after, take).run();
}

}  // namespace kovra::host
