#pragma once

#include "module/frame/seam.h"

/// Typed access to system variables. Each operation returns 0, or -1 when the platform refuses; a
/// value that is read is then empty or 0. "CECOLOR" is read and set as a color number: 0 is by
/// block, 256 by layer.
namespace kovra {

int GetVar(const ACHAR* name, CString& text);
/// 16-bit variables, with their sign, and "CECOLOR".
int GetVar(const ACHAR* name, int& value);
int GetVar(const ACHAR* name, double& value);
/// The buffer must hold the variable's text; callers pass 256 characters.
int GetVar(const ACHAR* name, ACHAR* buffer);

int SetVar(const ACHAR* name, const ACHAR* text);
/// The low 16 bits of `value`, but "CECOLOR" as a text.
int SetVar(const ACHAR* name, int value);
int SetVar(const ACHAR* name, double value);

}  // namespace kovra
