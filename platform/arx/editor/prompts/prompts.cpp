#include "platform/arx/editor/prompts/prompts.h"

#include <cmath>
#include <cstdarg>
#include <cwchar>
#include <functional>
#include <numbers>

#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/ucs.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/editor/prompts/command_tokens.h"
#include "platform/arx/geometry/typed_point.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/wide_format.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

/// Words for object snap that may stand before a point; nothing snaps, so only "none" is true.
bool isSnapOff(std::wstring_view typed) {
  if (!typed.empty() && typed.front() == L'_') typed.remove_prefix(1);
  return win::equalNoCase(typed, L"NON") || win::equalNoCase(typed, L"NONE");
}

Question questionFor(std::wstring prompt, const KeywordList* keywords = nullptr) {
  Question question;
  question.prompt = std::move(prompt);
  question.keywords = keywords;
  return question;
}

/// Settles what all prompts have in common: cancel, a plain Enter, keywords, arbitrary text.
/// Nothing when the text is left to the caller.
std::optional<Reply> commonReply(const Answer& answer, const PromptControl& control) {
  Reply reply{RTCAN};
  reply.fromTokens = answer.fromTokens;
  if (answer.kind != AnswerKind::kText) return reply;
  if (answer.text.empty()) {
    reply.status = RTNONE;
    return reply;
  }
  if (const std::optional<size_t> keyword = control.keywords.match(answer.text)) {
    reply.status = RTKWORD;
    reply.text = control.keywords.globalName(*keyword);
    return reply;
  }
  return std::nullopt;
}

/// Asks for a number until `parse` and the control bits take it.
Reply askNumber(std::wstring prompt, const PromptControl& control, const wchar_t* requirement,
                const std::function<std::optional<double>(std::wstring_view)>& parse) {
  const Question question = questionFor(std::move(prompt), &control.keywords);
  for (;;) {
    const Answer answer = ask(question);
    if (std::optional<Reply> reply = commonReply(answer, control)) {
      if (reply->status != RTNONE || (control.flags & kNoNull) == 0) return *reply;
      refuseAnswer(answer, requirement);
      continue;
    }
    const std::optional<double> number = parse(answer.text);
    Reply reply{RTNORM, answer.text, {}, number.value_or(0), answer.fromTokens};
    if (!number) {
      if ((control.flags & kArbitrary) != 0) return reply.status = RTKWORD, reply;
      refuseAnswer(answer, requirement);
    } else if ((control.flags & kNoZero) != 0 && *number == 0) {
      refuseAnswer(answer, L"Value must be nonzero.");
    } else if ((control.flags & kNoNegative) != 0 && *number < 0) {
      refuseAnswer(answer, L"Value must be positive.");
    } else {
      return reply;
    }
  }
}

}  // namespace

Answer Reply::asAnswer() const {
  Answer answer;
  answer.fromTokens = fromTokens;
  return answer;
}

PromptControl takePromptControl() {
  AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr) return {};
  return std::exchange(document->session().promptControl, PromptControl{});
}

Reply askText(std::wstring prompt, Blanks blanks, host::NamesAsked names) {
  Question question = questionFor(std::move(prompt));
  question.blanks = blanks;
  question.names = names;
  const Answer answer = ask(question);
  if (answer.kind != AnswerKind::kText) return {RTCAN};
  Reply reply{RTNORM, answer.text, {}, 0, answer.fromTokens};
  if (blanks == Blanks::kTextInQuotes) std::erase(reply.text, L'"');
  return reply;
}

Reply askKeyword(std::wstring prompt, const KeywordList& keywords) {
  const Question question = questionFor(std::move(prompt), &keywords);
  for (;;) {
    const Answer answer = ask(question);
    std::optional<Reply> reply = commonReply(answer, {0, keywords});
    if (reply && reply->status == RTKWORD) reply->status = RTNORM;
    if (reply) return *reply;
    refuseAnswer(answer, L"Invalid option keyword.");
  }
}

Reply askInteger(std::wstring prompt, const PromptControl& control) {
  return askNumber(std::move(prompt), control, L"Requires an integer between -32768 and 32767.",
                   [](std::wstring_view typed) -> std::optional<double> {
                     const std::optional<int> value = parseInteger(typed);
                     const bool fits = value && *value >= -32768 && *value <= 32767;
                     return fits ? std::optional<double>(*value) : std::nullopt;
                   });
}

Reply askReal(std::wstring prompt, const PromptControl& control) {
  return askNumber(std::move(prompt), control, L"Requires numeric value.", parseReal);
}

