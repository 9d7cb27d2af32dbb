#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dxf/result.h"

/// What a program that drives the editor calls: documents, bound commands, the keyboard and the
/// pointer. Points are in the current UCS of the active drawing unless a line says otherwise.
/// Every error here is one that the user can be shown; nothing has been changed by a refused call.
/// What typed input leads to later (an unknown command, text that a prompt asks again for, a value
/// that a variable refuses) is noted with Interaction::noteFailure, unless a command gave it
/// itself.
namespace kovra::arx::host {

/// Names an open drawing for good; 0 names none.
using DrawingId = uint32_t;

struct DrawingInfo {
  DrawingId id = 0;
  std::filesystem::path file;  ///< empty when it was never saved
  std::wstring title;
  bool modified = false;  ///< saving it would write other bytes than the file has
};

struct SaveOptions {
  bool backup = true;   ///< keep the former file as NAME.bak
  bool copy = false;    ///< the file is a copy, also that of a drawing that was never saved
  bool rename = false;  ///< the file becomes the drawing's own
};

// --- documents ---------------------------------------------------------------------------------

/// Opens and activates. A file that is open already is activated and its id returned.
Result<DrawingId> openDrawing(const std::filesystem::path& file);
/// A new empty drawing, activated.
Result<DrawingId> newDrawing();
/// Opens what was saved as a copy, and activates it as the drawing of `file` (empty: as one that
/// was never saved): modified, and saved in that place. `unchanged`: what lies there is still what
/// the copy was made from; else, and when it is changed from now on, saving there is refused as
/// long as a file is there. The copy stays.
Result<DrawingId> recoverDrawing(const std::filesystem::path& copy,
                                 const std::filesystem::path& file, bool unchanged = true);
/// To its own file without `file`; a copy elsewhere doesn't change what the drawing is called.
/// Refused while a transaction is open: what it changed may still be taken back.
Result<void> saveDrawing(DrawingId id, const std::filesystem::path* file = nullptr,
                         SaveOptions options = {});
/// Cancels the drawing's commands until it is idle, tells the reactors, and drops what wasn't
/// saved. With a command waiting below the caller the drawing closes as soon as that command has
/// unwound; with no command it is closed on return.
Result<void> closeDrawing(DrawingId id);
/// Reads an idle drawing's file anew and drops what wasn't saved; the drawing gets a new id, which
/// is returned. One whose file can't be read stays as it is.
Result<DrawingId> reloadDrawing(DrawingId id);
/// Refused while activation is disabled, and for a drawing whose prompt lies below another's.
Result<void> activateDrawing(DrawingId id);
std::vector<DrawingInfo> drawings();
/// 0 when no drawing is open.
DrawingId currentDrawing();

/// What U would take back in the current drawing and what REDO would bring back: the command's
/// name, empty for a step without one; nothing when there is no such step.
std::optional<std::wstring> undoName();
std::optional<std::wstring> redoName();

/// A system variable of the current drawing, texts without quotes.
Result<std::wstring> variable(std::wstring_view name);
/// Sets it to what a user typed. While no command runs that is a step which U takes back.
Result<void> setVariable(std::wstring_view name, std::wstring_view typed);

// --- commands ----------------------------------------------------------------------------------

/// Binds a command name (compared without regard to case; without "." or "_") to a function that
/// runs in the document's command context. A name that is bound or built in already is replaced.
/// `summary`: what it does, for a list of commands.
void bindCommand(std::wstring_view name, std::function<void()> run, std::wstring_view summary = {});
void unbindCommand(std::wstring_view name);

struct CommandInfo {
  std::wstring name;     ///< upper case
  std::wstring summary;  ///< empty: nobody said
  bool builtIn = false;  ///< the editor's own, not a bound one
};
/// The commands that can be typed now, the bound ones first, each kind in order of their names.
/// Bare names of variables aren't among them.
std::vector<CommandInfo> commands();

/// Runs the idle host until there is no more outside input or `stop` says so: commands start here,
/// and everything they call waits on pumps inside. Never returns with a command running.
void runIdle(const std::function<bool()>& stop = {});

// --- what waits --------------------------------------------------------------------------------

enum class WaitKind {
  kNone,       ///< no drawing, or a command is running and waits for nothing
  kIdle,       ///< a command name is awaited
  kString,     ///< acedGetString and its kin: text, keyword, number
  kPoint,      ///< a point prompt
  kPick,       ///< a prompt for one entity
  kSelection,  ///< a prompt for a selection set
  kDrag        ///< a drag or a jig
};

/// Kinds of names that a prompt may ask for.
enum class NameKind { kNone, kLayer, kTextStyle, kVariable };

/// Which names a prompt asks for, so that they can be offered while one is typed.
struct NamesAsked {
  NameKind kind = NameKind::kNone;
  bool several = false;  ///< a list with commas between the names
};

struct Wait {
  WaitKind kind = WaitKind::kNone;
  DrawingId drawing = 0;
  std::wstring command;                ///< the command that waits; empty at the idle host
  std::wstring prompt;                 ///< as shown
  NamesAsked names;                    ///< what is asked for
  bool takesBlanks = false;            ///< a blank belongs to the text and doesn't end it
  std::vector<std::wstring> keywords;  ///< that answer it, as the user types them
  bool modalOnTop = false;             ///< a modal dialog or message box has the input instead
};
Wait topWait();
/// The names of this kind: of the current drawing's tables in the tables' order, none without one.
std::vector<std::wstring> namesOf(NameKind kind);

/// Sends the cancel key (code 3) to the prompt on top; at the idle host it clears the line.
/// Returns what was cancelled. Under a modal dialog it does nothing: the dialog is to be answered.
Wait answerCancel();

// --- keyboard ----------------------------------------------------------------------------------

/// Characters for the active drawing's command line, as typed: '\n' or '\r' is Enter, code 3
/// cancels, code 8 is a backspace. They are read by the pump, not here. Refused while a modal
/// dialog or a message box is on top, and with no drawing.
Result<void> typeText(std::wstring_view characters);
/// Whether a plain Enter at the idle host repeats the last command (a terminal) or does nothing (a
/// script).
void setEnterRepeats(bool repeats);
/// False when a terminal shows prompts and what is typed by itself: neither goes to the transcript.
void setInputShown(bool shown);

// --- pointer -----------------------------------------------------------------------------------

struct PickPoint {
  double x = 0;
  double y = 0;
  double z = 0;
};

/// Whether SNAPMODE and ORTHOMODE may move the point, or it is meant as it is: a point that was
/// found on an object.
enum class Aim { kByModes, kExact };
/// Clicks at a point: answers a point prompt, ends a drag, picks at a pick or selection prompt.
Result<void> clickPoint(PickPoint point, Aim aim = Aim::kByModes);
/// Moves the cursor there.
Result<void> moveCursor(PickPoint point, Aim aim = Aim::kByModes);
/// Clicks on an entity, at a place where a pick gives it; an error if it has none.
Result<void> pickEntity(uint64_t handle);
/// What @select and @preselect name.
struct SelectionArea {
  PickPoint first;
  PickPoint second;
};
struct SelectionInput {
  std::optional<SelectionArea> box;  ///< window to the right, crossing to the left
  std::vector<uint64_t> handles;     ///< in this order
  bool all = false;
  bool adding = false;  ///< for preselect: to what is selected
};
/// Answers the selection prompt; the prompt goes on until Enter.
Result<void> select(const SelectionInput& input);
/// Makes it the implied selection of the active drawing; only at the idle host.
Result<void> preselect(const SelectionInput& input);
/// What a click at the idle host came to.
enum class IdleClick {
  kMissed,  ///< nothing is there
  kAdded,   ///< what is there belongs to the implied selection now
  kTaken    ///< a filter of messages kept the click for itself
};
Result<IdleClick> clickIdle(PickPoint point);

}  // namespace kovra::arx::host
