#include "platform/dxf/record_scan.h"

#include <algorithm>

#include "platform/dxf/group_format.h"

namespace kovra::dxf {

/// Takes the groups of a file in their order and builds its table of records.
class RecordScanner {
 public:
  RecordScanner(const ByteSource& source, const std::string& name, std::size_t size)
      : source_(source), file_(source(0)), name_(name) {
    // Room that isn't used costs nothing. Few drawings have shorter records.
    constexpr std::size_t kShortRecord = 64;
    out_.records.reserve(size / kShortRecord);
  }

  Result<ScannedFile> scan();

 private:
  bool waitForMore();
  std::string_view wholeLines() const;
  GroupStatus readBinary();
  GroupStatus readAscii();
  template <class Reader>
  GroupStatus read(Reader reader);
  void beginRecord(const GroupView& group);
  void endRecord(const char* end);
  void enter(RecordKind kind);
  void nameSection(std::string_view value);
  Result<void> checkEnd(GroupStatus status) const;
  Error fault(const char* place, const std::string& what) const;
  std::string excerpt(const char* place) const;
  const char* end() const { return file_.data() + file_.size(); }

  const ByteSource& source_;
  std::string_view file_;  ///< what has come of it
  std::size_t seen_ = 0;   ///< what of that had come before
  const std::string& name_;
  ScannedFile out_;
  FieldCollector collector_;
  SectionKind section_ = SectionKind::kNone;
  bool inSection_ = false;
  bool sectionNamed_ = true;  ///< false right after SECTION, until its group 2
  bool sawEof_ = false;
  bool tooLarge_ = false;
  std::string sectionName_;
  const char* position_ = nullptr;
};

namespace {

bool isStructural(RecordKind kind) {
  return kind >= RecordKind::kSection && kind <= RecordKind::kEndBlk;
}

/// The beginning of a text of the file as it can stand in a message.
std::string printable(std::string_view text) {
  constexpr std::size_t kLength = 20;
  text = trimmed(text);
  std::string out;
  for (const char c : text.substr(0, kLength)) out.push_back(c >= ' ' && c <= '~' ? c : '?');
  if (text.size() > kLength) out += "...";
  return out;
}

/// The release name that a DWG file begins with; empty for other files.
std::string_view dwgRelease(std::string_view file) {
  constexpr std::size_t kNameSize = 6;
  const std::string_view head = file.substr(0, kNameSize);
  const bool magic = head.starts_with("AC10") || head.starts_with("AC1.") ||
                     head.starts_with("AC2.") || head.starts_with("MC0.0");
  return magic && printable(head) == head ? head : std::string_view();
}

}  // namespace

Error RecordScanner::fault(const char* place, const std::string& what) const {
  const auto offset = place - file_.data();
  if (out_.dialect.binary) {
    return {ErrorKind::kBadFormat, name_ + ": byte " + std::to_string(offset) + ": " + what};
  }
  const auto line = std::count(file_.data(), place, '\n') + 1;
  return {ErrorKind::kBadFormat, name_ + ": line " + std::to_string(line) + ": " + what};
}

std::string RecordScanner::excerpt(const char* place) const {
  const std::string_view rest(place, static_cast<std::size_t>(end() - place));
  return "\"" + printable(rest.substr(0, rest.find('\n'))) + "\"";
}

void RecordScanner::nameSection(std::string_view value) {
  section_ = sectionKind(value);
  sectionName_ = printable(value);
  sectionNamed_ = true;
  out_.records.back().section = section_;
}

void RecordScanner::enter(RecordKind kind) {
  if (kind == RecordKind::kSection) {
    inSection_ = true;
    sectionNamed_ = false;
    section_ = SectionKind::kOther;
    sectionName_.clear();
  }
  out_.records.back().section = section_;
  if (kind == RecordKind::kEndSec) {
    inSection_ = false;
    section_ = SectionKind::kNone;
  }
}

void RecordScanner::beginRecord(const GroupView& group) {
  collector_.start(group.value());
  const RecordKind kind = collector_.fields().kind;
  RecordEntry entry;
  entry.setBegin(static_cast<std::uint64_t>(group.begin - file_.data()));
  entry.kind = kind;
  out_.records.push(entry);
  sectionNamed_ = true;
  enter(kind);
  if (isStructural(kind)) {
    out_.structural.push_back(static_cast<RecordIndex>(out_.records.size() - 1));
  }
  sawEof_ = kind == RecordKind::kEof;
}

void RecordScanner::endRecord(const char* end) {
  if (out_.records.size() == 0) return;
  RecordEntry& entry = out_.records.back();
  // Inside a record offsets have 32 bits.
  constexpr std::uint64_t kLargestRecord = 0xffffffff;
  const auto recordEnd = static_cast<std::uint64_t>(end - file_.data());
  tooLarge_ = recordEnd - entry.begin() > kLargestRecord ||
              recordEnd >= RecordEntry::kEndOfBegins || out_.records.size() >= kNoRecord;
  const RecordFields& fields = collector_.fields();
  entry.flags = fields.flags;
  if (fields.flags & kMarkers) out_.dialect.subclassMarkers = true;
  if (!recordsHaveHandles(entry.section)) return;
  out_.records.setHandle(out_.records.size() - 1, fields.handle);
  out_.records.setOwner(out_.records.size() - 1, fields.owner);
  out_.greatestHandle = std::max(out_.greatestHandle, fields.handle);
  if (fields.handle != 0) out_.dialect.handles = true;
  if (fields.owner != 0 && entry.section != SectionKind::kObjects) out_.dialect.owners = true;
}

/// Takes groups up to the end of the reader's text, a fault in it, or the end of the drawing.
template <class Reader>
GroupStatus RecordScanner::read(Reader reader) {
  GroupView group;
  GroupStatus status = reader.next(group);
  while (status == GroupStatus::kOk) {
    if (group.code == 0) {
      endRecord(group.begin);
      if (tooLarge_) break;
      beginRecord(group);
      if (sawEof_) break;
    } else if (out_.records.size() == 0) {
      if (group.code != 999) break;
    } else if (!sectionNamed_ && group.code == 2) {
      nameSection(group.value());
    } else {
      collector_.add(group.code, group.value());
    }
    status = reader.next(group);
  }
  const bool noRecord = status == GroupStatus::kOk && out_.records.size() == 0;
  position_ = noRecord ? group.begin : reader.position();
  return status;
}

bool RecordScanner::waitForMore() {
  seen_ = file_.size();
  file_ = source_(seen_);
  return file_.size() > seen_;
}

/// What has come from position_ on, but for a last line that may go on; empty if no new line has
/// come.
std::string_view RecordScanner::wholeLines() const {
  const std::size_t feed = file_.substr(seen_).rfind('\n');
  if (feed == std::string_view::npos) return {};
  const auto begin = static_cast<std::size_t>(position_ - file_.data());
  return file_.substr(begin, seen_ + feed + 1 - begin);
}

GroupStatus RecordScanner::readAscii() {
  position_ = file_.data() + byteOrderMark(file_).size();
  bool more = true;
  while (more) {
    const std::string_view lines = wholeLines();
    const GroupStatus status = lines.empty() ? GroupStatus::kEnd : read(AsciiReader(lines));
    if (status == GroupStatus::kOk) return status;
    more = waitForMore();
    // A group that isn't whole yet will be; of any other fault all that follows is looked at once.
    const bool open =
        status == GroupStatus::kCut || lines.empty() || position_ == lines.data() + lines.size();
    while (!open && more) more = waitForMore();
  }
  return read(AsciiReader({position_, static_cast<std::size_t>(end() - position_)}));
}

GroupStatus RecordScanner::readBinary() {
  while (waitForMore()) {
  }
  out_.dialect.binary = true;
  collector_.binary_ = true;
  const std::string_view body = file_.substr(kBinarySentinel.size());
  // The first group is 0 "SECTION": a code of two bytes shows in its second, zero byte.
  out_.dialect.wideCodes = body.size() > 1 && body[1] == '\0';
  return read(BinaryReader(body, out_.dialect.wideCodes));
}

Result<void> RecordScanner::checkEnd(GroupStatus status) const {
  if (tooLarge_) return fault(position_, "a record or their number is too large");
  if (status == GroupStatus::kBadCode) {
    return fault(position_, excerpt(position_) + " is no group code");
  }
  if (status == GroupStatus::kCut) return fault(position_, "the file ends inside a group");
  if (out_.records.size() == 0) {
    return fault(position_, "no DXF file: it doesn't begin with a record (group 0)");
  }
  if (inSection_) {
    return fault(sawEof_ ? file_.data() + out_.records[out_.records.size() - 1].begin() : position_,
                 "the file ends inside the section " + sectionName_);
  }
  const RecordEntry& last = out_.records[out_.records.size() - 1];
  const bool openLine = !out_.dialect.binary && position_ == end() && !file_.ends_with('\n');
  if (openLine && last.kind == RecordKind::kOther && last.section == SectionKind::kNone) {
    return fault(file_.data() + last.begin(), "the file ends inside a group");  // such as EO of EOF
  }
  if (out_.structural.empty() && out_.records[0].kind == RecordKind::kOther) {
    return fault(file_.data() + out_.records[0].begin(), "no DXF file: it has no section");
  }
  return {};
}

Result<ScannedFile> RecordScanner::scan() {
  while (file_.size() < kBinarySentinel.size() && waitForMore()) {
  }
  if (file_.empty()) return Error{ErrorKind::kBadFormat, name_ + ": the file is empty"};
  if (const std::string_view release = dwgRelease(file_); !release.empty()) {
    return Error{ErrorKind::kBadFormat,
                 name_ + ": a DWG file (" + std::string(release) + "), not a DXF file"};
  }
  const GroupStatus status = file_.starts_with(kBinarySentinel) ? readBinary() : readAscii();
  endRecord(position_);
  if (Result<void> end = checkEnd(status); !end) return end.error();
  out_.recordsEnd = static_cast<std::uint64_t>(position_ - file_.data());
  const std::string_view first = file_.substr(out_.records[0].begin());
  const GroupStyle style = groupStyle(out_.dialect, first);
  out_.dialect.crlf = style.crlf;
  out_.dialect.paddedCodes = style.codeWidth > 1;
  return std::move(out_);
}

Result<ScannedFile> scanRecords(const ByteSource& source, const std::string& name,
                                std::size_t size) {
  return RecordScanner(source, name, size).scan();
}

}  // namespace kovra::dxf
