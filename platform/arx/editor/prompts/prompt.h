#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/arx/database/object_id.h"
#include "platform/arx/editor/documents/document_input.h"
#include "platform/arx/editor/documents/keywords.h"
#include "platform/arx/editor/host_api.h"
#include "platform/arx/geometry/geometry.h"

class AcApDocument;

// The one way in which anything in the editor asks: a question goes out, an answer comes back, from
// the tokens of acedCommandS or from the pump.

namespace kovra::arx {

struct PickHit;

/// Where a blank ends the input.
enum class Blanks { kAccept, kText, kTextInQuotes };

struct Question {
  host::WaitKind kind = host::WaitKind::kString;
  std::wstring prompt;
  Blanks blanks = Blanks::kAccept;
  bool takesPoints = false;      ///< a click answers
  bool takesEntities = false;    ///< a selection answers
  bool takesAttributes = false;  ///< its attributes of block references count by themselves
  host::NamesAsked names{};      ///< which names answer
  const KeywordList* keywords = nullptr;  ///< which words answer; outlives the question
  std::optional<AcGePoint3d> base{};      ///< world point from which ORTHOMODE works
  bool ortho = true;                      ///< false where ORTHOMODE has no effect
  std::function<void(const AcGePoint3d&)> cursorMoved{};  ///< told in world coordinates
  /// What a click takes of what it hits; null for nothing. Unset where clicks don't pick.
  std::function<AcDbObjectId(const PickHit&)> taken{};
};

enum class AnswerKind { kText, kPoint, kEntities, kCancel };

struct Answer {
  AnswerKind kind = AnswerKind::kCancel;
  std::wstring text{};                   ///< kText; empty: a plain Enter
  AcGePoint3d point{};                   ///< kPoint, in world coordinates
  std::vector<AcDbObjectId> entities{};  ///< kEntities
  bool fromTokens = false;               ///< a command gave it, not the user
  bool isEnter() const { return kind == AnswerKind::kText && text.empty(); }
};

/// Asks in a document and waits. Cancel also when there is no input left, and when the document is
/// being closed.
Answer ask(AcApDocument& document, const Question& question);
/// The same in the current document; cancel when there is none.
Answer ask(const Question& question);

/// Whether lines of a command's own output show: of one that runs from tokens only with CMDECHO.
bool messagesShown();
void showMessage(std::wstring_view line);
/// Shows why an answer isn't taken, and notes it as a failure of the input line unless a command
/// gave the answer itself.
void refuseAnswer(const Answer& answer, std::wstring_view why);

/// The prompt that outside input goes to now: the one on top, if neither a dialog nor a message box
/// lies above it. Null without one.
class ActivePrompt;
ActivePrompt* topPrompt();
/// The innermost prompt of all, also one below a dialog.
ActivePrompt* innermostPrompt();

/// A question that waits. Lives on the stack of ask().
class ActivePrompt {
 public:
  ActivePrompt(uint32_t document, const Question& question);
  ~ActivePrompt();
  ActivePrompt(const ActivePrompt&) = delete;
  ActivePrompt& operator=(const ActivePrompt&) = delete;

  const Question& question() const { return question_; }
  /// The document asked in; at the idle host the current one.
  AcApDocument* document() const;
  bool isIdle() const { return question_.kind == host::WaitKind::kIdle; }
  bool answered() const { return answer_.has_value(); }
  Answer takeAnswer();
  /// Reads one character of the document's queue; false when none waits.
  bool readCharacter();
  void answer(Answer answer);
  void cancel();
  /// Waits on the pump until answered or `stop`; false when there was no input.
  bool wait(const std::function<bool()>& stop);

 private:
  friend ActivePrompt* topPrompt();
  void accept();
  bool blankAccepts() const;
  void show();

  uint32_t document_;
  const Question& question_;
  std::optional<Answer> answer_;
  size_t pumpDepth_ = 0;
};

/// All questions that wait, outermost first.
const std::vector<ActivePrompt*>& waitingPrompts();
/// The innermost prompt's document if a prompt of a command waits, else null.
AcApDocument* documentOfInnermostPrompt();

/// Whether prompts and typed characters go to the transcript (see host::setInputShown).
bool inputShown();
void showInput(bool shown);

}  // namespace kovra::arx
