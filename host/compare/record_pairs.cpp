#include "host/compare/record_pairs.h"

#include <functional>
#include <unordered_map>

#include "host/compare/sequence_diff.h"
#include "platform/dxf/text_codec.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

using dxf::RecordIndex;
using dxf::RecordKind;
using dxf::SectionKind;

constexpr int kNameCode = 2;
constexpr int kClassNameCode = 1;

/// Follows the file's order and says where each record lies.
class PlaceWalk {
 public:
  PlaceWalk(const dxf::RecordStore& store, Places& places) : groups_(store), places_(places) {}

  std::size_t placeOf(RecordIndex record) {
    switch (groups_.store().kind(record)) {
      case RecordKind::kSection:
        section_ = name(record);
        return enter("");
      case RecordKind::kTable:
      case RecordKind::kBlock: {
        // The record itself lies in its section; what follows lies in it.
        const std::size_t place = places_.number(section_);
        enter(name(record));
        return place;
      }
      case RecordKind::kEndBlk: {
        const std::size_t place = place_;
        enter("");
        return place;
      }
      default:
        return place_;
    }
  }

 private:
  std::string name(RecordIndex record) { return valueOf(groups_.groups(record), kNameCode); }
  std::size_t enter(const std::string& part) {
    place_ = places_.number(part.empty() ? section_ : section_ + '/' + part);
    return place_;
  }

  GroupReader groups_;
  Places& places_;
  std::string section_;
  std::size_t place_ = 0;
};

bool isCompared(const dxf::RecordStore& store, RecordIndex record) {
  const RecordKind kind = store.kind(record);
  return !store.erased(record) && record != store.headerRecord() && kind != RecordKind::kEndSec &&
         kind != RecordKind::kEndTab && kind != RecordKind::kEof;
}

void pairUp(std::vector<ListedRecord>& earlier, std::size_t i, std::vector<ListedRecord>& later,
            std::size_t j) {
  earlier[i].partner = j;
  later[j].partner = i;
}

void pairByHandle(const dxf::RecordStore& before, std::vector<ListedRecord>& earlier,
                  const dxf::RecordStore& after, std::vector<ListedRecord>& later) {
  std::vector<std::size_t> places(after.count(), kNoPartner);
  for (std::size_t j = 0; j < later.size(); ++j) places[later[j].record] = j;
  for (std::size_t i = 0; i < earlier.size(); ++i) {
    const RecordIndex found = after.find(before.handle(earlier[i].record));
    const std::size_t j = found == dxf::kNoRecord ? kNoPartner : places[found];
    if (j == kNoPartner || later[j].partner != kNoPartner) continue;
    // A handle that another program gave to something else.
    if (before.typeName(earlier[i].record) != after.typeName(found)) continue;
    pairUp(earlier, i, later, j);
  }
}

/// What a record without a handle is found by; none for records that have no name.
std::optional<std::string> nameKey(GroupReader& groups, const ListedRecord& listed) {
  const RecordKind kind = groups.store().kind(listed.record);
  const std::string type(groups.store().typeName(listed.record));
  const bool isEntry = kind >= RecordKind::kVport && kind <= RecordKind::kBlockRecord;
  if (!isEntry && kind != RecordKind::kSection && kind != RecordKind::kTable &&
      kind != RecordKind::kBlock && type != "CLASS") {
    return std::nullopt;
  }
  const int code = type == "CLASS" ? kClassNameCode : kNameCode;
  const std::string name = valueOf(groups.groups(listed.record), code);
  return type + ' ' + win::toUtf8(dxf::foldCase(win::fromUtf8(name)));
}

/// Whether a record still has no partner and a handle couldn't give it one: it has none, or one
/// that an earlier record has too.
bool isAlone(const dxf::RecordStore& store, const ListedRecord& listed) {
  if (listed.partner != kNoPartner) return false;
  const std::uint64_t handle = store.handle(listed.record);
  return handle == 0 || store.find(handle) != listed.record;
}

void pairByName(GroupReader& before, std::vector<ListedRecord>& earlier, GroupReader& after,
                std::vector<ListedRecord>& later) {
  std::unordered_map<std::string, std::vector<std::size_t>> named;
  for (std::size_t j = later.size(); j-- > 0;) {
    if (later[j].partner != kNoPartner) continue;
    if (const auto key = nameKey(after, later[j])) named[*key].push_back(j);
  }
  for (std::size_t i = 0; i < earlier.size(); ++i) {
    if (earlier[i].partner != kNoPartner) continue;
    const auto key = nameKey(before, earlier[i]);
    const auto found = key ? named.find(*key) : named.end();
    if (found == named.end() || found->second.empty()) continue;
    const std::size_t j = found->second.back();
    found->second.pop_back();
    pairUp(earlier, i, later, j);
  }
}

