#include "desktop/frame/command_line.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QStringListModel>
#include <algorithm>

#include "desktop/frame/captions.h"
#include "desktop/loop/input_queue.h"
#include "desktop/loop/texts.h"
#include "launch/completion.h"
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

/// The keyword as the prompt writes it in its brackets; one that isn't there as it is defined. Its
/// capitals are the shortest form in both.
QString writtenKeyword(const QString& keyword, const QString& prompt) {
  const QString inBrackets = prompt.section(QLatin1Char('['), -1).section(QLatin1Char(']'), 0, 0);
  for (const QString& word : inBrackets.split(QLatin1Char('/')))
    if (word.trimmed().compare(keyword, Qt::CaseInsensitive) == 0) return word.trimmed();
  return keyword;
}

/// The line; keys go to its owner first.
class CommandLine::Input : public QLineEdit {
 public:
  explicit Input(CommandLine* owner) : QLineEdit(owner), owner_(owner) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (leavesToOffers(*event)) return event->ignore();
    if (!owner_->handleKey(event)) QLineEdit::keyPressEvent(event);
  }
  bool event(QEvent* event) override {
    // With nothing typed, keys such as Ctrl+Z, Ctrl+A and Delete mean the drawing.
    if (event->type() == QEvent::ShortcutOverride && text().isEmpty()) {
      event->ignore();
      return true;
    }
    // With nothing typed, Tab goes on to the next part of the window.
    if (event->type() == QEvent::KeyPress && !text().isEmpty()) {
      auto* key = static_cast<QKeyEvent*>(event);
      if (leavesToOffers(*key)) {
        event->ignore();
        return false;
      }
      if (key->key() == Qt::Key_Tab && key->modifiers() == Qt::NoModifier) {
        inputQueue().add([owner = QPointer<CommandLine>(owner_)] {
          if (owner != nullptr) owner->complete();
        });
        return true;
      }
    }
    return QLineEdit::event(event);
  }

 private:
  /// Keys that choose from the list of offers while it is open.
  bool leavesToOffers(const QKeyEvent& event) const {
    const auto choosing = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Escape};
    return owner_->offers_->popup()->isVisible() &&
           std::find(choosing.begin(), choosing.end(), event.key()) != choosing.end();
  }

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
  offers_ = new QCompleter(new QStringListModel(this), this);
  offers_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  offers_->setWidget(input_);
  connect(offers_, qOverload<const QString&>(&QCompleter::activated), input_,
          [this](const QString& name) { input_->setText(beforeOffers_ + name); });
  connect(input_, &QLineEdit::textEdited, input_, [this] { offers_->popup()->hide(); });
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
  if (!takes) {
    showKeywords({}, {});
  } else if (keywords_ != wait.keywords || keywordsOf_ != prompt) {
    showKeywords(wait.keywords, prompt);
  }
}

void CommandLine::showKeywords(const std::vector<std::wstring>& keywords, const QString& prompt) {
  keywords_ = keywords;
  keywordsOf_ = prompt;
  while (QLayoutItem* item = keywordRow_->takeAt(0)) {
    item->widget()->deleteLater();
    delete item;
  }
  for (const std::wstring& keyword : keywords) {
    auto* button = new QPushButton(writtenKeyword(toQt(keyword), prompt), keywordBar_);
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

/// What is certain is written, else the list of what fits is opened.
void CommandLine::complete() {
  const QString text = input_->text(), behind = text.mid(input_->cursorPosition());
  const std::wstring line = fromQt(text.left(input_->cursorPosition()));
  const launch::Completion done = launch::complete(
      line, arx::host::topWait(),
      [](launch::OfferKind kind, std::wstring_view) { return launch::editorOffers(kind); });
  if (done.candidates.empty()) return;
  const QString before = toQt(line.substr(0, done.begin));
  if (done.literal != done.typed) {
    const QString completed = before + toQt(done.literal);
    input_->setText(completed + behind);
    input_->setCursorPosition(static_cast<int>(completed.size()));
  }
  if (done.literal.size() > done.typed.size() || done.candidates.size() == 1) return;
  QStringList names;
  for (const launch::Offer& offered : done.candidates) names.append(toQt(offered.name));
  offer(before, names);
}

void CommandLine::offer(const QString& before, const QStringList& names) {
  beforeOffers_ = before;
  static_cast<QStringListModel*>(offers_->model())->setStringList(names);
  const int width = offers_->popup()->sizeHintForColumn(0);
  const int left = input_->fontMetrics().horizontalAdvance(before);
  const int bar = offers_->popup()->verticalScrollBar()->sizeHint().width();
  offers_->complete(
      {left, 0, width + bar + 2 * offers_->popup()->frameWidth() + 8, input_->height()});
}

}  // namespace kovra::desktop
