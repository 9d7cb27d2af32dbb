#include "host/texts/text_rows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string_view>

#include "platform/arx/base/wildcard.h"
#include "platform/arx/entities/mtext_lines.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

using dxf::RecordIndex;
using dxf::RecordKind;

const char* kindName(RecordKind kind) {
  switch (kind) {
    case RecordKind::kText:
      return "TEXT";
    case RecordKind::kMText:
      return "MTEXT";
    case RecordKind::kAttDef:
      return "ATTDEF";
    case RecordKind::kAttrib:
      return "ATTRIB";
    default:
      return nullptr;
  }
}

struct Point {
  double x = 0;
  double y = 0;
  double z = 0;
};

// The groups of a text that matter here, as the record has them.
struct Groups {
  std::string value;
  std::string tag;
  std::string layer = "0";
  std::string style = "Standard";
  double height = 0;
  double widthFactor = 1;
  double rotation = 0;
  std::int64_t horizontal = 0;  // 72
  std::int64_t vertical = 0;    // 73, in attributes 74
  std::int64_t attachment = 1;  // 71 of MTEXT
  Point position;
  Point second;  // alignment point; direction of MTEXT
  bool hasSecond = false;
};

// Alignment of TEXT and its kin by the horizontal (72) and the vertical mode (73 or 74).
const char* textAlignment(std::int64_t horizontal, std::int64_t vertical) {
  static constexpr std::array<const char*, 6> kBaseLine = {"L", "C", "R", "A", "M", "F"};
  static constexpr std::array<std::array<const char*, 3>, 3> kBoxed = {
      {{"BL", "BC", "BR"}, {"ML", "MC", "MR"}, {"TL", "TC", "TR"}}};
  if (horizontal < 0 || horizontal > 5) horizontal = 0;
  if (vertical < 1 || vertical > 3 || horizontal > 2) {
    return kBaseLine[static_cast<size_t>(horizontal)];
  }
  return kBoxed[static_cast<size_t>(vertical - 1)][static_cast<size_t>(horizontal)];
}

const char* attachmentName(std::int64_t attachment) {
  static constexpr std::array<const char*, 9> kNames = {"TL", "TC", "TR", "ML", "MC",
                                                        "MR", "BL", "BC", "BR"};
  if (attachment < 1 || attachment > 9) attachment = 1;
  return kNames[static_cast<size_t>(attachment - 1)];
}

// Reads texts one after another into the same storage.
class RowReader {
 public:
  explicit RowReader(const dxf::RecordStore& store) : store_(store) {}

  Groups& groups() { return groups_; }
  void read(RecordIndex record, RecordKind kind);
  void fill(RecordIndex record, RecordKind kind, TextRow& row) const;

 private:
  void readGroup(std::size_t group, RecordKind kind);
  void decode(std::string_view bytes);
  void readText(int code, std::size_t group);
  static void setCoordinate(Point& point, int axis, double value);

  const dxf::RecordStore& store_;
  dxf::RecordDraft draft_;
  Groups groups_;
  std::string text_;  // UTF-8 of the text in hand
  std::wstring wide_;
};

void RowReader::read(RecordIndex record, RecordKind kind) {
  groups_ = Groups();
  store_.load(record, draft_);
  // Backwards, so that of repeated groups the first one stays.
  for (std::size_t i = draft_.size(); i-- > 1;) {
    if (draft_.part(i) == dxf::GroupPart::kData) readGroup(i, kind);
  }
  if (kind != RecordKind::kMText) return;
  decode(arx::mtextBytes(draft_));
  groups_.value = text_;
}

void RowReader::setCoordinate(Point& point, int axis, double value) {
  (axis == 0 ? point.x : axis == 1 ? point.y : point.z) = value;
}

// Nearly all texts are plain ASCII without an escape and mean themselves.
void RowReader::decode(std::string_view bytes) {
  const bool plain =
      std::all_of(bytes.begin(), bytes.end(), [](char c) { return c > 0 && c != '\\'; });
  if (plain) {
    text_ = bytes;
    return;
  }
  store_.codec().decode(bytes, wide_);
  text_ = win::toUtf8(wide_);
}

void RowReader::readText(int code, std::size_t group) {
  decode(draft_.text(group));
  switch (code) {
    case 1:
      groups_.value = text_;
      break;
    case 2:
      groups_.tag = text_;
      break;
    case 7:
      groups_.style = text_;
      break;
    default:
      groups_.layer = text_;
  }
}

