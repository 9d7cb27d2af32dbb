#pragma once

#include <histedit.h>

#include <memory>
#include <string>

#include "host/program/line_source.h"
#include "launch/completion.h"

namespace kovra::host {

/// A person at a terminal: line editing, completion with Tab and history, the prompt of what waits
/// in front of the line.
/// Ctrl+C cancels, Ctrl+D ends the input; with unsaved changes only the second time.
/// Message boxes with several buttons are asked there. The history is kept from run to run beside
/// the user's dialog store; where it can't be, it lasts for the run.
class Terminal : public LineSource {
 public:
  Terminal(bool savesAtEnd, launch::Completer complete);
  ~Terminal() override;
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  std::optional<InputLine> next() override;

 private:
  std::optional<std::string> readLine(const std::string& prompt);
  bool warnOfChanges();
  int askBox(const std::vector<int>& buttons);
  void loadHistory();
  void remember(const std::string& line);
  static char* promptOf(EditLine* editor);
  static unsigned char cancelKey(EditLine* editor, int key);
  static unsigned char completeKey(EditLine* editor, int key);

  struct EndEditor {
    void operator()(EditLine* editor) const { el_end(editor); }
  };
  struct EndHistory {
    void operator()(History* history) const { history_end(history); }
  };

  std::unique_ptr<History, EndHistory> history_;
  std::unique_ptr<EditLine, EndEditor> editor_;
  std::string historyFile_;  // empty: there is no place for one
  std::string prompt_;
  launch::Completer complete_;
  bool cancelled_ = false;
  bool askingBox_ = false;
  bool warned_;
};

}  // namespace kovra::host
