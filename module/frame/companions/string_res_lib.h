#pragma once

#include "module/frame/seam.h"

/// The module with the string tables and dialog templates of the family, in the user's language;
/// null if it can't be loaded. Stays loaded as long as the process runs.
HMODULE GetResourceModule();
