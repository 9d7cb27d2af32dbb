#include "launch/completion.h"

#include <algorithm>
#include <optional>

#include "launch/quoted_text.h"
#include "platform/win/base/wide_text.h"

namespace kovra::launch {
namespace {

constexpr std::wstring_view kBlanks = L" \t";

/// How a name with blanks is written.
enum class Quoting {
  kRest,    ///< as it is: it is the rest of the line
  kWord,    ///< in quotes, with escapes
  kPrompt,  ///< in plain quotes
  kNone,    ///< the quotes are there already
};

/// The piece of a line that is being typed.
struct Piece {
  size_t begin = 0;
  std::wstring text{};  ///< without quotes
  bool quoted = false;
  Quoting quoting = Quoting::kNone;
  bool blankBehind = false;  ///< something follows on the line
};

bool isFileKind(OfferKind kind) {
  return kind == OfferKind::kFile || kind == OfferKind::kDrawingFile ||
         kind == OfferKind::kFolder || kind == OfferKind::kProjectFile;
}

bool beginsWith(std::wstring_view name, std::wstring_view typed, bool caseCounts) {
  if (name.size() < typed.size()) return false;
  const std::wstring_view beginning = name.substr(0, typed.size());
  return caseCounts ? beginning == typed : win::equalNoCase(beginning, typed);
}

bool needsQuotes(std::wstring_view name, const Piece& piece) {
  if (piece.quoting == Quoting::kNone || name.empty()) return false;
  if (piece.quoted) return true;
  if (piece.quoting != Quoting::kRest) return name.find_first_of(L" \t\"") != std::wstring::npos;
  const bool blankAtEnds = kBlanks.find(name.front()) != std::wstring::npos ||
                           kBlanks.find(name.back()) != std::wstring::npos;
  return blankAtEnds || name.front() == L'"';
}

/// The names' common beginning as it is typed; of a single one the whole.
std::wstring literalOf(const std::vector<Offer>& candidates, std::wstring_view folder,
                       const Piece& piece) {
  bool quotes = false;
  std::wstring common;
  for (const Offer& candidate : candidates) {
    const std::wstring name =
        std::wstring(folder) + candidate.name + (candidate.folder ? L"/" : L"");
    quotes = quotes || needsQuotes(name, piece);
    if (&candidate == &candidates.front()) common = name;
    size_t same = 0;
    while (same < common.size() && same < name.size() &&
           win::equalNoCase(common.substr(same, 1), name.substr(same, 1)))
      ++same;
    common.resize(same);
  }
  const bool whole = candidates.size() == 1 && !candidates.front().folder;
  if (quotes) {
    common = piece.quoting == Quoting::kPrompt ? L'"' + common + L'"' : quotedText(common);
    if (!whole) common.pop_back();
  }
  return whole && piece.blankBehind ? common + L' ' : common;
}

Completion filled(const Piece& piece, OfferKind kind, const std::vector<Offer>& offered,
                  std::wstring_view line, std::wstring_view folder = {}) {
  Completion completion;
  completion.begin = piece.begin;
  completion.typed = line.substr(piece.begin);
  const std::wstring_view leaf = std::wstring_view(piece.text).substr(folder.size());
  const bool files = isFileKind(kind);
  for (const Offer& offer : offered) {
    const bool hidden = files && offer.name.starts_with(L'.') && !leaf.starts_with(L'.');
    if (!hidden && beginsWith(offer.name, leaf, files)) completion.candidates.push_back(offer);
  }
  completion.literal = literalOf(completion.candidates, folder, piece);
  return completion;
}

// --- what stands behind the name of an @ line ---------------------------------------------------

struct Argument {
  std::wstring_view word;  ///< as the line's note has it, without brackets
  bool repeated = false;
};

/// "ID [TEXT]" word by word; "[FILE...]" is repeated.
std::vector<Argument> argumentsOf(std::wstring_view usage) {
  std::vector<Argument> all;
  for (size_t at = 0; (at = usage.find_first_not_of(L' ', at)) != std::wstring_view::npos;) {
    const size_t end = std::min(usage.find(L' ', at), usage.size());
    Argument argument{usage.substr(at, end - at)};
    at = end;
    if (argument.word.starts_with(L'[')) argument.word.remove_prefix(1);
    if (argument.word.ends_with(L']')) argument.word.remove_suffix(1);
    argument.repeated = argument.word.ends_with(L"...");
    if (argument.repeated) argument.word.remove_suffix(3);
    all.push_back(argument);
  }
  return all;
}

std::optional<OfferKind> kindOf(std::wstring_view word) {
  constexpr struct {
    std::wstring_view word;
    OfferKind kind;
  } kKinds[] = {
      {L"ID", OfferKind::kControl},
      {L"ITEM", OfferKind::kItem},
      {L"TEMPLATE", OfferKind::kTemplate},
      {L"KEY", OfferKind::kKey},
      {L"ANSWER", OfferKind::kAnswer},
      {L"VARIABLE", OfferKind::kVariable},
      {L"DRAWING", OfferKind::kOpenDrawing},
      {L"FILE", OfferKind::kFile},
      {L"FILE.dxf", OfferKind::kDrawingFile},
      {L"DIR", OfferKind::kFolder},
      {L"PROJECT-FILE", OfferKind::kProjectFile},
  };
  for (const auto& row : kKinds)
    if (row.word == word) return row.kind;
  return std::nullopt;
}

/// Words that are typed as they stand: "on|off".
std::vector<Offer> wordsOf(std::wstring_view argument) {
  std::vector<Offer> words;
  if (argument.size() < 2 || argument.find_first_of(L"ABCDEFGHIJKLMNOPQRSTUVWXYZ") != argument.npos)
    return words;
  for (size_t at = 0; at <= argument.size();) {
    const size_t end = std::min(argument.find(L'|', at), argument.size());
    words.push_back({std::wstring(argument.substr(at, end - at)), {}});
    at = end + 1;
  }
  return words;
}

/// Reads one word in quotes or up to a blank; true if it ends before the line does.
bool readWord(std::wstring_view line, size_t& at, std::wstring& word) {
  const bool quoted = line[at] == L'"';
  if (quoted) ++at;
  for (; at < line.size(); ++at) {
    const wchar_t c = line[at];
    if (quoted && c == L'"') return ++at, true;
    if (!quoted && kBlanks.find(c) != std::wstring_view::npos) return true;
    const bool escape = quoted && c == L'\\' && at + 1 < line.size();
    word += escape ? line[++at] : c;
  }
  return false;
}

struct Typed {
  std::vector<std::wstring> words;  ///< that are complete
  Piece piece;
};

/// Words from `at` on; the one after `wordsBeforeRest` others is the rest of the line. Nothing
/// behind a closing quote.
std::optional<Typed> readTyped(std::wstring_view line, size_t at, size_t wordsBeforeRest) {
  Typed typed;
  for (;;) {
    const size_t begin = std::min(line.find_first_not_of(kBlanks, at), line.size());
    Piece piece{begin, {}, begin < line.size() && line[begin] == L'"', Quoting::kWord, false};
    at = begin;
    if (typed.words.size() == wordsBeforeRest) piece.quoting = Quoting::kRest;
    if (piece.quoting == Quoting::kRest && !piece.quoted) {
      piece.text = line.substr(begin);
    } else if (begin < line.size() && readWord(line, at, piece.text)) {
      if (at == line.size()) return std::nullopt;
      typed.words.push_back(std::move(piece.text));
      continue;
    }
    typed.piece = std::move(piece);
    return typed;
  }
}

Completion ofKind(OfferKind kind, std::wstring_view name, const Typed& typed,
                  std::wstring_view line, const Offers& offers) {
  const std::wstring_view text = typed.piece.text;
  if (isFileKind(kind)) {
    const std::wstring_view folder = text.substr(0, text.rfind(L'/') + 1);
    return filled(typed.piece, kind, offers(kind, folder), line, folder);
  }
  std::wstring_view context;
  if (kind == OfferKind::kControl) context = name;
  if (kind == OfferKind::kItem) context = typed.words.front();
  return filled(typed.piece, kind, offers(kind, context), line);
}

Completion completeFrom(size_t begin, std::wstring_view line, const arx::host::Wait& wait,
                        const Offers& offers);

/// `begin`: where the "@" stands.
Completion completeAtLine(size_t begin, std::wstring_view line, const arx::host::Wait& wait,
                          const Offers& offers) {
  const std::vector<Offer> lines = offers(OfferKind::kLine, {});
  const size_t nameEnd = std::min(line.find_first_of(kBlanks, begin), line.size());
  const std::wstring_view name = line.substr(begin, nameEnd - begin);
  const auto known = std::find_if(lines.begin(), lines.end(),
                                  [&](const Offer& offer) { return offer.name == name; });
  if (nameEnd == line.size()) {
    Piece piece{begin, std::wstring(name)};
    Completion completion = filled(piece, OfferKind::kLine, lines, line);
    const bool whole = completion.candidates.size() == 1;
    if (whole && !completion.candidates.front().note.empty()) completion.literal += L' ';
    for (Offer& candidate : completion.candidates) candidate.note.clear();  // there are too many
    return completion;
  }
  if (known == lines.end()) return {};
  const std::vector<Argument> arguments = argumentsOf(known->note);
  if (arguments.empty()) return {};
  if (arguments.front().word == L"LINE") {
    const size_t next = std::min(line.find_first_not_of(kBlanks, nameEnd), line.size());
    return completeFrom(next, line, wait, offers);
  }
  const bool repeated = arguments.back().repeated;
  const size_t beforeRest = repeated ? line.size() : arguments.size() - 1;
  std::optional<Typed> typed = readTyped(line, nameEnd, beforeRest);
  if (!typed) return {};
  const size_t number = typed->words.size();
  if (number >= arguments.size() && !repeated) return {};
  const Argument& argument = arguments[std::min(number, arguments.size() - 1)];
  typed->piece.blankBehind = number + 1 < arguments.size();
  if (const auto kind = kindOf(argument.word)) return ofKind(*kind, name, *typed, line, offers);
  return filled(typed->piece, OfferKind::kAnswer, wordsOf(argument.word), line);
}

// --- what is typed ------------------------------------------------------------------------------

Completion completeCommand(size_t begin, std::wstring_view line, const Offers& offers) {
  const std::wstring_view typed = line.substr(begin);
  Piece piece{begin + std::min(typed.find_first_not_of(L"._"), typed.size())};
  piece.text = line.substr(piece.begin);
  std::vector<Offer> names = offers(OfferKind::kCommand, {});
  if (!piece.text.empty()) {
    for (Offer& variable : offers(OfferKind::kVariable, {})) names.push_back(std::move(variable));
  }
  return filled(piece, OfferKind::kCommand, names, line);
}

std::optional<OfferKind> kindOf(arx::host::NameKind kind) {
  switch (kind) {
    case arx::host::NameKind::kLayer:
      return OfferKind::kLayer;
    case arx::host::NameKind::kTextStyle:
      return OfferKind::kTextStyle;
    case arx::host::NameKind::kVariable:
      return OfferKind::kVariable;
    default:
      return std::nullopt;
  }
}

/// Names and keywords that answer the prompt.
Completion completeAnswer(size_t begin, std::wstring_view line, const arx::host::Wait& wait,
                          const Offers& offers) {
  Piece piece{begin};
  if (wait.names.several) piece.begin = std::max(begin, line.rfind(L',') + 1);
  const std::wstring_view before = line.substr(begin, piece.begin - begin);
  const bool inQuotes = std::count(before.begin(), before.end(), L'"') % 2 != 0;
  piece.text = line.substr(piece.begin);
  piece.quoting = inQuotes ? Quoting::kNone : Quoting::kPrompt;
  piece.quoted = !inQuotes && piece.text.starts_with(L'"');
  if (piece.quoted) piece.text.erase(0, 1);
  std::vector<Offer> names;
  if (piece.begin == begin) {
    for (const std::wstring& keyword : wait.keywords) names.push_back({keyword, {}});
  }
  if (const auto kind = kindOf(wait.names.kind)) {
    for (Offer& name : offers(*kind, {})) names.push_back(std::move(name));
  }
  return filled(piece, OfferKind::kLayer, names, line);
}

Completion completeFrom(size_t begin, std::wstring_view line, const arx::host::Wait& wait,
                        const Offers& offers) {
  if (line.substr(begin).starts_with(L'@')) return completeAtLine(begin, line, wait, offers);
  Completion completion;
  if (!wait.modalOnTop) {
    completion = wait.kind == arx::host::WaitKind::kIdle
                     ? completeCommand(begin, line, offers)
                     : completeAnswer(begin, line, wait, offers);
  }
  // Where only the pointer and dialogs help.
  const bool empty = begin == line.size();
  if (empty && completion.candidates.empty()) return completeAtLine(begin, line, wait, offers);
  return completion;
}

}  // namespace

Completion complete(std::wstring_view line, const arx::host::Wait& wait, const Offers& offers) {
  return completeFrom(0, line, wait, offers);
}

std::vector<Offer> editorOffers(OfferKind kind) {
  std::vector<Offer> offers;
  const auto addNames = [&offers](arx::host::NameKind names) {
    for (std::wstring& name : arx::host::namesOf(names)) offers.push_back({std::move(name), {}});
  };
  switch (kind) {
    case OfferKind::kCommand:
      for (arx::host::CommandInfo& command : arx::host::commands())
        offers.push_back({std::move(command.name), std::move(command.summary)});
      break;
    case OfferKind::kVariable:
      addNames(arx::host::NameKind::kVariable);
      break;
    case OfferKind::kLayer:
      addNames(arx::host::NameKind::kLayer);
      break;
    case OfferKind::kTextStyle:
      addNames(arx::host::NameKind::kTextStyle);
      break;
    default:
      break;
  }
  return offers;
}

}  // namespace kovra::launch
