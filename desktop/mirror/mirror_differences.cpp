#include "desktop/mirror/mirror_differences.h"

#include "desktop/loop/texts.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/desktop/user_input.h"
#include "platform/win/dialogs/dialogs.h"
#include "platform/win/windows/window_api.h"

namespace kovra::desktop {
namespace {

class Comparison {
 public:
  Comparison(std::string name, std::vector<std::string>& lines)
      : name_(std::move(name)), lines_(lines) {}

  void that(bool equal, const std::string& what) {
    if (!equal) lines_.push_back(name_ + ": " + what);
  }
  void number(long native, long memory, const std::string& what) {
    that(native == memory,
         what + " is " + std::to_string(native) + " natively, " + std::to_string(memory));
  }
  void text(const std::wstring& native, const std::wstring& memory, const std::string& what) {
    that(native == memory,
         what + " is \"" + win::toUtf8(native) + "\" natively, \"" + win::toUtf8(memory) + "\"");
  }

 private:
  std::string name_;
  std::vector<std::string>& lines_;
};

/// The text as its kind of control shows it.
std::wstring shownText(const win::ControlListing& listing, const std::wstring& native) {
  const bool label = listing.kind == "label";
  // A label without a control that it names shows no access key.
  return label && native == listing.shown ? listing.shown : listing.text;
}

bool hasText(const std::string& kind) {
  return kind != "tabs" && kind != "list" && kind != "grid" && kind != "spin" && kind != "icon";
}

void compareTable(const win::TableListing& native, const win::TableListing& memory,
                  Comparison& compare) {
  compare.number(native.size.row, memory.size.row, "the count of rows");
  compare.number(native.size.column, memory.size.column, "the count of columns");
  compare.number(native.active.row, memory.active.row, "the active row");
  compare.number(native.active.column, memory.active.column, "the active column");
  compare.that(native.editing == memory.editing, "a cell's field is open on one side only");
  compare.text(native.editorText, memory.editorText, "the text in the cell's field");
  std::wstring nativeCells, cells;
  const auto put = [](std::wstring& all, const win::TableState::FilledCell& cell) {
    if (!cell.shown.empty())
      all += std::to_wstring(cell.place.row) + L":" + std::to_wstring(cell.place.column) + L"=" +
             cell.shown + L" ";
  };
  for (const auto& cell : native.cells) put(nativeCells, cell);
  for (const auto& cell : memory.cells) put(cells, cell);
  compare.text(nativeCells, cells, "the filled cells");
}

}  // namespace

void compareDialog(HWND dialog, const QWidget* widget, std::vector<std::string>& lines) {
  Comparison compare("dialog " + std::to_string(win::templateOf(dialog)), lines);
  const bool visible = IsWindowVisible(dialog) != FALSE;
  compare.number(widget != nullptr && widget->isVisible() ? 1 : 0, visible ? 1 : 0, "visible");
  if (widget == nullptr || !visible) return;
  compare.text(fromQt(widget->windowTitle()), win::windowText(dialog), "the title");
}

void compareControl(const win::ControlListing& listing, const ControlMirror* mirror,
                    std::vector<std::string>& lines) {
  Comparison compare(listing.kind + " " + std::to_string(listing.id), lines);
  if (mirror == nullptr || mirror->widget() == nullptr)
    return compare.that(false, "has no native widget");
  QWidget* widget = mirror->widget();
  const win::ControlListing native = mirror->shown();
  compare.number(widget->isVisible() ? 1 : 0, listing.visible ? 1 : 0, "visible");
  const bool enabled = !widget->testAttribute(Qt::WA_ForceDisabled);
  compare.number(enabled ? 1 : 0, listing.enabled ? 1 : 0, "enabled");
  if (hasText(listing.kind)) compare.text(native.text, shownText(listing, native.text), "the text");
  if (native.check || listing.check)
    compare.number(native.check.value_or(-1), listing.check.value_or(-1), "the check");
  compare.that(native.items == listing.items, "other items");
  compare.that(native.checks == listing.checks, "other check boxes of items");
  if (!listing.items.empty())
    compare.number(native.selected, listing.selected, "the selected item");
  if (native.table && listing.table) compareTable(*native.table, *listing.table, compare);
  const bool focused = widget->window()->focusWidget() == mirror->focusWidget();
  if (win::focusedControl() == listing.window && listing.enabled)
    compare.that(focused, "hasn't the native focus");
}

}  // namespace kovra::desktop
