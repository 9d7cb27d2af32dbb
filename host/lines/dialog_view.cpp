#include "host/lines/dialog_view.h"

#include <algorithm>

#include "host/program/script_text.h"
#include "launch/quoted_text.h"
#include "platform/arx/geometry/east_asian_width.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/desktop/dialog_outline.h"

namespace kovra::host {
namespace {

constexpr size_t kLineWidth = 100;
constexpr size_t kLongestValue = 60;
constexpr size_t kMostRows = 8;

/// The rows of a list with check boxes, each with its mark.
std::wstring checkedRows(const win::ControlListing& list) {
  std::wstring text;
  const size_t shown = std::min(list.checks.size(), kMostRows);
  for (size_t i = 0; i < shown; ++i)
    text += (list.checks[i] == 1 ? L" [x] " : L" [ ] ") + launch::quotedText(list.items[i]);
  if (shown < list.checks.size()) text += L" ... of " + std::to_wstring(list.checks.size());
  return text.empty() ? text : text.substr(1);
}

std::wstring tableText(const win::TableListing& table) {
  std::wstring text = L"table of " + std::to_wstring(table.cells.size()) + L":";
  for (const win::TableState::FilledCell& cell : table.cells) {
    if (text.size() > kLongestValue) return text + L" ...";
    text += L' ' + launch::quotedText(cell.shown);
  }
  return text;
}

std::wstring valueText(const win::ControlListing& field) {
  if (field.table) return tableText(*field.table);
  if (!field.checks.empty()) return checkedRows(field);
  const bool ofRow = field.kind == "list" && field.selected >= 0;
  const std::wstring_view value =
      ofRow ? field.items[static_cast<size_t>(field.selected)] : field.text;
  std::wstring text = launch::quotedText(value.substr(0, kLongestValue));
  if (value.size() > kLongestValue) text += L"...";
  if (!field.items.empty()) text += L" of " + std::to_wstring(field.items.size());
  return text;
}

std::wstring checkMark(const win::ControlListing& control) {
  const bool radio = control.kind == "radio";
  const wchar_t mark = *control.check == 0   ? L' '
                       : radio               ? L'*'
                       : *control.check == 1 ? L'x'
                                             : L'-';
  return radio ? std::wstring{L'(', mark, L')'} : std::wstring{L'[', mark, L']'};
}

std::wstring partText(const win::OutlinePart& part) {
  const win::ControlListing& control = *part.control;
  if (control.kind == "label") return control.shown;
  std::wstring text = std::to_wstring(control.id) + L' ';
  if (control.kind == "spin") return text + L"[+/-]";
  if (control.check) {
    text += checkMark(control) + L' ' + control.shown;
  } else if (control.kind == "button") {
    text += L'[' + control.shown + L']';
  } else {
    if (!part.caption.empty() && !part.captionIsPart) text += part.caption + L' ';
    text += valueText(control);
  }
  return text;
}

bool isDisabled(const win::OutlinePart& part) {
  return !part.control->enabled && part.control->kind != "label";
}

/// A row that is disabled as a whole says so once.
std::wstring rowText(const win::OutlineRow& row) {
  const bool allDisabled = std::all_of(row.parts.begin(), row.parts.end(),
                                       [](const auto& part) { return !part.control->enabled; }) &&
                           std::any_of(row.parts.begin(), row.parts.end(), isDisabled);
  std::wstring text = allDisabled ? L"  disabled:" : L"";
  size_t columns = text.size();
  for (const win::OutlinePart& part : row.parts) {
    std::wstring piece = L"  " + partText(part);
    if (!allDisabled && isDisabled(part)) piece += L" (disabled)";
    const size_t width = arx::columnsOf(piece);
    if (columns > 0 && columns + width > kLineWidth) {
      text += L"\n    ";
      columns = 4;
    }
    text += piece;
    columns += width;
  }
  return text + L'\n';
}

}  // namespace

std::string dialogView(const win::DialogListing& dialog) {
  std::wstring text = dialog.title + L" (" + std::to_wstring(dialog.templateId) + L")\n";
  const std::vector<win::OutlineGroup> outline = win::outlineOf(dialog);
  for (const win::OutlineGroup& group : outline) {
    const bool below = &group != &outline.front();
    if (!group.title.empty()) text += L"-- " + group.title + L'\n';
    if (group.title.empty() && below) text += L"--\n";
    for (const win::OutlineRow& row : group.rows) text += rowText(row);
  }
  return win::toUtf8(text);
}

}  // namespace kovra::host
