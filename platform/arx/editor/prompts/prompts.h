#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/prompts/prompt.h"

// Questions with an answer of one kind, asked again until it fits. What the platform's acedGet...
// functions and the built-in commands share.

namespace kovra::arx {

/// Bits of acedInitGet.
enum InputControl : int {
  kNoNull = 1,  ///< a plain Enter is asked again
  kNoZero = 2,
  kNoNegative = 4,
  kArbitrary = 128,  ///< any other text is an answer
};

/// `status` is RTNORM, RTNONE, RTCAN or RTKWORD (a keyword, or any text with kArbitrary).
struct Reply {
  int status;
  std::wstring text{};  ///< the text or the keyword's global name
  AcGePoint3d point{};  ///< in the UCS
  double real = 0;
  bool fromTokens = false;

  explicit operator bool() const { return status == RTNORM; }
  /// For refuseAnswer.
  Answer asAnswer() const;
};

/// `names`: which names it is that are asked for.
Reply askText(std::wstring prompt, Blanks blanks, host::NamesAsked names = {});
/// One of the keywords; RTNORM with its global name.
Reply askKeyword(std::wstring prompt, const KeywordList& keywords);
Reply askInteger(std::wstring prompt, const PromptControl& control);
Reply askReal(std::wstring prompt, const PromptControl& control);
/// `base` in the UCS: where relative input and ORTHOMODE start.
Reply askPoint(std::wstring prompt, const PromptControl& control,
               const std::optional<AcGePoint3d>& base = std::nullopt);
/// The opposite corner of a box: relative input starts at the corner, ORTHOMODE has no effect.
Reply askCorner(std::wstring prompt, const PromptControl& control, const AcGePoint3d& corner);
/// Reads a text as a point prompt does: keywords, points, words that have no effect. Nothing when
/// it isn't an answer and the user is to be asked again; `kIgnored` texts need no message.
enum class TextReading { kAnswer, kIgnored, kRefused };
TextReading readPointText(const AcApDocument& document, const std::wstring& typed,
                          const PromptControl& control, const std::optional<AcGePoint3d>& base,
                          Reply& reply);

/// The current document's control for the next prompt, which is default again after this.
PromptControl takePromptControl();

}  // namespace kovra::arx
