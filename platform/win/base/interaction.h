#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kovra::win {

/// A message box as it is shown.
struct MessageBoxRequest {
  std::wstring caption;
  std::wstring text;
  unsigned style = 0;        ///< MB_ flags
  std::vector<int> buttons;  ///< IDOK ..., in the order shown
};

/// Name of a message box button as scripts spell it ("ok", "yes", "no", "cancel", "retry",
/// "abort", "ignore"), and back; null and 0 for anything else.
const char* answerName(int button);
int answerButton(std::string_view name);

/// What goes back and forth between this run and its user beside drawings and windows: the
/// transcript, answers that were queued ahead, the clipboard.
class Interaction {
 public:
  using TextSink = std::function<void(std::string_view utf8)>;
  using BoxAsker = std::function<int(const MessageBoxRequest&)>;
  using FileChooser = std::function<std::vector<std::filesystem::path>()>;

  // The transcript.
  /// Where the transcript goes; without a sink it is dropped.
  void setTranscript(TextSink sink) { sink_ = std::move(sink); }
  /// Shows text as the command line does: no line end is added.
  void print(std::wstring_view text);
  void print(std::string_view utf8);
  /// Ends the transcript's line unless it is at the beginning of one.
  void freshLine();

  // Message boxes.
  /// Queues the button that answers the next box.
  void queueAnswer(int button) { answers_.push_back(button); }
  std::size_t queuedAnswers() const { return answers_.size(); }
  void clearAnswers() { answers_.clear(); }
  /// Someone to ask when nothing is queued (a terminal, a desktop); without one the rules for
  /// scripts hold. With `notices` also when there is one button only.
  void setBoxAsker(BoxAsker asker, bool notices = false) {
    asker_ = std::move(asker);
    showsNotices_ = notices;
  }
  /// Shows the box in the transcript and gives the button pressed. One button: it, and a queued
  /// answer only if it names that button. Several: the queued answer; without a fitting one cancel,
  /// else no, else the last button, and a failure is noted.
  int answerBox(const MessageBoxRequest& box);

  // File choices.
  /// Queues the answer to the next file choice; no files: the choice is cancelled.
  void queueFiles(std::vector<std::filesystem::path> files) { files_.push_back(std::move(files)); }
  std::size_t queuedFiles() const { return files_.size(); }
  void clearFiles() { files_.clear(); }
  /// Someone to ask when nothing is queued; empty when cancelled.
  void setFileChooser(FileChooser chooser) { chooser_ = std::move(chooser); }
  /// The files chosen; empty when cancelled. With nobody to ask and nothing queued it counts as
  /// cancelled and a failure is noted.
  std::vector<std::filesystem::path> chooseFiles();

  // The clipboard.
  const std::optional<std::wstring>& clipboard() const { return clipboard_; }
  void setClipboard(std::optional<std::wstring> text) { clipboard_ = std::move(text); }

  // Failures of the input line in progress.
  /// Notes why the line in progress can't count as carried out; the first one stays.
  void noteFailure(std::string message);
  /// Hands over and clears what was noted.
  std::optional<std::string> takeFailure();

 private:
  int chooseButton(const MessageBoxRequest& box);
  int unansweredButton(const MessageBoxRequest& box) const;

  TextSink sink_;
  BoxAsker asker_;
  bool showsNotices_ = false;
  FileChooser chooser_;
  bool lineBegun_ = false;
  std::deque<int> answers_;
  std::deque<std::vector<std::filesystem::path>> files_;
  std::optional<std::wstring> clipboard_;
  std::optional<std::string> failure_;
};

Interaction& interaction();

}  // namespace kovra::win
