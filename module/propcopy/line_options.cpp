#include "module/propcopy/line_options.h"

#include <algorithm>

#include "module/propcopy/letter_case.h"

namespace kovra {
namespace {

constexpr std::size_t kFewestTokens = 3;

// What trimming a text takes away; only the blank itself separates tokens.
constexpr std::wstring_view kWhiteSpace = L" \t\r\n\v\f\x3000";

/// An option that a value follows. One without an entry is unknown.
void applyValue(PropertySettings& settings, std::wstring_view option, const std::wstring& value,
                NumberReader readNumber) {
  if (equalIgnoringCase(option, L"/L")) settings.Layer = value.substr(0, kLayerNameLength);
  if (equalIgnoringCase(option, L"/H")) settings.Height = readNumber(value.c_str());
  if (equalIgnoringCase(option, L"/W")) settings.WidthFactor = readNumber(value.c_str());
  if (equalIgnoringCase(option, L"/A")) settings.Rotation = readNumber(value.c_str());
  if (equalIgnoringCase(option, L"/J")) settings.Alignment = value.substr(0, kAlignmentCodeLength);
}

}  // namespace

std::vector<std::wstring> splitLine(std::wstring_view line) {
  std::vector<std::wstring> tokens;
  std::size_t begin = line.find_first_not_of(kWhiteSpace);
  while (begin != std::wstring_view::npos) {
    const std::size_t end = std::min(line.find(L' ', begin), line.size());
    tokens.emplace_back(line.substr(begin, end - begin));
    begin = line.find_first_not_of(kWhiteSpace, end);
  }
  return tokens;
}

std::optional<CopyJob> readLineOptions(const std::vector<std::wstring>& tokens, bool scaleByDefault,
                                       NumberReader readNumber) {
  if (tokens.size() < kFewestTokens) return std::nullopt;
  CopyJob job{splitTagList(tokens[0]), {}, scaleByDefault};
  for (std::size_t i = 1; i < tokens.size(); ++i) {
    if (equalIgnoringCase(tokens[i], L"/SC")) {
      job.useDimensionScale = true;
    } else if (equalIgnoringCase(tokens[i], L"/NSC")) {
      job.useDimensionScale = false;
    } else if (i + 1 < tokens.size()) {
      applyValue(job.settings, tokens[i], tokens[i + 1], readNumber);
      ++i;
    }
  }
  return job;
}

}  // namespace kovra
