#include "companions/ini_file.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

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

void IniFile::Section::add(Line line) {
  lines.push_back(std::move(line));
  const Line& added = lines.back();
  if (added.kind == Kind::section) folded = added.folded;
  if (added.kind == Kind::entry) entries.emplace(added.folded, lines.size() - 1);
  if (added.kind == Kind::section || added.kind == Kind::entry) end = lines.size();
}

std::size_t IniFile::Section::find(std::string_view key) const {
  const auto found = entries.find(foldCase(key));
  return found != entries.end() ? found->second : 0;
}

IniFile::IniFile(std::string_view bytes) {
  if (bytes.starts_with(kUtf8Mark)) {
    mark_ = kUtf8Mark;
    bytes.remove_prefix(kUtf8Mark.size());
  }
  while (!bytes.empty()) {
    const auto [text, end] = takeLine(bytes);
    Line line = parseLine(text, end);
    if (line.kind == Kind::section) sections_.emplace_back();
    sections_.back().add(std::move(line));
  }
}

std::string IniFile::bytes() const {
  std::string bytes = mark_;
  for (const Section& section : sections_)
    for (const Line& line : section.lines) bytes.append(line.text).append(line.end);
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
  for (std::size_t i = 1; i < sections_.size(); ++i)
    if (seen.insert(sections_[i].folded).second)
      names.emplace_back(sections_[i].lines.front().name());
  return names;
}

std::size_t IniFile::findSection(std::string_view section) const {
  const std::string folded = foldCase(section);
  for (std::size_t i = 1; i < sections_.size(); ++i)
    if (sections_[i].folded == folded) return i;
  return 0;
}

bool IniFile::hasSection(std::string_view section) const {
  return findSection(section) != 0;
}

std::optional<std::string> IniFile::get(std::string_view section, std::string_view key) const {
  const std::size_t index = findSection(section);
  const std::size_t entry = index != 0 ? sections_[index].find(key) : 0;
  if (entry == 0) return std::nullopt;
  return std::string(sections_[index].lines[entry].value());
}

std::vector<std::pair<std::string, std::string>> IniFile::entries(std::string_view section) const {
  std::vector<std::pair<std::string, std::string>> found;
  const std::size_t index = findSection(section);
  if (index == 0) return found;
  std::unordered_set<std::string_view> seen;
  for (const Line& line : sections_[index].lines)
    if (line.kind == Kind::entry && seen.insert(line.folded).second)
      found.emplace_back(line.name(), line.value());
  return found;
}

bool IniFile::set(std::string_view section, std::string_view key, std::string_view value) {
  value = trimBlanks(value);
  if (!isSectionName(section) || !isKey(key) || hasLineBreak(value)) return false;
  if (!hasSection(section)) appendSection(section);
  Section& found = sections_[findSection(section)];
  const std::size_t entry = found.find(key);
  if (entry == 0) {
    addKey(found, std::string(key).append("=").append(value));
    return true;
  }
  Line& line = found.lines[entry];
  if (line.value() == value) return true;
  std::string text = line.text;
  text.replace(line.valueBegin, line.valueLength, value);
  line = parseLine(text, line.end);
  return true;
}

bool IniFile::removeSection(std::string_view section) {
  const std::string folded = foldCase(section);
  bool removed = false;
  for (std::size_t i = 1; i < sections_.size();) {
    if (sections_[i].folded != folded) {
      ++i;
      continue;
    }
    // Comments above the next section go to the one before.
    std::vector<Line>& lines = sections_[i].lines;
    auto kept = lines.end();
    if (i + 1 < sections_.size())
      while (kept != lines.begin() + 1 && (kept - 1)->kind == Kind::comment) --kept;
    for (; kept != lines.end(); ++kept) sections_[i - 1].add(std::move(*kept));
    sections_.erase(sections_.begin() + static_cast<std::ptrdiff_t>(i));
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

void IniFile::appendSection(std::string_view section) {
  const auto append = [this](Section& to, std::string_view text) {
    const std::string end(lineEndNear(sections_.back(), sections_.back().lines.size()));
    for (auto each = sections_.rbegin(); each != sections_.rend(); ++each) {
      if (each->lines.empty()) continue;
      if (each->lines.back().end.empty()) each->lines.back().end = end;
      break;
    }
    to.add(parseLine(text, end));
  };
  Section& last = sections_.back();
  if (!last.lines.empty() && !trimBlanks(last.lines.back().text).empty()) append(last, "");
  Section added;
  append(added, std::string("[").append(section).append("]"));
  sections_.push_back(std::move(added));
}

/// Behind the last key; what stands below, comments and blank lines, moves down.
void IniFile::addKey(Section& section, std::string_view text) {
  const std::size_t at = section.end;
  const std::string end(lineEndNear(section, at));
  if (section.lines[at - 1].end.empty()) section.lines[at - 1].end = end;
  Line line = parseLine(text, end);
  section.entries.emplace(line.folded, at);
  section.lines.insert(section.lines.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
  section.end = at + 1;
}

// The line end that the lines above use, else those below, else LF.
std::string_view IniFile::lineEndNear(const Section& section, std::size_t at) const {
  for (std::size_t i = at; i > 0; --i)
    if (!section.lines[i - 1].end.empty()) return section.lines[i - 1].end;
  std::string_view found;
  bool above = true;
  for (const Section& each : sections_) {
    above = above && &each != &section;
    for (const Line& line : each.lines) {
      if (!line.end.empty() && (above || found.empty())) found = line.end;
    }
  }
  return found.empty() ? "\n" : found;
}

}  // namespace kovra::companions