TextReading readPointText(const AcApDocument& document, const std::wstring& typed,
                          const PromptControl& control, const std::optional<AcGePoint3d>& base,
                          Reply& reply) {
  if (const std::optional<size_t> keyword = control.keywords.match(typed)) {
    reply.status = RTKWORD;
    reply.text = control.keywords.globalName(*keyword);
    return TextReading::kAnswer;
  }
  if (isSnapOff(typed)) return TextReading::kIgnored;
  const AcGePoint3d last = toUcs(document, document.session().lastPoint);
  if (const std::optional<TypedPoint> point = parsePoint(typed, base.value_or(last))) {
    reply.status = RTNORM;
    reply.point = point->point;
    if (point->world) reply.point = toUcs(document, reply.point);
    return TextReading::kAnswer;
  }
  if ((control.flags & kArbitrary) == 0) return TextReading::kRefused;
  reply.status = RTKWORD;
  reply.text = typed;
  return TextReading::kAnswer;
}

namespace {

Reply askForPoint(std::wstring prompt, const PromptControl& control,
                  const std::optional<AcGePoint3d>& base, bool ortho) {
  AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr) return {RTCAN};
  Question question = questionFor(std::move(prompt), &control.keywords);
  question.kind = host::WaitKind::kPoint;
  question.takesPoints = true;
  question.ortho = ortho;
  // Answers given beforehand need no line from the base point.
  if (base && TokenFrame::current() == nullptr) question.base = toWorld(*document, *base);
  for (;;) {
    const Answer answer = ask(*document, question);
    Reply reply{RTNORM, {}, {}, 0, answer.fromTokens};
    if (answer.kind == AnswerKind::kPoint) {
      reply.point = toUcs(*document, answer.point);
      document->session().lastPoint = answer.point;
      return reply;
    }
    if (answer.kind != AnswerKind::kText) {
      return {RTCAN};
    } else if (answer.text.empty()) {
      if ((control.flags & kNoNull) == 0) return {RTNONE};
      refuseAnswer(answer, L"Point is required.");
      continue;
    } else {
      const TextReading reading = readPointText(*document, answer.text, control, base, reply);
      if (reading == TextReading::kRefused)
        refuseAnswer(answer, control.keywords.empty() ? L"Invalid point."
                                                      : L"Point or option keyword required.");
      if (reading != TextReading::kAnswer) continue;
    }
    if (reply.status == RTNORM) document->session().lastPoint = toWorld(*document, reply.point);
    return reply;
  }
}

}  // namespace

Reply askPoint(std::wstring prompt, const PromptControl& control,
               const std::optional<AcGePoint3d>& base) {
  return askForPoint(std::move(prompt), control, base, true);
}

Reply askCorner(std::wstring prompt, const PromptControl& control, const AcGePoint3d& corner) {
  return askForPoint(std::move(prompt), control, corner, false);
}

namespace {

bool copyText(std::wstring_view text, ACHAR* result, std::size_t length) {
  if (result == nullptr || text.size() >= length) return false;
  text.copy(result, text.size());
  result[text.size()] = 0;
  return true;
}

/// Hands a keyword or other text over to acedGetInput.
int noteInput(const Reply& reply) {
  AcApDocument* document = DocumentList::instance().current();
  if (document != nullptr && reply.status == RTKWORD) document->session().lastInput = reply.text;
  return reply.status;
}

std::wstring promptText(const ACHAR* prompt, const wchar_t* otherwise = L"") {
  return prompt != nullptr ? prompt : otherwise;
}

std::optional<AcGePoint3d> optionalPoint(const ads_point point) {
  if (point == nullptr) return std::nullopt;
  return AcGePoint3d(point[0], point[1], point[2]);
}

/// A number, or two points that show it.
int getMeasure(const ads_point from, const ACHAR* prompt, ads_real* result,
               const std::function<double(const AcGePoint3d&, const AcGePoint3d&)>& measure,
               double typedUnit) {
  PromptControl control = takePromptControl();
  const int limits = control.flags;
  control.flags |= kArbitrary;
  for (;;) {
    const Reply first = askPoint(promptText(prompt), control, optionalPoint(from));
    if (first.status == RTKWORD) {
      const std::optional<double> typed = parseReal(first.text);
      const bool allowed = typed && !((limits & kNoZero) != 0 && *typed == 0) &&
                           !((limits & kNoNegative) != 0 && *typed < 0);
      if (allowed) return *result = *typed * typedUnit, RTNORM;
      if (control.keywords.match(first.text)) return noteInput(first);
      refuseAnswer(first.asAnswer(), L"Requires numeric value or two points.");
      continue;
    }
    if (!first) return first.status;
    std::optional<AcGePoint3d> start = optionalPoint(from);
    Reply second = first;
    if (!start) {
      start = first.point;
      second = askPoint(L"Specify second point: ", {kNoNull, {}}, start);
      if (!second) return second.status;
    }
    *result = measure(*start, second.point);
    return RTNORM;
  }
}

double angleBetween(const AcGePoint3d& a, const AcGePoint3d& b) {
  const double angle = std::atan2(b.y - a.y, b.x - a.x);
  return angle < 0 ? angle + 2 * std::numbers::pi : angle;
}

int givePoint(const Reply& reply, ads_point result) {
  if (reply.status == RTNORM && result != nullptr) {
    result[0] = reply.point.x;
    result[1] = reply.point.y;
    result[2] = reply.point.z;
  }
  return noteInput(reply);
}

/// A line break in front only ends a line that is begun.
void printText(std::wstring_view text) {
  if (!text.empty() && text.front() == L'\n') {
    win::interaction().freshLine();
    text.remove_prefix(1);
  }
  win::interaction().print(text);
}

}  // namespace
}  // namespace kovra::arx

