#pragma once

#include <string>

#include "module/frame/seam.h"

namespace kovra {

/// A text in the code page of the thread.
std::string NarrowText(const ACHAR* text);

}  // namespace kovra
