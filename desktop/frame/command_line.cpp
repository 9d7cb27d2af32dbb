#include "desktop/frame/command_line.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "desktop/frame/captions.h"
#include "desktop/loop/input_queue.h"
#include "desktop/loop/texts.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/interaction.h"

namespace kovra::desktop {
namespace {

constexpr int kMostLines = 5000;
constexpr qsizetype kMostHistory = 1000;

void typeLater(const std::wstring& characters) {
  inputQueue().add([characters] {
    const Result<void> typed = arx::host::typeText(characters);
    if (typed) return;
    win::interaction().freshLine();
    win::interaction().print(typed.error().message + "\n");
  });
}

/// Of a prompt with line breaks the last line.
QString lastLine(const std::wstring& prompt) {
  return toQt(prompt).section(QLatin1Char('\n'), -1).trimmed();
}

}  // namespace

/// The line; keys go to its owner first.
class CommandLine::Input : public QLineEdit {
 public:
  explicit Input(CommandLine* owner) : QLineEdit(owner), owner_(owner) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (!owner_->handleKey(event)) QLineEdit::keyPressEvent(event);
  }
  bool event(QEvent* event) override {
    // With nothing typed, keys such as Ctrl+Z, Ctrl+A and Delete mean the drawing.
    if (event->type() == QEvent::ShortcutOverride && text().isEmpty()) {
      event->ignore();
      return true;
    }
    return QLineEdit::event(event);
  }

 private:
  CommandLine* owner_;
};

CommandLine::CommandLine(QWidget* parent) : QWidget(parent) {
  transcript_ = new QPlainTextEdit(this);
  transcript_->setReadOnly(true);
  transcript_->setMaximumBlockCount(kMostLines);
  transcript_->setUndoRedoEnabled(false);
  transcript_->setAccessibleName(say(Caption::kCommandLine));
  prompt_ = new QLabel(this);
  prompt_->setTextFormat(Qt::PlainText);
  prompt_->setObjectName(QStringLiteral("prompt"));
  input_ = new Input(this);
  input_->setObjectName(QStringLiteral("commandInput"));
  input_->setPlaceholderText(say(Caption::kTypeHere));
  input_->setAccessibleName(say(Caption::kCommandLine));
  keywordBar_ = new QWidget(this);
  keywordRow_ = new QHBoxLayout(keywordBar_);
  keywordRow_->setContentsMargins(0, 0, 0, 0);
  auto* row = new QHBoxLayout;
  row->addWidget(prompt_);
  row->addWidget(input_, 1);
  row->addWidget(keywordBar_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 4, 4, 4);
  layout->addWidget(transcript_, 1);
  layout->addLayout(row);
  setFocusProxy(input_);
}

CommandLine::~CommandLine() = default;

void CommandLine::show(std::string_view utf8) {
  unfinished_ += utf8;
  const std::size_t end = unfinished_.rfind('\n');
  if (end == std::string::npos) return;
  const auto complete = QString::fromUtf8(unfinished_.data(), static_cast<qsizetype>(end));
  unfinished_.erase(0, end + 1);
  transcript_->appendPlainText(complete);
}

void CommandLine::refresh() {
  const arx::host::Wait wait = arx::host::topWait();
  const bool takes = wait.kind != arx::host::WaitKind::kNone && !wait.modalOnTop;
  QString prompt = takes ? lastLine(wait.prompt) : QString();
  // What was printed without a line end stands before the line until one comes.
  if (takes && prompt.isEmpty())
    prompt = QString::fromStdString(unfinished_).section(QLatin1Char('\n'), -1).trimmed();
  if (prompt_->text() != prompt) prompt_->setText(prompt);
  prompt_->setVisible(!prompt.isEmpty());
  input_->setEnabled(takes);
  takesBlanks_ = wait.takesBlanks;
  if (takes && keywords_ != wait.keywords) showKeywords(wait.keywords);
  if (!takes && !keywords_.empty()) showKeywords({});
}

void CommandLine::showKeywords(const std::vector<std::wstring>& keywords) {
  keywords_ = keywords;
  while (QLayoutItem* item = keywordRow_->takeAt(0)) {
    item->widget()->deleteLater();
    delete item;
  }
  for (const std::wstring& keyword : keywords) {
    auto* button = new QPushButton(toQt(keyword), keywordBar_);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QPushButton::clicked, button, [keyword] { typeLater(keyword + L"\n"); });
    keywordRow_->addWidget(button);
  }
}

bool CommandLine::handleKey(QKeyEvent* event) {
  if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      submit();
      return true;
    case Qt::Key_Space:
      if (takesBlanks_ || input_->text().count(QLatin1Char('"')) % 2 == 1) return false;
      submit();
      return true;
    case Qt::Key_Escape:
      cancel();
      return true;
    case Qt::Key_Up:
      recall(-1);
      return true;
    case Qt::Key_Down:
      recall(1);
      return true;
    default:
      return false;
  }
}

bool CommandLine::takeKey(QKeyEvent* event) {
  const bool plain =
      (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
  const QString text = event->text();
  const bool typed =
      plain && !text.isEmpty() && (text[0].isPrint() || event->key() == Qt::Key_Backspace);
  const bool ends = plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                              event->key() == Qt::Key_Escape);
  if (!input_->isEnabled() || (!typed && !ends)) return false;
  if (typed) input_->setFocus();
  QKeyEvent copy(event->type(), event->key(), event->modifiers(), text);
  QCoreApplication::sendEvent(input_, &copy);
  return true;
}

void CommandLine::submit() {
  const QString line = input_->text();
  input_->clear();
  if (!line.isEmpty() && (history_.isEmpty() || history_.back() != line)) history_.append(line);
  if (history_.size() > kMostHistory) history_.removeFirst();
  recalled_ = history_.size();
  typeLater(fromQt(line) + L"\n");
}

void CommandLine::cancel() {
  input_->clear();
  recalled_ = history_.size();
  typeLater(L"\x03");
}

void CommandLine::recall(int step) {
  const qsizetype wanted = recalled_ + step;
  if (wanted < 0 || wanted > history_.size()) return;
  recalled_ = wanted;
  input_->setText(wanted < history_.size() ? history_[wanted] : QString());
}

}  // namespace kovra::desktop
