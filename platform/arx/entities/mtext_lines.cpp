#include "platform/arx/entities/mtext_lines.h"

#include <algorithm>

#include "platform/arx/geometry/text_metrics.h"

namespace kovra::arx {
namespace {

/// Reads the contents paragraph by paragraph; the formatting codes of multi-line texts are taken
/// apart here alone.
class Reader {
 public:
  explicit Reader(std::wstring_view contents) : rest_(contents) {}

  /// False behind the last one; there is at least one. `newColumn`: it begins a column.
  bool next(std::wstring& paragraph, bool& newColumn) {
    if (done_) return false;
    line_.clear();
    newColumn = endedColumn_;
    endedLine_ = endedColumn_ = false;
    while (!rest_.empty() && !endedLine_) takeOne();
    done_ = !endedLine_;
    paragraph = line_;
    return true;
  }

 private:
  void takeOne() {
    const wchar_t c = rest_.front();
    rest_.remove_prefix(1);
    if (c == L'\\' && !rest_.empty()) {
      takeCode();
    } else if (c == L'^' && !rest_.empty()) {
      takeCaret();
    } else if (c != L'{' && c != L'}') {
      line_ += c;
    }
  }

  void takeCaret() {
    const wchar_t c = rest_.front();
    rest_.remove_prefix(1);
    if (c == L'J') {
      endedLine_ = true;
    } else if (c == L'I') {
      line_ += L'\t';
    } else if (c == L' ') {
      line_ += L'^';
    }
  }

  void takeCode() {
    const wchar_t c = rest_.front();
    rest_.remove_prefix(1);
    switch (c) {
      case L'N':
        endedColumn_ = true;
        [[fallthrough]];
      case L'P':
      case L'X':
        endedLine_ = true;
        break;
      case L'~':
        line_ += L' ';
        break;
      case L'\\':
      case L'{':
      case L'}':
        line_ += c;
        break;
      case L'S':
        for (const wchar_t part : argument()) line_ += part == L'^' || part == L'#' ? L'/' : part;
        break;
      case L'A':
      case L'C':
      case L'c':
      case L'F':
      case L'f':
      case L'H':
      case L'p':
      case L'Q':
      case L'T':
      case L'W':
        argument();
        break;
      default:
        break;  // switches such as \L and \l
    }
  }

  /// Up to the semicolon that ends a code's argument.
  std::wstring_view argument() {
    const std::size_t end = std::min(rest_.find(L';'), rest_.size());
    const std::wstring_view result = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return result;
  }

  std::wstring_view rest_;
  std::wstring line_;
  bool endedLine_ = false;
  bool endedColumn_ = false;
  bool done_ = false;
};

/// Appends the lines that a paragraph takes when it breaks at blanks. The blanks at which it breaks
/// belong to neither line.
void wrap(std::wstring_view paragraph, double textHeight, double width,
          std::vector<MTextLine>& lines) {
  lines.emplace_back();
  while (!paragraph.empty()) {
    const std::size_t begin = std::min(paragraph.find_first_not_of(L' '), paragraph.size());
    const std::size_t end = std::min(paragraph.find(L' ', begin), paragraph.size());
    std::wstring_view word = paragraph.substr(0, end);  // with the blanks before it
    paragraph.remove_prefix(end);
    double advance = lineAdvance(word) * textHeight;
    if (width > 0 && lines.back().width > 0 && lines.back().width + advance > width) {
      word.remove_prefix(begin);
      if (word.empty()) return;
      lines.emplace_back();
      advance = lineAdvance(word) * textHeight;
    }
    lines.back().text += word;
    lines.back().width += advance;
  }
}

/// Fills columns one after another. Gives the first line of each, with the number of lines behind
/// the last; the lines get their base below the top, the layout its height.
std::vector<std::size_t> columnBegins(MTextLayout& layout,
                                      const std::optional<MTextColumns>& columns, double lineStep) {
  std::vector<std::size_t> begins = {0};
  for (std::size_t i = 0; i < layout.lines.size(); ++i) {
    MTextLine& line = layout.lines[i];
    const auto depth = [&] {
      return layout.textHeight + static_cast<double>(i - begins.back()) * lineStep;
    };
    const std::size_t column = begins.size() - 1;
    if (columns && i > begins.back() && !columns->isLast(column) &&
        (line.newColumn || columns->isPast(column, depth())))
      begins.push_back(i);
    line.base = -depth();
    layout.height = std::max(layout.height, depth());
  }
  begins.push_back(layout.lines.size());
  return begins;
}

/// A word that is longer than its column reaches out of it, and perhaps out of the box.
void takeInOverhang(MTextLayout& layout) {
  double left = layout.left;
  double right = layout.left + layout.width;
  for (const MTextLine& line : layout.lines) {
    left = std::min(left, line.left);
    right = std::max(right, line.left + line.width);
  }
  layout.left = left;
  layout.width = right - left;
}

}  // namespace

std::vector<MTextLine> mtextLines(std::wstring_view contents, double textHeight, double width) {
  std::vector<MTextLine> lines;
  Reader reader(contents);
  std::wstring paragraph;
  bool newColumn = false;
  while (reader.next(paragraph, newColumn)) {
    const std::size_t first = lines.size();
    wrap(paragraph, textHeight, width, lines);
    lines[first].newColumn = newColumn;
  }
  return lines;
}

void placeLines(MTextLayout& layout, const std::optional<MTextColumns>& columns, double lineStep,
                double leftShare, double belowShare) {
  const std::vector<std::size_t> begins = columnBegins(layout, columns, lineStep);
  const std::size_t count = std::max(begins.size() - 1, columns ? columns->count : 0);
  MTextColumns place = columns.value_or(MTextColumns{});
  if (count == 1) {
    place = {};
    for (const MTextLine& line : layout.lines) place.width = std::max(place.width, line.width);
  }
  layout.width = place.widthOf(count);
  layout.left = -layout.width * leftShare;
  layout.top = layout.height * belowShare;
  for (std::size_t column = 0; column + 1 < begins.size(); ++column) {
    const double edge = layout.left + place.leftOf(column, count);
    for (std::size_t i = begins[column]; i < begins[column + 1]; ++i) {
      MTextLine& line = layout.lines[i];
      line.left = edge + (place.width - line.width) * leftShare;
      line.base += layout.top;
    }
  }
  if (count > 1) takeInOverhang(layout);
}

void moveEmbedded(dxf::RecordDraft& draft, const AcGePoint3d& from, const AcGePoint3d& to) {
  for (unsigned i = 0; i < 3; ++i) {
    const std::size_t group = draft.findIn(draft.embedded(), 11 + 10 * static_cast<int>(i));
    if (group == dxf::kNoGroup) continue;
    // An equal place stays equal to the last digit.
    const double present = draft.real(group);
    draft.setReal(group, present == from[i] ? to[i] : present + (to[i] - from[i]));
  }
}

void turnEmbedded(dxf::RecordDraft& draft, const AcGeVector3d& along) {
  for (unsigned i = 0; i < 3; ++i) {
    const std::size_t group = draft.findIn(draft.embedded(), 10 + 10 * static_cast<int>(i));
    if (group != dxf::kNoGroup) draft.setReal(group, along[i]);
  }
}

void attachEmbedded(dxf::RecordDraft& draft, int attachment) {
  const std::size_t group = draft.findIn(draft.embedded(), 70);
  if (group != dxf::kNoGroup) draft.setInteger(group, attachment);
}

}  // namespace kovra::arx
