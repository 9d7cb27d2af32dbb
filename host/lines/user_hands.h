#pragma once

#include <cstddef>
#include <filesystem>
#include <string_view>
#include <vector>

#include "platform/arx/editor/host_api.h"
#include "platform/win/desktop/table_input.h"
#include "platform/win/desktop/user_input.h"

namespace kovra::host {

/// What lines do with windows and in the drawing: here straight to the functions of the platform
/// that are named alike, which say what each does and refuses. A program with native widgets plays
/// the same lines with hands of its own, which press its widgets and keys.
class UserHands {
 public:
  UserHands() = default;
  virtual ~UserHands() = default;
  UserHands(const UserHands&) = delete;
  UserHands& operator=(const UserHands&) = delete;

  /// Called with everything at rest, before a line goes on or the next is read. True when something
  /// of what was begun was done now, which the pump then sees through first.
  virtual bool goOn() { return false; }

  // Dialogs and their controls.
  virtual win::InputResult clickControl(HWND control);
  virtual win::InputResult pressArrow(HWND control, bool up);
  virtual win::InputResult chooseItem(HWND control, std::wstring_view text);
  virtual win::InputResult chooseIndex(HWND control, int index);
  virtual win::InputResult clickItemCheck(HWND control, int index);
  virtual win::InputResult placeCaret(HWND control, int from, int to);
  virtual win::InputResult focusControl(HWND control);
  virtual win::InputResult typeOver(HWND control, std::wstring_view text);
  virtual win::InputResult typeCharacters(std::wstring_view text);
  virtual win::InputResult pressKey(HWND control, win::Keystroke key);
  virtual win::InputResult pressKeyInDialog(HWND dialog, win::Keystroke key);
  virtual win::InputResult editCell(HWND table, win::TableState::Cell cell, std::wstring_view text);
  virtual win::InputResult selectCells(HWND table, win::TableState::Cell first,
                                       win::TableState::Cell last);
  virtual win::InputResult chooseFromMenu(HWND control, std::wstring_view item);
  virtual win::InputResult pressCloseBox(HWND dialog);
  virtual win::InputResult moveDialog(HWND dialog, int x, int y);
  virtual win::InputResult sizeDialog(HWND dialog, int width, int height);
  virtual win::InputResult minimizeDialog(HWND dialog);

  // The drawing and its command line.
  virtual Result<void> typeText(std::wstring_view characters);
  virtual Result<void> clickPoint(arx::host::PickPoint point);
  virtual Result<void> moveCursor(arx::host::PickPoint point);
  virtual Result<void> pickEntity(std::uint64_t handle);
  virtual Result<void> select(const arx::host::SelectionInput& input);
  virtual Result<void> preselect(const arx::host::SelectionInput& input);

  // Answers laid ready for what comes up later.
  virtual void layAnswer(int button);
  virtual void layFiles(std::vector<std::filesystem::path> files);
  virtual std::size_t answersLeft() const;
  virtual std::size_t filesLeft() const;
};

}  // namespace kovra::host
