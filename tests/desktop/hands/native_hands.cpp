#include "tests/desktop/hands/native_hands.h"

#include <QApplication>
#include <QLineEdit>
#include <algorithm>

#include "desktop/frame/main_window.h"
#include "desktop/loop/input_queue.h"
#include "desktop/mirror/acts.h"
#include "desktop/mirror/window_mirror.h"
#include "desktop/view/drawing_view.h"
#include "platform/win/base/messages.h"
#include "platform/win/base/pump.h"
#include "tests/desktop/hands/laid_answers.h"
#include "tests/desktop/hands/native_input.h"

namespace kovra::test {

/// Asked by the pump when no line follows: from then on nobody does anything with the widgets.
class NativeHands::AfterTheLines : public win::PumpSource {
 public:
  AfterTheLines() { win::Pump::instance().addSource(win::kOutsideInput, this); }
  ~AfterTheLines() override { win::Pump::instance().removeSource(this); }
  AfterTheLines(const AfterTheLines&) = delete;
  AfterTheLines& operator=(const AfterTheLines&) = delete;

  bool dispatchOne() override {
    desktop::inputQueue().end();
    return false;
  }
};

NativeHands::NativeHands(win::Interaction::TextSink transcript)
    : transcript_(std::move(transcript)),
      window_(std::make_unique<desktop::MainWindow>()),
      laid_(std::make_unique<LaidAnswers>()) {
  afterTheLines_ = std::make_unique<AfterTheLines>();
  desktop::onRefusedAct([this](const std::string& why) {
    if (refused_.empty()) refused_ = why;
  });
  window_->setActivatesNext(false);
  // As large as the window that the editor thinks of without a screen: picks reach as far.
  window_->view().setFixedSize(1600, 1000);
  window_->view().setSnapsToObjects(false);
  // A menu opens at once, an item of a list may be clicked as soon as it is down.
  QApplication::setDoubleClickInterval(1);
  win::interaction().setTranscript(transcript_);
  window_->show();
}

NativeHands::~NativeHands() {
  desktop::onRefusedAct({});
  window_.reset();
  win::interaction().setTranscript(transcript_);
}

bool NativeHands::goOn() {
  if (seeThrough()) return changed_ = true;
  showAll();
  if (seeThrough()) return changed_ = true;
  if (std::exchange(changed_, false)) compare();
  return false;
}

void NativeHands::showAll() {
  desktop::inputQueue().refresh();
}

void NativeHands::compare() {
  for (const std::string& difference : window_->mirror().differences())
    faults_.push_back("after " + last_ + ": " + difference);
}

/// The widget by which a user gets at a window; null when he doesn't.
QWidget* NativeHands::usableWidget(HWND window) {
  seeThrough();
  showAll();
  QWidget* widget = window_->mirror().widgetOf(window);
  return isUsable(widget) ? widget : nullptr;
}

/// What became of an act that was played: all it has begun is seen through.
win::InputResult NativeHands::played(const char* what) {
  seeThrough();
  note(what);
  return {std::exchange(refused_, {})};
}

/// A user couldn't do it, so the platform says why not.
win::InputResult NativeHands::refusal(const char* what, win::InputResult result) {
  note('!' + std::string(what));
  if (result) faults_.push_back("no widget let " + last_ + " be done by hand");
  return result;
}

win::InputResult NativeHands::instead(const char* what, win::InputResult result) {
  note('(' + std::string(what) + ')');
  return result;
}

/// The command line's field, where the line can be typed there just as it is; null otherwise. A
/// blank ends a line in most places, so lines with blanks can't.
QWidget* NativeHands::commandInput(std::wstring_view line) {
  auto* field = window_->findChild<QLineEdit*>(QStringLiteral("commandInput"));
  const bool ended = line.ends_with(L'\n') && line.find(L'\n') == line.size() - 1;
  const bool cancel = line == L"\x03";
  const bool typable =
      std::all_of(line.begin(), line.end() - 1, [](wchar_t c) { return c > L' ' && c != 0x7F; });
  if (!(ended || cancel) || !typable || field == nullptr || !field->text().isEmpty())
    return nullptr;
  return isUsable(field) ? field : nullptr;
}

Result<void> NativeHands::typeText(std::wstring_view characters) {
  const auto refused = [this, characters] {
    note("(line)");
    return UserHands::typeText(characters);
  };
  if (characters.empty() || arx::host::currentDrawing() == 0) return refused();
  seeThrough();
  showAll();
  QWidget* field = commandInput(characters);
  if (field == nullptr) return refused();
  giveFocus(field);
  if (characters == L"\x03") {
    pressNativeKey({VK_ESCAPE});
  } else {
    for (const wchar_t c : characters) typeNativeText({&c, 1});
  }
  seeThrough();
  note("line");
  return {};
}

void NativeHands::note(const std::string& what) {
  last_ = what;
  ++counts_[what];
  changed_ = true;
}

}  // namespace kovra::test
