#include "platform/win/base/interaction.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/win/base/wide_text.h"
#include "platform/win/base/windows_types.h"

namespace kovra::win {
namespace {

struct ButtonName {
  int button;
  const char* name;
};
constexpr std::array kButtonNames = {ButtonName{IDOK, "ok"},        ButtonName{IDCANCEL, "cancel"},
                                     ButtonName{IDYES, "yes"},      ButtonName{IDNO, "no"},
                                     ButtonName{IDRETRY, "retry"},  ButtonName{IDABORT, "abort"},
                                     ButtonName{IDIGNORE, "ignore"}};

bool offers(const MessageBoxRequest& box, int button) {
  return std::find(box.buttons.begin(), box.buttons.end(), button) != box.buttons.end();
}

std::string inQuotes(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

}  // namespace

const char* answerName(int button) {
  for (const ButtonName& entry : kButtonNames) {
    if (entry.button == button) return entry.name;
  }
  return nullptr;
}

int answerButton(std::string_view name) {
  for (const ButtonName& entry : kButtonNames) {
    if (name == entry.name) return entry.button;
  }
  return 0;
}

void Interaction::print(std::wstring_view text) {
  print(std::string_view(toUtf8(text)));
}

void Interaction::print(std::string_view utf8) {
  if (utf8.empty()) return;
  lineBegun_ = utf8.back() != '\n';
  if (sink_) sink_(utf8);
}

void Interaction::freshLine() {
  if (lineBegun_) print(std::string_view("\n"));
}

int Interaction::answerBox(const MessageBoxRequest& box) {
  freshLine();
  print(L"[" + box.caption + L"] " + box.text);
  const int button = chooseButton(box);
  const char* name = answerName(button);
  if (box.buttons.size() > 1 && name != nullptr) print(" <" + std::string(name) + ">");
  freshLine();
  return button;
}

int Interaction::chooseButton(const MessageBoxRequest& box) {
  if (!answers_.empty() && offers(box, answers_.front())) {
    const int button = answers_.front();
    answers_.pop_front();
    return button;
  }
  const bool notice = box.buttons.size() == 1;
  if (notice && asker_ && showsNotices_ && answers_.empty()) asker_(box);
  if (notice) return box.buttons.front();
  const std::string subject = "the message box " + inQuotes(toUtf8(box.text)) + " ";
  if (!answers_.empty()) {
    noteFailure(subject + "has no button " + inQuotes(answerName(answers_.front())));
    answers_.pop_front();
    return unansweredButton(box);
  }
  const int asked = asker_ ? asker_(box) : 0;
  if (offers(box, asked)) return asked;
  noteFailure(subject + "came up, and no answer was queued");
  return unansweredButton(box);
}

int Interaction::unansweredButton(const MessageBoxRequest& box) const {
  if (offers(box, IDCANCEL)) return IDCANCEL;
  if (offers(box, IDNO)) return IDNO;
  return box.buttons.empty() ? IDOK : box.buttons.back();
}

std::vector<std::filesystem::path> Interaction::chooseFiles() {
  if (files_.empty() && chooser_) return chooser_();
  if (files_.empty()) {
    noteFailure("a file choice was asked for, and none was queued");
    return {};
  }
  auto files = std::move(files_.front());
  files_.pop_front();
  return files;
}

void Interaction::noteFailure(std::string message) {
  if (!failure_) failure_ = std::move(message);
}

std::optional<std::string> Interaction::takeFailure() {
  return std::exchange(failure_, std::nullopt);
}

Interaction& interaction() {
  static Interaction single;
  return single;
}

}  // namespace kovra::win