/// A number that equal records share, formed when it is asked for.
class RecordHashes {
 public:
  RecordHashes(GroupReader& groups, std::size_t count) : groups_(groups), hashes_(count) {}

  std::size_t of(std::size_t place, RecordIndex record) {
    std::optional<std::size_t>& hash = hashes_[place];
    if (!hash) {
      std::string text;
      for (const ComparedGroup& group : groups_.groups(record))
        text.append(std::to_string(group.code)).append(1, '\n').append(group.value).append(1, '\n');
      hash = std::hash<std::string>()(text);
    }
    return *hash;
  }

 private:
  GroupReader& groups_;
  std::vector<std::optional<std::size_t>> hashes_;
};

using Members = std::map<std::size_t, std::vector<std::size_t>>;  // by place

Members aloneByPlace(const dxf::RecordStore& store, const std::vector<ListedRecord>& listed) {
  Members members;
  for (std::size_t i = 0; i < listed.size(); ++i) {
    if (isAlone(store, listed[i])) members[listed[i].place].push_back(i);
  }
  return members;
}

/// In a run the records of one type are paired in their order: they are changed ones.
void pairRun(GroupReader& before, std::vector<ListedRecord>& earlier,
             const std::vector<std::size_t>& lefts, GroupReader& after,
             std::vector<ListedRecord>& later, const std::vector<std::size_t>& rights,
             const DiffRun& run) {
  std::map<std::string, std::size_t> searched;
  for (std::size_t i = run.leftBegin; i < run.leftEnd; ++i) {
    const std::string type(before.store().typeName(earlier[lefts[i]].record));
    std::size_t& j = searched.try_emplace(type, run.rightBegin).first->second;
    while (j < run.rightEnd && after.store().typeName(later[rights[j]].record) != type) ++j;
    if (j < run.rightEnd) pairUp(earlier, lefts[i], later, rights[j++]);
  }
}

void pairByOrder(GroupReader& before, std::vector<ListedRecord>& earlier, GroupReader& after,
                 std::vector<ListedRecord>& later) {
  const bool alike = writtenAlike(before.store(), after.store());
  RecordHashes leftHashes(before, earlier.size());
  RecordHashes rightHashes(after, later.size());
  const Members leftMembers = aloneByPlace(before.store(), earlier);
  Members rightMembers = aloneByPlace(after.store(), later);
  for (const auto& [place, lefts] : leftMembers) {
    const std::vector<std::size_t>& rights = rightMembers[place];
    const auto equal = [&](std::size_t i, std::size_t j) {
      const RecordIndex left = earlier[lefts[i]].record;
      const RecordIndex right = later[rights[j]].record;
      if (alike && before.bytes(left) == after.bytes(right)) return true;
      return leftHashes.of(lefts[i], left) == rightHashes.of(rights[j], right);
    };
    std::size_t i = 0;
    std::size_t j = 0;
    const auto pairEqual = [&](std::size_t end) {
      while (i < end) pairUp(earlier, lefts[i++], later, rights[j++]);
    };
    for (const DiffRun& run : diffRuns(lefts.size(), rights.size(), equal)) {
      pairEqual(run.leftBegin);
      pairRun(before, earlier, lefts, after, later, rights, run);
      i = run.leftEnd;
      j = run.rightEnd;
    }
    pairEqual(lefts.size());
  }
}

}  // namespace

std::size_t Places::number(const std::string& name) {
  return numbers_.try_emplace(name, numbers_.size()).first->second;
}

ComparedGroups GroupReader::groups(RecordIndex record) {
  store_.load(record, draft_);
  return comparedGroups(store_, draft_, 0, draft_.size());
}

std::vector<ListedRecord> listRecords(const dxf::RecordStore& store, Places& places) {
  std::vector<ListedRecord> listed;
  listed.reserve(store.count());
  PlaceWalk walk(store, places);
  for (RecordIndex record = store.first(); record != dxf::kNoRecord; record = store.next(record)) {
    const std::size_t place = walk.placeOf(record);
    const SectionKind section = store.section(record);
    const bool ordered = section == SectionKind::kEntities || section == SectionKind::kBlocks;
    if (isCompared(store, record)) listed.push_back({record, place, ordered});
  }
  return listed;
}

bool writtenAlike(const dxf::RecordStore& before, const dxf::RecordStore& after) {
  const dxf::Dialect& left = before.dialect();
  const dxf::Dialect& right = after.dialect();
  if (left.binary != right.binary || left.wideCodes != right.wideCodes) return false;
  return left.utf8() == right.utf8() && (left.utf8() || left.codePage == right.codePage);
}

void pairRecords(GroupReader& before, std::vector<ListedRecord>& earlier, GroupReader& after,
                 std::vector<ListedRecord>& later) {
  pairByHandle(before.store(), earlier, after.store(), later);
  pairByName(before, earlier, after, later);
  pairByOrder(before, earlier, after, later);
}

}  // namespace kovra::host
