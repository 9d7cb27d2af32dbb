// Lines for dialogs and their controls.
#include <cstdlib>

#include "host/lines/dialog_view.h"
#include "host/lines/line_handlers.h"
#include "launch/quoted_text.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/desktop/dialog_listing.h"
#include "platform/win/desktop/user_input.h"

namespace kovra::host {
namespace {

Error refused(std::string message) {
  return {ErrorKind::kInvalidInput, std::move(message)};
}

Result<HWND> openDialog(const LineContext& context) {
  HWND dialog = meantDialog(context);
  if (dialog == nullptr) return refused("no dialog is open");
  return dialog;
}

Result<void> clickLine(LineContext& context, Arguments& arguments) {
  const Result<HWND> window = namedControl(context, arguments);
  if (!window) return window.error();
  if (const Result<void> end = arguments.end(); !end) return end;
  return done(context.hands.clickControl(window.value()));
}

Result<void> typeLine(LineContext& context, Arguments& arguments) {
  const Result<HWND> window = namedControl(context, arguments);
  if (!window) return window.error();
  const Result<std::wstring> text = arguments.text("a text (\"\" for none)");
  if (!text) return text.error();
  return done(context.hands.typeOver(window.value(), text.value()));
}

Result<void> caretLine(LineContext& context, Arguments& arguments) {
  const Result<HWND> window = namedControl(context, arguments);
  if (!window) return window.error();
  const Result<int> from = arguments.integer("the caret's place");
  if (!from) return from.error();
  const Result<int> to = arguments.atEnd() ? from : arguments.integer("the selection's end");
  if (!to) return to.error();
  if (const Result<void> end = arguments.end(); !end) return end;
  return done(context.hands.placeCaret(window.value(), from.value(), to.value()));
}

Result<void> chooseLine(LineContext& context, Arguments& arguments) {
  const Result<HWND> window = namedControl(context, arguments);
  if (!window) return window.error();
  const bool byIndex = arguments.startsWith(L'#');
  const Result<std::wstring> item = arguments.text("an item");
  if (!item) return item.error();
  if (!byIndex) return done(context.hands.chooseItem(window.value(), item.value()));
  Arguments number(std::wstring_view(item.value()).substr(1));
  const Result<int> index = number.integer("an item's index");
  if (!index) return index.error();
  return done(context.hands.chooseIndex(window.value(), index.value()));
}

Result<bool> onOrOff(Arguments& arguments) {
  const Result<std::wstring> word = arguments.word("on or off");
  if (!word) return word.error();
  if (word.value() == L"on" || word.value() == L"off") return word.value() == L"on";
  return refused("'" + win::toUtf8(word.value()) + "' is neither on nor off");
}

void printCheck(const std::string& what, bool on) {
  win::interaction().freshLine();
  win::interaction().print(what + (on ? " on\n" : " off\n"));
}

Result<void> checkControl(const LineContext& context, HWND window, bool wanted) {
  const win::ControlListing before = win::listControl(window);
  if (!before.check) return refused("control " + std::to_string(before.id) + " can't be checked");
  if ((*before.check == 1) != wanted) {
    const win::InputResult clicked = context.hands.clickControl(window);
    if (!clicked) return done(clicked);
  }
  printCheck(std::to_string(before.id), win::listControl(window).check == 1);
  return {};
}

Result<void> checkItem(const LineContext& context, HWND window, int index, bool wanted) {
  const auto row = static_cast<std::size_t>(index);
  const auto isOn = [=](const win::ControlListing& listing) {
    return index >= 0 && row < listing.checks.size() && listing.checks[row] == 1;
  };
  const win::ControlListing before = win::listControl(window);
  const bool known = index >= 0 && row < before.checks.size();
  if (!known || isOn(before) != wanted) {
    const win::InputResult clicked = context.hands.clickItemCheck(window, index);
    if (!clicked) return done(clicked);
  }
  printCheck(std::to_string(before.id) + ' ' + std::to_string(index),
             isOn(win::listControl(window)));
  return {};
}

Result<void> checkLine(LineContext& context, Arguments& arguments) {
  const Result<HWND> window = namedControl(context, arguments);
  if (!window) return window.error();
  Arguments ahead = arguments;
  const Result<std::vector<std::wstring>> words = ahead.words();
  const bool ofRow = words && words.value().size() > 1;
  const Result<int> row = ofRow ? arguments.integer("a row from 0") : Result<int>(0);
  if (!row) return row.error();
  const Result<bool> wanted = onOrOff(arguments);
  if (!wanted) return wanted.error();
  if (const Result<void> end = arguments.end(); !end) return end;
  return ofRow ? checkItem(context, window.value(), row.value(), wanted.value())
               : checkControl(context, window.value(), wanted.value());
}

/// One press here, the others after it, as fast as a person who waits for what each does.
Result<void> spinLine(LineContext& context, Arguments& arguments) {
  const Result<HWND> window = namedControl(context, arguments);
  if (!window) return window.error();
  const Result<int> presses = arguments.integer("how many presses, below 0 for downward");
  if (!presses) return presses.error();
  if (const Result<void> end = arguments.end(); !end) return end;
  constexpr int kMostPresses = 100000;
  if (presses.value() == 0 || std::abs(presses.value()) > kMostPresses) {
    return refused("@spin presses once at least, and " + std::to_string(kMostPresses) +
                   " times at most");
  }
  const auto press = [&context, arrows = window.value(), up = presses.value() > 0] {
    return done(context.hands.pressArrow(arrows, up));
  };
  context.rest = {std::abs(presses.value()) - 1, press};
  return press();
}

Result<void> focusLine(LineContext& context, Arguments& arguments) {
  const Result<HWND> window = namedControl(context, arguments);
  if (!window) return window.error();
  if (const Result<void> end = arguments.end(); !end) return end;
  return done(context.hands.focusControl(window.value()));
}

Result<void> keyLine(LineContext& context, Arguments& arguments) {
  const Result<HWND> window = namedControl(context, arguments);
  if (!window) return window.error();
  const Result<std::wstring> name = arguments.word("a key's name");
  if (!name) return name.error();
  if (const Result<void> end = arguments.end(); !end) return end;
  const std::optional<win::Keystroke> key = win::keyNamed(win::toUtf8(name.value()));
  if (!key) return refused("'" + win::toUtf8(name.value()) + "' is no key");
  return done(context.hands.pressKey(window.value(), *key));
}

Result<void> placeLine(LineContext& context, Arguments& arguments) {
  const Result<HWND> dialog = openDialog(context);
  if (!dialog) return dialog.error();
  Arguments ahead = arguments;
  const Result<std::vector<std::wstring>> words = ahead.words();
  if (words && words.value() == std::vector<std::wstring>{L"min"}) {
    return done(context.hands.minimizeDialog(dialog.value()));
  }
  std::vector<int> numbers;
  while (!arguments.atEnd()) {
    const Result<int> number = arguments.integer("a place on the screen");
    if (!number) return number.error();
    numbers.push_back(number.value());
  }
  if (numbers.size() != 2 && numbers.size() != 4) return refused("@place takes X Y [W H] or min");
  const win::InputResult moved = context.hands.moveDialog(dialog.value(), numbers[0], numbers[1]);
  if (!moved || numbers.size() == 2) return done(moved);
  return done(context.hands.sizeDialog(dialog.value(), numbers[2], numbers[3]));
}

Result<void> closeLine(LineContext& context, Arguments& arguments) {
  if (const Result<void> end = arguments.end(); !end) return end;
  const Result<HWND> dialog = openDialog(context);
  return dialog ? done(context.hands.pressCloseBox(dialog.value())) : dialog.error();
}

Result<void> useLine(LineContext& context, Arguments& arguments) {
  const Result<int> number = arguments.integer("a template's number");
  if (!number) return number.error();
  if (const Result<void> end = arguments.end(); !end) return end;
  const auto wanted = static_cast<unsigned>(number.value());
  if (number.value() <= 0 || win::dialogOfTemplate(wanted) == nullptr) {
    return refused("no dialog of template " + std::to_string(number.value()) + " is open");
  }
  context.usedTemplate = wanted;
  return {};
}

std::string cellText(win::TableState::Cell cell) {
  return std::to_string(cell.row) + ' ' + std::to_string(cell.column);
}

/// What a table is like, then a line for each cell with a text.
std::string tableText(const win::TableListing& table) {
  std::string text = " rows " + std::to_string(table.size.row) + " columns " +
                     std::to_string(table.size.column) + " active " + cellText(table.active);
  if (table.block)
    text += " block " + cellText(table.block->first) + ' ' + cellText(table.block->second);
  if (table.editing) {
    text += " editor " + win::toUtf8(launch::quotedText(table.editorText)) + " caret " +
            std::to_string(table.from);
    if (table.to != table.from) text += ' ' + std::to_string(table.to);
  }
  for (const win::TableState::FilledCell& cell : table.cells) {
    text += "\n    " + cellText(cell.place) + ' ' + win::toUtf8(launch::quotedText(cell.text));
    if (cell.shown != cell.text) text += " shows " + win::toUtf8(launch::quotedText(cell.shown));
  }
  return text;
}

std::string controlText(const win::ControlListing& listing) {
  std::string text = std::to_string(listing.id) + ' ' + listing.kind;
  text += listing.enabled ? " enabled" : " disabled";
  text += listing.visible ? " visible" : " hidden";
  if (listing.check)
    text += *listing.check == 0 ? " off" : *listing.check == 1 ? " on" : " between";
  text += ' ' + win::toUtf8(launch::quotedText(listing.text));
  if (listing.items.empty()) return text;
  text += " #" + std::to_string(listing.selected) + " of";
  for (std::size_t i = 0; i < listing.items.size(); ++i) {
    text += ' ' + win::toUtf8(launch::quotedText(listing.items[i]));
    if (i < listing.checks.size()) text += listing.checks[i] == 1 ? " on" : " off";
  }
  return text;
}

void printAll(const win::DialogListing& listing, std::ostream& out) {
  const RECT& place = listing.place;
  out << win::toUtf8(launch::quotedText(listing.title)) << " template " << listing.templateId
      << " at " << place.left << ' ' << place.top << " size " << place.right - place.left << ' '
      << place.bottom - place.top << (listing.minimized ? " minimized" : "") << '\n';
  for (const win::ControlListing& entry : listing.controls) {
    out << "  " << controlText(entry)
        << (entry.id == listing.focusId && entry.id != 0 ? " focus" : "")
        << (entry.table ? tableText(*entry.table) : "") << '\n';
  }
}

Result<void> dialogLine(LineContext& context, Arguments& arguments) {
  const bool shortly = !arguments.atEnd();
  if (shortly) {
    const Result<std::wstring> word = arguments.word("short");
    if (!word || word.value() != L"short") return refused("@dialog takes nothing or short");
  }
  if (const Result<void> end = arguments.end(); !end) return end;
  const Result<HWND> dialog = openDialog(context);
  if (!dialog) return dialog.error();
  const win::DialogListing listing = win::listDialog(dialog.value());
  win::interaction().freshLine();
  if (shortly) {
    context.out << dialogView(listing);
  } else {
    printAll(listing, context.out);
  }
  return {};
}

constexpr LineHandler kLines[] = {
    {L"click", clickLine, false, L"ID",
     L"presses a button, toggles a check box, checks a radio button"},
    {L"type", typeLine, false, L"ID TEXT", L"types over the text of a field, \"\" empties it"},
    {L"caret", caretLine, false, L"ID FROM [TO]",
     L"puts the caret behind a character, or selects up to another"},
    {L"choose", chooseLine, false, L"ID ITEM",
     L"picks an item of a list by its text, #N by its index from 0"},
    {L"check", checkLine, false, L"ID [ROW] on|off",
     L"checks a box or not, also that of a list's row (from 0), and says how it stands"},
    {L"spin", spinLine, false, L"ID N", L"presses an up-down N times, its lower arrow for -N"},
    {L"focus", focusLine, false, L"ID", L"moves the focus"},
    {L"key", keyLine, false, L"ID KEY", L"presses a key there: Tab, F2, Ctrl+C ..."},
    {L"place", placeLine, false, L"X Y [W H]|min", L"moves, sizes or minimises the dialog"},
    {L"close", closeLine, false, L"", L"presses the dialog's close box"},
    {L"use", useLine, false, L"TEMPLATE", L"says which of several open dialogs the lines mean"},
    {L"dialog", dialogLine, false, L"[short]",
     L"prints all controls of the dialog; short: what is visible, as on the screen"},
};

}  // namespace

HWND meantDialog(const LineContext& context) {
  HWND dialog = context.usedTemplate == 0 ? nullptr : win::dialogOfTemplate(context.usedTemplate);
  return dialog != nullptr ? dialog : win::topDialog();
}

Result<HWND> namedControl(LineContext& context, Arguments& arguments) {
  const Result<HWND> dialog = openDialog(context);
  if (!dialog) return dialog.error();
  const Result<int> id = arguments.integer("a control's number");
  if (!id) return id.error();
  HWND window = win::controlWithId(dialog.value(), id.value());
  if (window == nullptr) {
    return refused("the dialog has no control " + std::to_string(id.value()));
  }
  return window;
}

std::span<const LineHandler> dialogLines() {
  return kLines;
}

}  // namespace kovra::host
