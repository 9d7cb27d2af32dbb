#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kovra::win {

/// The text of a field with its selection: what typing, deleting and moving do to it. A line break
/// is a carriage return and a line feed, and the caret never stands between the two.
class EditText {
 public:
  const std::wstring& text() const { return text_; }
  std::size_t from() const { return anchor_ < caret_ ? anchor_ : caret_; }
  std::size_t to() const { return anchor_ < caret_ ? caret_ : anchor_; }
  std::size_t caret() const { return caret_; }
  std::wstring_view selected() const {
    return std::wstring_view(text_).substr(from(), to() - from());
  }

  /// What the text would be with another one in the place of the selection.
  std::wstring textWith(std::wstring_view inserted) const {
    return text_.substr(0, from()).append(inserted).append(text_, to());
  }

  /// A new text, nothing selected, the caret at its beginning, nothing to undo.
  void setText(std::wstring_view text);
  /// Selects from the anchor to the caret; both are brought into the text.
  void select(std::size_t anchor, std::size_t caret);
  /// Puts `text` in the place of the selection, the caret behind it.
  void replaceSelection(std::wstring_view text);

  /// Deletes the selection, else the character before or behind the caret; false if there is none.
  bool deleteBefore();
  bool deleteBehind();

  // Moves of the caret; with `extend` the selection grows.
  void moveLeft(bool extend);
  void moveRight(bool extend);
  void moveWordLeft(bool extend);
  void moveWordRight(bool extend);
  void moveToLineStart(bool extend);
  void moveToLineEnd(bool extend);
  void moveToStart(bool extend);
  void moveToEnd(bool extend);
  void moveUp(bool extend);
  void moveDown(bool extend);

  bool canUndo() const { return hasFormer_; }
  /// Takes the last change back; a second time brings it again.
  void undo();
  void forgetFormer() { hasFormer_ = false; }

  std::size_t lineCount() const;
  std::size_t lineOf(std::size_t position) const;
  /// Where a line begins; the text's length for a line that there isn't.
  std::size_t lineStart(std::size_t line) const;
  /// A line's text without its break.
  std::wstring_view line(std::size_t line) const;

 private:
  void moveTo(std::size_t position, bool extend);
  std::size_t before(std::size_t position) const;
  std::size_t behind(std::size_t position) const;

  std::wstring text_;
  std::size_t anchor_ = 0;
  std::size_t caret_ = 0;
  std::wstring former_;
  bool hasFormer_ = false;
};

}  // namespace kovra::win
