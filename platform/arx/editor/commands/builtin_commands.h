#pragma once

#include <span>
#include <string_view>

class AcApDocument;

namespace kovra::arx {

/// A command that the editor itself has. Each asks through prompts.h, so that it runs alike from
/// the keyboard and from tokens.
struct BuiltInCommand {
  std::wstring_view name;
  std::wstring_view summary;
  void (*run)(AcApDocument& document);
  bool journalled = true;
};

std::span<const BuiltInCommand> builtInCommands();

// commands_layer.cpp, commands_style.cpp
void layerCommand(AcApDocument& document);
void styleCommand(AcApDocument& document);
// commands_undo.cpp
void undoCommand(AcApDocument& document);
void undoOnceCommand(AcApDocument& document);
void redoCommand(AcApDocument& document);
// commands_setvar.cpp
void setVariableCommand(AcApDocument& document);
/// Asks for the value of one variable.
void askVariable(AcApDocument& document, std::wstring_view name);
// commands_view.cpp
void regenCommand(AcApDocument& document);
void ucsCommand(AcApDocument& document);
// commands_edit.cpp
void moveCommand(AcApDocument& document);
void eraseCommand(AcApDocument& document);

}  // namespace kovra::arx
