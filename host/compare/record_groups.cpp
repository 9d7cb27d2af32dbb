#include "host/compare/record_groups.h"

#include <algorithm>
#include <map>

#include "host/compare/sequence_diff.h"
#include "host/texts/number_text.h"
#include "platform/dxf/values.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

using dxf::ValueType;

constexpr int kComment = 999;
constexpr int kTypeCode = 0;
constexpr int kMarkerCode = 100;

std::string realText(const std::string& written) {
  double value = 0;
  return dxf::parseReal(written, value) ? shortestNumber(value) : written;
}

std::string integerText(const std::string& written) {
  std::int64_t value = 0;
  return dxf::parseInteger(written, value) ? std::to_string(value) : written;
}

std::string handleText(const std::string& written) {
  std::uint64_t value = 0;
  return dxf::parseHandle(written, value) ? dxf::formatHandle(value) : written;
}

ComparedGroup comparedGroup(const dxf::RecordStore& store, const dxf::RecordDraft& record,
                            std::size_t group) {
  const int code = record.code(group);
  switch (record.type(group)) {
    case ValueType::kReal:
      return {code, true, realText(record.asciiText(group))};
    case ValueType::kInt16:
    case ValueType::kInt32:
    case ValueType::kInt64:
    case ValueType::kBool:
      return {code, true, integerText(record.asciiText(group))};
    case ValueType::kHandle:
      return {code, false, handleText(record.asciiText(group))};
    case ValueType::kBinary:
      return {code, false, std::string(dxf::trimmed(record.asciiText(group)))};
    case ValueType::kText:
      break;
  }
  if (code == kTypeCode || code == kMarkerCode)
    return {code, false, std::string(dxf::trimmed(record.text(group)))};
  return {code, false, win::toUtf8(store.codec().decode(record.text(group)))};
}

GroupChange oneSided(const ComparedGroup& group, ChangeKind kind) {
  GroupChange change{group.code, std::nullopt, std::nullopt, group.number};
  (kind == ChangeKind::kErased ? change.before : change.after) = group.value;
  return change;
}

/// A run of groups: those of one code are paired in their order, what is left stands alone.
void appendRun(const ComparedGroups& before, const ComparedGroups& after, const DiffRun& run,
               std::vector<GroupChange>& changes) {
  std::vector<bool> paired(run.rightEnd - run.rightBegin, false);
  std::map<int, std::size_t> searched;  // by code: what lies before is taken or of another code
  for (std::size_t i = run.leftBegin; i < run.leftEnd; ++i) {
    std::size_t& partner = searched.try_emplace(before[i].code, run.rightBegin).first->second;
    while (partner < run.rightEnd && after[partner].code != before[i].code) ++partner;
    if (partner == run.rightEnd) {
      changes.push_back(oneSided(before[i], ChangeKind::kErased));
      continue;
    }
    paired[partner - run.rightBegin] = true;
    changes.push_back({before[i].code, before[i].value, after[partner].value, before[i].number});
    ++partner;
  }
  for (std::size_t i = run.rightBegin; i < run.rightEnd; ++i) {
    if (!paired[i - run.rightBegin]) changes.push_back(oneSided(after[i], ChangeKind::kAdded));
  }
}

}  // namespace

ComparedGroups comparedGroups(const dxf::RecordStore& store, const dxf::RecordDraft& record,
                              std::size_t begin, std::size_t end) {
  ComparedGroups groups;
  groups.reserve(end - begin);
  for (std::size_t i = begin; i < end; ++i) {
    if (record.code(i) != kComment) groups.push_back(comparedGroup(store, record, i));
  }
  return groups;
}

std::vector<GroupChange> compareGroups(const ComparedGroups& before, const ComparedGroups& after) {
  std::vector<GroupChange> changes;
  const auto equal = [&](std::size_t i, std::size_t j) { return before[i] == after[j]; };
  for (const DiffRun& run : diffRuns(before.size(), after.size(), equal))
    appendRun(before, after, run, changes);
  return changes;
}

std::vector<GroupChange> loneGroups(const ComparedGroups& groups, ChangeKind kind) {
  std::vector<GroupChange> changes;
  for (const ComparedGroup& group : groups) changes.push_back(oneSided(group, kind));
  return changes;
}

std::string valueOf(const ComparedGroups& groups, int code) {
  const auto found = std::find_if(groups.begin(), groups.end(),
                                  [&](const ComparedGroup& group) { return group.code == code; });
  return found != groups.end() ? found->value : std::string();
}

}  // namespace kovra::host