void RowReader::readGroup(std::size_t group, RecordKind kind) {
  const bool attribute = kind == RecordKind::kAttrib || kind == RecordKind::kAttDef;
  const int code = draft_.code(group);
  switch (code) {
    case 1:
      if (kind == RecordKind::kMText) return;
      [[fallthrough]];
    case 2:
    case 7:
    case 8:
      return readText(code, group);
    case 10:
    case 20:
    case 30:
      return setCoordinate(groups_.position, code / 10 - 1, draft_.real(group));
    case 11:
      groups_.hasSecond = true;
      [[fallthrough]];
    case 21:
    case 31:
      return setCoordinate(groups_.second, code / 10 - 1, draft_.real(group));
    case 40:
      groups_.height = draft_.real(group);
      return;
    case 41:
      groups_.widthFactor = draft_.real(group);
      return;
    case 50:
      groups_.rotation = draft_.real(group);
      return;
    case 71:
      groups_.attachment = draft_.integer(group);
      return;
    case 72:
      groups_.horizontal = draft_.integer(group);
      return;
    case 73:
    case 74:
      if ((code == 74) == attribute) groups_.vertical = draft_.integer(group);
      return;
    default:
      return;
  }
}

void RowReader::fill(RecordIndex record, RecordKind kind, TextRow& row) const {
  const bool multiline = kind == RecordKind::kMText;
  row.record = record;
  row.handle = store_.handle(record);
  row.kind = kindName(kind);
  row.tag = groups_.tag;
  row.value = groups_.value;
  row.layer = groups_.layer;
  row.style = groups_.style;
  row.height = groups_.height;
  row.rotation = groups_.rotation;
  row.widthFactor = multiline ? std::nullopt : std::optional(groups_.widthFactor);
  row.alignment = multiline ? attachmentName(groups_.attachment)
                            : textAlignment(groups_.horizontal, groups_.vertical);
  if (multiline && groups_.hasSecond) {
    row.rotation = std::atan2(groups_.second.y, groups_.second.x) * 180 / std::numbers::pi;
  }
  const bool aligned = !multiline && groups_.hasSecond && std::string_view(row.alignment) != "L";
  const Point& at = aligned ? groups_.second : groups_.position;
  row.x = at.x;
  row.y = at.y;
  row.z = at.z;
}

// Walks the spaces and blocks of one drawing.
class TextWalk {
 public:
  TextWalk(const dxf::RecordStore& store, const dxf::Structure& structure, const TextFilter& filter,
           const std::function<void(const TextRow&)>& take)
      : store_(store), structure_(structure), filter_(filter), take_(take), reader_(store) {}

  void visitBlock(dxf::BlockNumber block);

 private:
  void visit(RecordIndex record);
  bool passes(RecordKind kind);

  const dxf::RecordStore& store_;
  const dxf::Structure& structure_;
  const TextFilter& filter_;
  const std::function<void(const TextRow&)>& take_;
  RowReader reader_;
  TextRow row_;
};

void TextWalk::visitBlock(dxf::BlockNumber block) {
  row_.space =
      block == dxf::kModelSpace ? std::string("model") : win::toUtf8(structure_.spaceName(block));
  for (RecordIndex entity = structure_.firstEntity(block); entity != dxf::kNoRecord;
       entity = structure_.nextEntity(block, entity)) {
    visit(entity);
    if (store_.kind(entity) != RecordKind::kInsert) continue;
    for (RecordIndex attribute = structure_.firstAttribute(entity); attribute != dxf::kNoRecord;
         attribute = structure_.nextAttribute(attribute)) {
      visit(attribute);
    }
  }
}

void TextWalk::visit(RecordIndex record) {
  const RecordKind kind = store_.kind(record);
  if (kindName(kind) == nullptr) return;
  reader_.read(record, kind);
  if (!passes(kind)) return;
  reader_.fill(record, kind, row_);
  take_(row_);
}

bool TextWalk::passes(RecordKind kind) {
  const Groups& groups = reader_.groups();
  if (filter_.layer && !dxf::equalNames(win::fromUtf8(groups.layer), *filter_.layer)) return false;
  if (!filter_.tagPattern) return true;
  const bool attribute = kind == RecordKind::kAttrib || kind == RecordKind::kAttDef;
  return attribute && arx::wildcardMatch(win::fromUtf8(groups.tag), *filter_.tagPattern, true);
}

}  // namespace

void forEachText(const dxf::RecordStore& store, const dxf::Structure& structure,
                 const TextFilter& filter, const std::function<void(const TextRow&)>& take) {
  TextWalk walk(store, structure, filter, take);
  for (const bool spaces : {true, false}) {
    for (dxf::BlockNumber block = 0; block < structure.blockCount(); ++block) {
      if (structure.block(block).space == spaces) walk.visitBlock(block);
    }
  }
}

}  // namespace kovra::host
