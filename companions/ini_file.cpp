#include "companions/ini_file.h"

#include <algorithm>
#include <unordered_set>

#include "companions/text.h"

namespace kovra::companions {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLineBreaks{"\r\n\0", 3};  // a NUL can't be in a text either

bool hasLineBreak(std::string_view text) {
  return text.find_first_of(kLineBreaks) != std::string_view::npos;
}

bool isKey(std::string_view key) {
  return !key.empty() && trimBlanks(key) == key && !hasLineBreak(key) &&
         key.find('=') == std::string_view::npos && key[0] != '[' && key[0] != ';' && key[0] != '#';
}

// The name in a section's line: up to its last "]", unless a remark stands behind the first.
std::string_view sectionNameIn(std::string_view line) {
  const std::size_t first = line.find(']');
  const std::string_view behind = trimBlanks(line.substr(first + 1));
  const bool isRemark = !behind.ends_with(']') || behind[0] == ';' || behind[0] == '#';
  return trimBlanks(line.substr(1, (isRemark ? first : line.rfind(']')) - 1));
}

// Cuts the first line off; the end is CR LF, LF, CR or, in the last line, nothing.
std::pair<std::string_view, std::string_view> takeLine(std::string_view& rest) {
  const std::size_t length = std::min(rest.find_first_of("\r\n"), rest.size());
  const std::string_view text = rest.substr(0, length);
  rest.remove_prefix(length);
  const std::string_view end = rest.substr(0, rest.substr(0, 2) == "\r\n" ? 2 : 1);
  rest.remove_prefix(end.size());
  return {text, end};
}

}  // namespace

std::string_view IniFile::Line::name() const {
  const std::string_view line = trimBlanks(text);
  if (kind == Kind::section) return sectionNameIn(line);
  return trimBlanks(line.substr(0, line.find('=')));
}

std::string_view IniFile::Line::value() const {
  return std::string_view(text).substr(valueBegin, valueLength);
}

IniFile::IniFile(std::string_view bytes) {
  if (bytes.starts_with(kUtf8Mark)) {
    mark_ = kUtf8Mark;
    bytes.remove_prefix(kUtf8Mark.size());
  }
  while (!bytes.empty()) {
    const auto [text, end] = takeLine(bytes);
    lines_.push_back(parseLine(text, end));
  }
}

std::string IniFile::bytes() const {
  std::string bytes = mark_;
  for (const Line& line : lines_) bytes.append(line.text).append(line.end);
  return bytes;
}

IniFile::Line IniFile::parseLine(std::string_view text, std::string_view end) {
  Line line;
  line.text = text;
  line.end = end;
  const std::string_view content = trimBlanks(text);
  if (content.empty()) return line;
  if (content[0] == ';' || content[0] == '#') {
    line.kind = Kind::comment;
  } else if (content[0] == '[' && content.find(']') != std::string_view::npos) {
    line.kind = Kind::section;
    line.folded = foldCase(line.name());
  } else if (const std::size_t equals = text.find('='); equals != std::string_view::npos) {
    line.folded = foldCase(trimBlanks(text.substr(0, equals)));
    if (line.folded.empty()) return line;
    line.kind = Kind::entry;
    const std::string_view value = trimBlanks(text.substr(equals + 1));
    // An empty value stands behind the blanks.
    line.valueBegin =
        value.empty() ? text.size() : static_cast<std::size_t>(value.data() - text.data());
    line.valueLength = value.size();
  }
  return line;
}

std::vector<std::string> IniFile::sectionNames() const {
  std::vector<std::string> names;
  std::unordered_set<std::string_view> seen;
  for (const Line& line : lines_)
    if (line.kind == Kind::section && seen.insert(line.folded).second)
      names.emplace_back(line.name());
  return names;
}

std::optional<IniFile::Span> IniFile::findSection(std::string_view section, Index from) const {
  const std::string folded = foldCase(section);
  const auto isSection = [](const Line& line) { return line.kind == Kind::section; };
  const auto begin =
      std::find_if(lines_.begin() + static_cast<std::ptrdiff_t>(from), lines_.end(),
                   [&](const Line& line) { return isSection(line) && line.folded == folded; });
  if (begin == lines_.end()) return std::nullopt;
  const auto end = std::find_if(begin + 1, lines_.end(), isSection);
  return Span{static_cast<Index>(begin - lines_.begin()), static_cast<Index>(end - lines_.begin())};
}

