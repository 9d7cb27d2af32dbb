#include "platform/arx/editor/picks/selection_filter.h"

#include <algorithm>

#include "platform/arx/base/ads.h"
#include "platform/arx/base/list_values.h"
#include "platform/arx/base/wildcard.h"
#include "platform/arx/database/database.h"
#include "platform/dxf/record_store.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

constexpr int kOperator = -4;

/// What a missing group stands for; nothing for a group without such a value.
std::optional<double> absentNumber(int code) {
  switch (code) {
    case 62:
      return 256;
    case 48:
      return 1;
    case 39:
    case 60:
    case 66:
    case 67:
      return 0;
    default:
      return std::nullopt;
  }
}

bool related(double value, const std::wstring& relation, double wanted) {
  if (relation == L"*") return true;
  if (relation == L"!=" || relation == L"/=" || relation == L"<>") return value != wanted;
  if (relation == L"<") return value < wanted;
  if (relation == L"<=") return value <= wanted;
  if (relation == L">") return value > wanted;
  if (relation == L">=") return value >= wanted;
  if (relation == L"&")
    return (static_cast<long long>(value) & static_cast<long long>(wanted)) != 0;
  return value == wanted;
}

std::vector<std::wstring> relationsOf(std::wstring_view text) {
  std::vector<std::wstring> parts(1);
  for (const wchar_t c : text) {
    if (c == L',')
      parts.emplace_back();
    else if (c != L' ')
      parts.back() += c;
  }
  return parts;
}

bool pointHolds(const dxf::RecordDraft& draft, std::size_t x,
                const std::vector<std::wstring>& relations, const AcGePoint3d& wanted) {
  static const std::wstring kEqual = L"=";
  AcGePoint3d point(draft.real(x), 0, 0);
  for (std::size_t i = x + 1; i < draft.size() && draft.code(i) != draft.code(x); ++i) {
    if (draft.code(i) == draft.code(x) + 10) point.y = draft.real(i);
    if (draft.code(i) == draft.code(x) + 20) point.z = draft.real(i);
  }
  for (unsigned i = 0; i < 3; ++i) {
    const std::wstring& relation = i < relations.size()   ? relations[i]
                                   : relations.size() > 1 ? L"*"
                                   : relations.empty()    ? kEqual
                                                          : relations[0];
    if (!related(point[i], relation, wanted[i])) return false;
  }
  return true;
}

}  // namespace

/// Reads a list front to back.
class SelectionFilter::Reader {
 public:
  explicit Reader(const resbuf* list) : at_(list) {}

  /// Conditions up to the end of the list, or of the group that `end` closes.
  bool readUntil(const std::wstring& end, std::vector<Node>& out) {
    std::vector<std::wstring> relations;
    for (; at_ != nullptr; at_ = at_->rbnext) {
      if (at_->restype != kOperator) {
        Node node;
        if (!readValue(node, relations)) return false;
        out.push_back(std::move(node));
        relations.clear();
        continue;
      }
      const std::wstring word =
          win::upperCase(at_->resval.rstring != nullptr ? at_->resval.rstring : L"");
      if (word == end) return true;
      if (const std::optional<Kind> kind = groupKind(word)) {
        Node group;
        group.kind = *kind;
        at_ = at_->rbnext;
        if (!readUntil(word.substr(1) + L">", group.parts) || at_ == nullptr) return false;
        if (*kind == Kind::kNot && group.parts.size() != 1) return false;
        if (*kind == Kind::kXor && group.parts.size() != 2) return false;
        out.push_back(std::move(group));
      } else {
        relations = relationsOf(word);
      }
    }
    return end.empty();
  }

 private:
  static std::optional<Kind> groupKind(const std::wstring& word) {
    if (word == L"<AND") return Kind::kAnd;
    if (word == L"<OR") return Kind::kOr;
    if (word == L"<XOR") return Kind::kXor;
    if (word == L"<NOT") return Kind::kNot;
    return std::nullopt;
  }

  bool readValue(Node& node, const std::vector<std::wstring>& relations) const {
    const int type = at_->restype == RTDXF0 ? 0 : at_->restype;
    if (type < 0 || type > 1071) return false;
    node.code = type;
    node.relations = relations;
    switch (listValue(type)) {
      case ListValue::kText:
        node.kind = Kind::kText;
        node.text = at_->resval.rstring != nullptr ? at_->resval.rstring : L"";
        return true;
      case ListValue::kPoint:
        node.kind = Kind::kPoint;
        node.point = {at_->resval.rpoint[0], at_->resval.rpoint[1], at_->resval.rpoint[2]};
        return true;
      case ListValue::kReal:
        node.kind = Kind::kNumber;
        node.point.x = at_->resval.rreal;
        return true;
      case ListValue::kShort:
        node.kind = Kind::kNumber;
        node.point.x = at_->resval.rint;
        return true;
      case ListValue::kLong:
        node.kind = Kind::kNumber;
        node.point.x = at_->resval.rlong;
        return true;
      default:
        return false;
    }
  }

  const resbuf* at_;
};

std::optional<SelectionFilter> SelectionFilter::fromList(const resbuf* list) {
  SelectionFilter filter;
  if (!Reader(list).readUntil(L"", filter.nodes_)) return std::nullopt;
  return filter;
}

bool SelectionFilter::holds(const Node& node, const AcDbDatabase& database,
                            const dxf::RecordDraft& draft) {
  const auto part = [&](const Node& one) { return holds(one, database, draft); };
  switch (node.kind) {
    case Kind::kAnd:
      return std::all_of(node.parts.begin(), node.parts.end(), part);
    case Kind::kOr:
      return std::any_of(node.parts.begin(), node.parts.end(), part);
    case Kind::kXor:
      return part(node.parts[0]) != part(node.parts[1]);
    case Kind::kNot:
      return !part(node.parts[0]);
    default:
      break;
  }
  bool present = false;
  const std::wstring relation = node.relations.empty() ? L"=" : node.relations.front();
  for (std::size_t i = 0; i < draft.size(); ++i) {
    if (draft.code(i) != node.code || draft.part(i) != dxf::GroupPart::kData) continue;
    present = true;
    if (node.kind == Kind::kText) {
      const std::wstring text = database.store().codec().decode(draft.text(i));
      if (wildcardMatch(text, node.text, true)) return true;
    } else if (node.kind == Kind::kNumber) {
      if (related(draft.real(i), relation, node.point.x)) return true;
    } else if (pointHolds(draft, i, node.relations, node.point)) {
      return true;
    }
  }
  if (present) return false;
  if (node.kind == Kind::kText) return node.code == 6 && wildcardMatch(L"BYLAYER", node.text, true);
  const std::optional<double> absent = absentNumber(node.code);
  return node.kind == Kind::kNumber && absent && related(*absent, relation, node.point.x);
}

bool SelectionFilter::matches(const AcDbDatabase& database, dxf::RecordIndex record) const {
  if (nodes_.empty()) return true;
  const dxf::RecordStore& store = database.store();
  // Most filters ask for a type; that needs no decoding.
  for (const Node& node : nodes_) {
    if (node.kind != Kind::kText || node.code != 0) continue;
    if (!wildcardMatch(win::fromUtf8(store.typeName(record)), node.text, true)) return false;
    if (nodes_.size() == 1) return true;
  }
  dxf::RecordDraft draft;
  store.load(record, draft);
  return std::all_of(nodes_.begin(), nodes_.end(),
                     [&](const Node& node) { return holds(node, database, draft); });
}

}  // namespace kovra::arx
