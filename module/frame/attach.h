#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// The module with the string tables and dialog templates; set when the library is attached, null
/// if the family has none.
extern HMODULE ResourceModule;

/// This library itself; set when it is attached.
HMODULE OwnModule();

}  // namespace kovra
