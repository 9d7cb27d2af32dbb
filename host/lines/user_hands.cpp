#include "host/lines/user_hands.h"

#include "platform/win/base/interaction.h"

namespace kovra::host {

win::InputResult UserHands::clickControl(HWND control) {
  return win::clickControl(control);
}

win::InputResult UserHands::pressArrow(HWND control, bool up) {
  return win::pressArrow(control, up);
}

win::InputResult UserHands::chooseItem(HWND control, std::wstring_view text) {
  return win::chooseItem(control, text);
}

win::InputResult UserHands::chooseIndex(HWND control, int index) {
  return win::chooseIndex(control, index);
}

win::InputResult UserHands::clickItemCheck(HWND control, int index) {
  return win::clickItemCheck(control, index);
}

win::InputResult UserHands::placeCaret(HWND control, int from, int to) {
  return win::placeCaret(control, from, to);
}

win::InputResult UserHands::focusControl(HWND control) {
  return win::focusControl(control);
}

win::InputResult UserHands::typeOver(HWND control, std::wstring_view text) {
  return win::typeOver(control, text);
}

win::InputResult UserHands::typeCharacters(std::wstring_view text) {
  return win::typeCharacters(text);
}

win::InputResult UserHands::pressKey(HWND control, win::Keystroke key) {
  return win::pressKey(control, key);
}

win::InputResult UserHands::pressKeyInDialog(HWND dialog, win::Keystroke key) {
  return win::pressKeyInDialog(dialog, key);
}

win::InputResult UserHands::editCell(HWND table, win::TableState::Cell cell,
                                     std::wstring_view text) {
  return win::editCell(table, cell, text);
}

win::InputResult UserHands::selectCells(HWND table, win::TableState::Cell first,
                                        win::TableState::Cell last) {
  return win::selectCells(table, first, last);
}

win::InputResult UserHands::chooseFromMenu(HWND control, std::wstring_view item) {
  return win::chooseFromMenu(control, item);
}

win::InputResult UserHands::pressCloseBox(HWND dialog) {
  return win::pressCloseBox(dialog);
}

win::InputResult UserHands::moveDialog(HWND dialog, int x, int y) {
  return win::moveDialog(dialog, x, y);
}

win::InputResult UserHands::sizeDialog(HWND dialog, int width, int height) {
  return win::sizeDialog(dialog, width, height);
}

win::InputResult UserHands::minimizeDialog(HWND dialog) {
  return win::minimizeDialog(dialog);
}

Result<void> UserHands::typeText(std::wstring_view characters) {
  return arx::host::typeText(characters);
}

Result<void> UserHands::clickPoint(arx::host::PickPoint point) {
  return arx::host::clickPoint(point);
}

Result<void> UserHands::moveCursor(arx::host::PickPoint point) {
  return arx::host::moveCursor(point);
}

Result<void> UserHands::pickEntity(std::uint64_t handle) {
  return arx::host::pickEntity(handle);
}

Result<void> UserHands::select(const arx::host::SelectionInput& input) {
  return arx::host::select(input);
}

Result<void> UserHands::preselect(const arx::host::SelectionInput& input) {
  return arx::host::preselect(input);
}

void UserHands::layAnswer(int button) {
  win::interaction().queueAnswer(button);
}

void UserHands::layFiles(std::vector<std::filesystem::path> files) {
  win::interaction().queueFiles(std::move(files));
}

std::size_t UserHands::answersLeft() const {
  return win::interaction().queuedAnswers();
}

std::size_t UserHands::filesLeft() const {
  return win::interaction().queuedFiles();
}

}  // namespace kovra::host
