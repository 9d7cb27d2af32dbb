#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/arx/editor/host_api.h"

/// What can be typed next. Knows neither a terminal nor windows.
namespace kovra::launch {

/// Kinds of names that lines are made of.
enum class OfferKind {
  kLine,  ///< "@click", with what stands behind it as the note
  kCommand,
  kVariable,
  kLayer,
  kTextStyle,
  kControl,
  kItem,
  kTemplate,
  kKey,
  kAnswer,
  kOpenDrawing,
  kFile,
  kDrawingFile,
  kFolder,
  kProjectFile,  ///< a file, looked for from the project's folder on
};

struct Offer {
  std::wstring name;
  std::wstring note;    ///< what it is, for a list of offers; may be empty
  bool folder = false;  ///< more of the name follows behind a "/"
};

/// The names of a kind there are. `context`: of controls the name of the line, "@click"; of items
/// the control's number as it was typed; of files the folder as it was typed, up to its "/".
using Offers = std::function<std::vector<Offer>(OfferKind kind, std::wstring_view context)>;

struct Completion {
  size_t begin = 0;      ///< where in the line the piece begins that is completed
  std::wstring typed;    ///< the piece as it stands
  std::wstring literal;  ///< what it becomes: all that the candidates have in common
  std::vector<Offer> candidates;
};

/// Completes the line up to the cursor for what waits. No candidates: nothing is known that fits.
/// Case counts for files only. Names are put in quotes where the line takes them in quotes.
Completion complete(std::wstring_view line, const arx::host::Wait& wait, const Offers& offers);

/// The names that the editor itself knows now: commands, variables, records of the current drawing.
/// None of the other kinds.
std::vector<Offer> editorOffers(OfferKind kind);

/// complete() with everything but the line settled.
using Completer = std::function<Completion(std::wstring_view line)>;

}  // namespace kovra::launch