using namespace kovra::arx;

int acutPrintf(const ACHAR* format, ...) {
  if (format == nullptr) return RTERROR;
  std::va_list arguments;
  va_start(arguments, format);
  printText(kovra::win::formatWideV(format, arguments));
  va_end(arguments);
  return RTNORM;
}

int acedPrompt(const ACHAR* text) {
  if (text == nullptr) return RTERROR;
  printText(text);
  return RTNORM;
}

int acedInitGet(int flags, const ACHAR* keywords) {
  AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr) return RTERROR;
  document->session().promptControl = {flags, KeywordList(keywords != nullptr ? keywords : L"")};
  return RTNORM;
}

int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, std::size_t bufferLength) {
  if (result == nullptr || bufferLength == 0) return RTERROR;
  const PromptControl control = takePromptControl();
  result[0] = 0;
  for (;;) {
    const Reply reply = askText(promptText(prompt), cronly != 0 ? Blanks::kText : Blanks::kAccept);
    if (!reply) return reply.status;
    const bool missing = reply.text.empty() && (control.flags & kNoNull) != 0;
    if (!missing && copyText(reply.text, result, bufferLength)) return RTNORM;
    refuseAnswer(reply.asAnswer(), missing
                                       ? L"Text is required."
                                       : L"Text is too long: at most " +
                                             std::to_wstring(bufferLength - 1) + L" characters.");
  }
}

int acedGetKword(const ACHAR* prompt, ACHAR* result, std::size_t bufferLength) {
  const PromptControl control = takePromptControl();
  for (;;) {
    const Reply reply = askKeyword(promptText(prompt), control.keywords);
    if (reply.status == RTNONE && (control.flags & kNoNull) != 0) {
      acutPrintf(L"\nAn option keyword is required.\n");
      continue;
    }
    if (!reply) return reply.status;
    return copyText(reply.text, result, bufferLength) ? RTNORM : RTERROR;
  }
}

int acedGetInput(ACHAR* result, std::size_t bufferLength) {
  const AcApDocument* document = DocumentList::instance().current();
  const bool given =
      document != nullptr && copyText(document->session().lastInput, result, bufferLength);
  return given ? RTNORM : RTERROR;
}

int acedGetInt(const ACHAR* prompt, int* result) {
  const Reply reply = askInteger(promptText(prompt), takePromptControl());
  if (reply && result != nullptr) *result = static_cast<int>(reply.real);
  return noteInput(reply);
}

int acedGetReal(const ACHAR* prompt, ads_real* result) {
  const Reply reply = askReal(promptText(prompt), takePromptControl());
  if (reply && result != nullptr) *result = reply.real;
  return noteInput(reply);
}

int acedGetPoint(const ads_point from, const ACHAR* prompt, ads_point result) {
  const PromptControl control = takePromptControl();
  return givePoint(askPoint(promptText(prompt), control, optionalPoint(from)), result);
}

int acedGetCorner(const ads_point from, const ACHAR* prompt, ads_point result) {
  if (from == nullptr) return RTERROR;
  const PromptControl control = takePromptControl();
  return givePoint(askCorner(promptText(prompt), control, *optionalPoint(from)), result);
}

int acedGetDist(const ads_point from, const ACHAR* prompt, ads_real* result) {
  if (result == nullptr) return RTERROR;
  return getMeasure(
      from, prompt, result,
      [](const AcGePoint3d& a, const AcGePoint3d& b) { return a.distanceTo(b); }, 1);
}

int acedGetAngle(const ads_point from, const ACHAR* prompt, ads_real* result) {
  if (result == nullptr) return RTERROR;
  return getMeasure(from, prompt, result, angleBetween, std::numbers::pi / 180);
}
