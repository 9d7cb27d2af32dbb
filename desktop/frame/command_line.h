// The transcript and the line that is typed.
#pragma once
#include <QWidget>
#include <string_view>
#include <vector>

class QCompleter;
class QHBoxLayout;
class QKeyEvent;
class QLabel;
class QPlainTextEdit;

namespace kovra::desktop {

/// Shows what the command line said, the prompt, its keywords as buttons, and takes what is typed.
/// Enter ends a line; so does a blank, where the prompt takes no text with blanks. Tab completes.
class CommandLine : public QWidget {
 public:
  explicit CommandLine(QWidget* parent);
  ~CommandLine() override;

  /// Text as the editor prints it.
  void show(std::string_view utf8);
  /// The prompt and its keywords; before each wait.
  void refresh();
  /// A key that was pressed elsewhere in the main window. True if it was one for this line.
  bool takeKey(QKeyEvent* event);

 private:
  class Input;
  void submit();
  void cancel();
  bool handleKey(QKeyEvent* event);
  void recall(int step);
  void complete();
  void offer(const QString& before, const QStringList& names);
  void showKeywords(const std::vector<std::wstring>& keywords, const QString& prompt);

  QPlainTextEdit* transcript_ = nullptr;
  QLabel* prompt_ = nullptr;
  Input* input_ = nullptr;
  QWidget* keywordBar_ = nullptr;
  QHBoxLayout* keywordRow_ = nullptr;
  std::string unfinished_;  // the transcript's last line, as far as it was printed
  std::vector<std::wstring> keywords_;
  QString keywordsOf_;  // the prompt that they were shown for
  QCompleter* offers_ = nullptr;
  QString beforeOffers_;  // the line up to what is offered
  QStringList history_;
  qsizetype recalled_ = 0;
  bool takesBlanks_ = false;
};

}  // namespace kovra::desktop