std::optional<IniFile::Index> IniFile::findEntry(Span span, std::string_view key) const {
  const std::string folded = foldCase(key);
  for (Index i = span.begin + 1; i < span.end; ++i)
    if (lines_[i].kind == Kind::entry && lines_[i].folded == folded) return i;
  return std::nullopt;
}

bool IniFile::hasSection(std::string_view section) const {
  return findSection(section).has_value();
}

std::optional<std::string> IniFile::get(std::string_view section, std::string_view key) const {
  const std::optional<Span> span = findSection(section);
  if (!span) return std::nullopt;
  const std::optional<Index> entry = findEntry(*span, key);
  if (!entry) return std::nullopt;
  return std::string(lines_[*entry].value());
}

std::vector<std::pair<std::string, std::string>> IniFile::entries(std::string_view section) const {
  std::vector<std::pair<std::string, std::string>> found;
  const std::optional<Span> span = findSection(section);
  if (!span) return found;
  std::unordered_set<std::string_view> seen;
  for (Index i = span->begin + 1; i < span->end; ++i) {
    const Line& line = lines_[i];
    if (line.kind == Kind::entry && seen.insert(line.folded).second)
      found.emplace_back(line.name(), line.value());
  }
  return found;
}

bool IniFile::set(std::string_view section, std::string_view key, std::string_view value) {
  value = trimBlanks(value);
  if (!isSectionName(section) || !isKey(key) || hasLineBreak(value)) return false;
  std::optional<Span> span = findSection(section);
  if (!span) {
    const Index begin = appendSection(section);
    span = Span{begin, lines_.size()};
  }
  if (const std::optional<Index> entry = findEntry(*span, key)) {
    Line& line = lines_[*entry];
    if (line.value() == value) return true;
    std::string text = line.text;
    text.replace(line.valueBegin, line.valueLength, value);
    line = parseLine(text, line.end);
    return true;
  }
  Index at = span->end;
  while (at > span->begin + 1 && lines_[at - 1].kind != Kind::entry) --at;
  insertLine(at, std::string(key).append("=").append(value));
  return true;
}

bool IniFile::removeSection(std::string_view section) {
  bool removed = false;
  Index from = 0;
  while (std::optional<Span> span = findSection(section, from)) {
    if (span->end < lines_.size())
      while (span->end > span->begin + 1 && lines_[span->end - 1].kind == Kind::comment)
        --span->end;
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(span->begin),
                 lines_.begin() + static_cast<std::ptrdiff_t>(span->end));
    from = span->begin;
    removed = true;
  }
  return removed;
}

bool IniFile::isReadable(std::string_view bytes) {
  return !bytes.starts_with("\xFF\xFE") && !bytes.starts_with("\xFE\xFF") &&
         bytes.find('\0') == std::string_view::npos;
}

bool IniFile::isSectionName(std::string_view name) {
  if (name.empty() || trimBlanks(name) != name || hasLineBreak(name)) return false;
  return sectionNameIn(std::string("[").append(name).append("]")) == name;
}

IniFile::Index IniFile::appendSection(std::string_view section) {
  if (!lines_.empty() && !trimBlanks(lines_.back().text).empty()) insertLine(lines_.size(), "");
  insertLine(lines_.size(), std::string("[").append(section).append("]"));
  return lines_.size() - 1;
}

void IniFile::insertLine(Index at, std::string_view text) {
  const std::string end(lineEndNear(at));
  if (at > 0 && lines_[at - 1].end.empty()) lines_[at - 1].end = end;
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), parseLine(text, end));
}

// The line end that the lines above use, else those below, else LF.
std::string_view IniFile::lineEndNear(Index at) const {
  for (Index i = at; i > 0; --i)
    if (!lines_[i - 1].end.empty()) return lines_[i - 1].end;
  for (Index i = at; i < lines_.size(); ++i)
    if (!lines_[i].end.empty()) return lines_[i].end;
  return "\n";
}

}  // namespace kovra::companions
