#include "platform/arx/entities/mtext_lines.h"

#include <algorithm>

#include "platform/arx/geometry/text_metrics.h"

namespace kovra::arx {
namespace {

/// Reads the contents once from the left; the formatting codes of multi-line texts are taken apart
/// here alone.
class Reader {
 public:
  explicit Reader(std::wstring_view contents) : rest_(contents) {}

  std::vector<std::wstring> paragraphs() {
    while (!rest_.empty()) takeOne();
    lines_.push_back(std::move(line_));
    return std::move(lines_);
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
      endLine();
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
      case L'P':
      case L'X':
        endLine();
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

  void endLine() {
    lines_.push_back(std::move(line_));
    line_.clear();
  }

  std::wstring_view rest_;
  std::wstring line_;
  std::vector<std::wstring> lines_;
};

/// Appends the lines that a paragraph takes when it breaks at blanks. The blank at which it breaks
/// belongs to neither line.
void wrap(std::wstring_view paragraph, double textHeight, double width,
          std::vector<MTextLine>& lines) {
  lines.emplace_back();
  while (!paragraph.empty()) {
    const std::size_t blank = std::min(paragraph.find(L' ', 1), paragraph.size());
    std::wstring_view word = paragraph.substr(0, blank);
    double advance = lineAdvance(word) * textHeight;
    if (width > 0 && lines.back().width > 0 && lines.back().width + advance > width) {
      lines.emplace_back();
      if (word.front() == L' ') word.remove_prefix(1);
      advance = lineAdvance(word) * textHeight;
    }
    lines.back().text += word;
    lines.back().width += advance;
    paragraph.remove_prefix(blank);
  }
}

}  // namespace

std::vector<std::wstring> mtextParagraphs(std::wstring_view contents) {
  return Reader(contents).paragraphs();
}

std::vector<MTextLine> mtextLines(std::wstring_view contents, double textHeight, double width) {
  std::vector<MTextLine> lines;
  for (const std::wstring& paragraph : mtextParagraphs(contents))
    wrap(paragraph, textHeight, width, lines);
  return lines;
}

void moveEmbeddedColumns(dxf::RecordDraft& draft, const AcGeVector3d& by) {
  for (int i = 0; i < 3; ++i) {
    const std::size_t group = draft.findIn(draft.embedded(), 11 + 10 * i);
    if (group != dxf::kNoGroup)
      draft.setReal(group, draft.real(group) + by[static_cast<unsigned>(i)]);
  }
}

}  // namespace kovra::arx
