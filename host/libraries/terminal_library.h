#pragma once

#include <memory>

#include "host/program/line_source.h"
#include "launch/completion.h"
#include "platform/dxf/result.h"

namespace kovra::host {

/// True when standard input and output are terminals.
bool terminalIsThere();

/// The lines that a person types there, from the library of host/terminal/: most runs are scripts,
/// which need no line editor. `savesAtEnd`: changes are written when the input ends, so there is
/// nothing to warn of. `complete` is asked while a line is typed. kNotFound, kNotReadable: see
/// launch::loadProgramExport().
Result<std::unique_ptr<LineSource>> openTerminal(bool savesAtEnd, launch::Completer complete);

}  // namespace kovra::host

/// What the library exports. The caller owns the lines.
extern "C" kovra::host::LineSource* kovraTerminalLines(bool savesAtEnd,
                                                       kovra::launch::Completer complete);
