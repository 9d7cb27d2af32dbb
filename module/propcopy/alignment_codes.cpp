#include "module/propcopy/alignment_codes.h"

#include <algorithm>
#include <iterator>

#include "module/drawing/attachment.h"
#include "module/propcopy/letter_case.h"

namespace kovra {
namespace {

struct CodeRow {
  std::wstring_view code;
  TextModes modes;
};

constexpr CodeRow kCodes[] = {
    {L"TL", {3, 0}},
    {L"TC", {3, 1}},
    {L"TR", {3, 2}},
    {L"ML", {2, 0}},
    {L"MC", {2, 1}},
    {L"MR", {2, 2}},
    {L"BL", {1, 0}},
    {L"BC", {1, 1}},
    {L"BR", {1, 2}},
    {L"R", {0, 2}},
    {L"C", {0, 1}},
    {L"M", {0, 4}},
    {L"A", {0, kKeepHorizontal}},
    {L"F", {0, kKeepHorizontal}},
};

constexpr TextModes kLeft = {0, 0};

}  // namespace

TextModes alignmentModes(std::wstring_view code) {
  const auto row = std::find_if(std::begin(kCodes), std::end(kCodes), [code](const CodeRow& each) {
    return equalIgnoringCase(code, each.code);
  });
  return row != std::end(kCodes) ? row->modes : kLeft;
}

Anchor anchorOf(const TextModes& modes) {
  return IsPlacedByPosition(modes.horizontal, modes.vertical) ? Anchor::position : Anchor::point;
}

}  // namespace kovra
