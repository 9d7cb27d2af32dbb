// Answers to native message boxes, file choices and menus, given as soon as they come up.
#pragma once
#include <QObject>
#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

class QFileDialog;
class QMenu;
class QMessageBox;

namespace kovra::test {

/// Answers by clicks and keys what comes up on top, by the rules that hold for answers laid ready
/// in scripts: a box of one button takes it, one of several takes the answer laid first or counts
/// as cancelled with a failure noted.
class LaidAnswers : public QObject {
 public:
  LaidAnswers();
  ~LaidAnswers() override;

  std::deque<int> answers;
  std::deque<std::vector<std::filesystem::path>> files;
  /// The item of the menu that comes up next; taken away when it was there to be chosen.
  std::optional<std::wstring> menuItem;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void answerBox(QMessageBox& box);
  void answerFiles(QFileDialog& dialog);
  void answerMenu(QMenu& menu);
};

}  // namespace kovra::test
