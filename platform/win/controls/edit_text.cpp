#include "platform/win/controls/edit_text.h"

#include <algorithm>
#include <utility>

namespace kovra::win {

void EditText::setText(std::wstring_view text) {
  text_ = text;
  anchor_ = caret_ = 0;
  hasFormer_ = false;
}

void EditText::select(std::size_t anchor, std::size_t caret) {
  anchor_ = std::min(anchor, text_.size());
  caret_ = std::min(caret, text_.size());
}

void EditText::replaceSelection(std::wstring_view text) {
  const std::wstring inserted(text);  // it may be a piece of this very text
  former_ = text_;
  hasFormer_ = true;
  const std::size_t start = from();
  text_.replace(start, to() - start, inserted);
  anchor_ = caret_ = start + inserted.size();
}

std::size_t EditText::before(std::size_t position) const {
  if (position >= 2 && text_[position - 1] == L'\n' && text_[position - 2] == L'\r') {
    return position - 2;
  }
  return position > 0 ? position - 1 : 0;
}

std::size_t EditText::behind(std::size_t position) const {
  if (position + 1 < text_.size() && text_[position] == L'\r' && text_[position + 1] == L'\n') {
    return position + 2;
  }
  return std::min(position + 1, text_.size());
}

bool EditText::deleteBefore() {
  if (from() == to()) anchor_ = before(caret_);
  if (from() == to()) return false;
  replaceSelection({});
  return true;
}

bool EditText::deleteBehind() {
  if (from() == to()) anchor_ = behind(caret_);
  if (from() == to()) return false;
  replaceSelection({});
  return true;
}

void EditText::moveTo(std::size_t position, bool extend) {
  caret_ = std::min(position, text_.size());
  if (!extend) anchor_ = caret_;
}

void EditText::moveLeft(bool extend) {
  moveTo(!extend && from() != to() ? from() : before(caret_), extend);
}

void EditText::moveRight(bool extend) {
  moveTo(!extend && from() != to() ? to() : behind(caret_), extend);
}

void EditText::moveWordLeft(bool extend) {
  const auto blankBefore = [this](std::size_t p) { return text_[p - 1] == L' '; };
  std::size_t position = before(caret_);
  while (position > 0 && text_[position] == L' ') --position;
  while (position > 0 && !blankBefore(position) && text_[position - 1] != L'\n') --position;
  moveTo(position, extend);
}

void EditText::moveWordRight(bool extend) {
  std::size_t position = behind(caret_);
  while (position < text_.size() && text_[position] != L' ' && text_[position - 1] != L'\n') {
    ++position;
  }
  while (position < text_.size() && text_[position] == L' ') ++position;
  moveTo(position, extend);
}

void EditText::moveToLineStart(bool extend) {
  moveTo(lineStart(lineOf(caret_)), extend);
}

void EditText::moveToLineEnd(bool extend) {
  const std::size_t number = lineOf(caret_);
  moveTo(lineStart(number) + line(number).size(), extend);
}

void EditText::moveToStart(bool extend) {
  moveTo(0, extend);
}
void EditText::moveToEnd(bool extend) {
  moveTo(text_.size(), extend);
}

void EditText::moveUp(bool extend) {
  const std::size_t number = lineOf(caret_);
  if (number == 0) return;
  const std::size_t column = caret_ - lineStart(number);
  moveTo(lineStart(number - 1) + std::min(column, line(number - 1).size()), extend);
}

void EditText::moveDown(bool extend) {
  const std::size_t number = lineOf(caret_);
  if (number + 1 >= lineCount()) return;
  const std::size_t column = caret_ - lineStart(number);
  moveTo(lineStart(number + 1) + std::min(column, line(number + 1).size()), extend);
}

void EditText::undo() {
  if (!hasFormer_) return;
  std::swap(text_, former_);
  anchor_ = 0;
  caret_ = text_.size();
}

std::size_t EditText::lineCount() const {
  return static_cast<std::size_t>(std::count(text_.begin(), text_.end(), L'\n')) + 1;
}

std::size_t EditText::lineOf(std::size_t position) const {
  const auto end = text_.begin() + static_cast<std::ptrdiff_t>(std::min(position, text_.size()));
  return static_cast<std::size_t>(std::count(text_.begin(), end, L'\n'));
}

std::size_t EditText::lineStart(std::size_t line) const {
  std::size_t position = 0;
  for (; line > 0; --line) {
    const std::size_t end = text_.find(L'\n', position);
    if (end == std::wstring::npos) return text_.size();
    position = end + 1;
  }
  return position;
}

std::wstring_view EditText::line(std::size_t number) const {
  const std::size_t start = lineStart(number);
  std::wstring_view rest = std::wstring_view(text_).substr(start);
  rest = rest.substr(0, rest.find(L'\n'));
  if (rest.ends_with(L'\r')) rest.remove_suffix(1);
  return rest;
}

}  // namespace kovra::win
