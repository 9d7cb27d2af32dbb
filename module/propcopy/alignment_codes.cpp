#include "module/propcopy/alignment_codes.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "module/drawing/attachment.h"
#include "module/propcopy/letter_case.h"

namespace kovra {
namespace {

struct CodeRow {
  std::wstring_view code;
  CodeModes modes;
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

constexpr CodeModes kLeft = {0, 0};

constexpr std::array<std::wstring_view, kAttachments> AlignmentCodeTable = {
    L"L", L"C", L"R", L"M", L"TL", L"TC", L"TR", L"ML", L"MC", L"MR", L"BL", L"BC", L"BR"};

}  // namespace

CodeModes alignmentModes(std::wstring_view code) {
  const auto row = std::find_if(std::begin(kCodes), std::end(kCodes), [code](const CodeRow& each) {
    return equalIgnoringCase(code, each.code);
  });
  return row != std::end(kCodes) ? row->modes : kLeft;
}

std::wstring_view AlignmentCode(int attachIndex) {
  const bool exists = attachIndex >= 0 && attachIndex < kAttachments;
  return exists ? AlignmentCodeTable[static_cast<std::size_t>(attachIndex)] : std::wstring_view();
}

Anchor anchorOf(const CodeModes& modes) {
  return IsPlacedByPosition(modes.horizontal, modes.vertical) ? Anchor::position : Anchor::point;
}

}  // namespace kovra
