// A user's hands on native widgets.
#pragma once
#include <QPoint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/lines/user_hands.h"
#include "platform/win/base/interaction.h"

class QWidget;

namespace kovra::desktop {
class MainWindow;
}

namespace kovra::test {

class LaidAnswers;

/// Plays what script lines do as clicks and keys on the widgets of a main window. What a user
/// couldn't do there goes to the platform, which refuses it with the reason. After each line all
/// widgets are compared with their windows in memory.
class NativeHands : public host::UserHands {
 public:
  /// `transcript`: where the transcript goes, which the window would take for itself; may be empty.
  explicit NativeHands(win::Interaction::TextSink transcript);
  ~NativeHands() override;

  bool goOn() override;

  win::InputResult clickControl(HWND control) override;
  win::InputResult pressArrow(HWND control, bool up) override;
  win::InputResult chooseItem(HWND control, std::wstring_view text) override;
  win::InputResult chooseIndex(HWND control, int index) override;
  win::InputResult clickItemCheck(HWND control, int index) override;
  win::InputResult placeCaret(HWND control, int from, int to) override;
  win::InputResult focusControl(HWND control) override;
  win::InputResult typeOver(HWND control, std::wstring_view text) override;
  win::InputResult typeCharacters(std::wstring_view text) override;
  win::InputResult pressKey(HWND control, win::Keystroke key) override;
  win::InputResult pressKeyInDialog(HWND dialog, win::Keystroke key) override;
  win::InputResult editCell(HWND table, win::TableState::Cell cell,
                            std::wstring_view text) override;
  win::InputResult selectCells(HWND table, win::TableState::Cell first,
                               win::TableState::Cell last) override;
  win::InputResult chooseFromMenu(HWND control, std::wstring_view item) override;
  win::InputResult pressCloseBox(HWND dialog) override;
  win::InputResult moveDialog(HWND dialog, int x, int y) override;
  win::InputResult sizeDialog(HWND dialog, int width, int height) override;
  win::InputResult minimizeDialog(HWND dialog) override;

  Result<void> typeText(std::wstring_view characters) override;
  Result<void> clickPoint(arx::host::PickPoint point) override;
  Result<void> moveCursor(arx::host::PickPoint point) override;

  void layAnswer(int button) override;
  void layFiles(std::vector<std::filesystem::path> files) override;
  std::size_t answersLeft() const override;
  std::size_t filesLeft() const override;

  /// What was wrong with widgets, a line for each.
  const std::vector<std::string>& faults() const { return faults_; }
  /// How often each act was done: "click" by hand, "(point)" by the platform in its place.
  const std::map<std::string, int>& counts() const { return counts_; }

 private:
  class AfterTheLines;

  QWidget* usableWidget(HWND window);
  std::optional<QPoint> pixelOf(arx::host::PickPoint point);
  QWidget* commandInput(std::wstring_view line);
  void showAll();
  win::InputResult played(const char* what);
  win::InputResult refusal(const char* what, win::InputResult result);
  win::InputResult instead(const char* what, win::InputResult result);
  void note(const std::string& what);
  bool clickItem(QWidget* widget, int index);
  bool enterField(HWND control);
  void selectField();
  win::InputResult typeWatched(std::wstring_view text);
  void compare();

  win::Interaction::TextSink transcript_;
  std::unique_ptr<desktop::MainWindow> window_;
  std::unique_ptr<LaidAnswers> laid_;
  std::unique_ptr<AfterTheLines> afterTheLines_;
  std::string refused_;  ///< why the first act since the last line was refused
  std::string last_;     ///< what was played last
  bool changed_ = true;  ///< since the last comparison
  std::vector<std::string> faults_;
  std::map<std::string, int> counts_;
};

}  // namespace kovra::test
