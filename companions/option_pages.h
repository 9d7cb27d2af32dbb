#pragma once

#include <string>
#include <vector>

#include "platform/win/base/messages.h"

class KovraOptionPage;

namespace kovra::companions {

/// The pages that the option dialog shows, in the order in which they were made.
std::vector<KovraOptionPage*> optionPages();

/// A string of the product's resources.
std::wstring optionText(UINT id);

/// What the parent of a page's window gets when the page tells that it holds changes.
inline constexpr UINT kPageModifiedMessage = WM_APP + 1;

}  // namespace kovra::companions

/// Shows the option dialog until the user ends it. For the program, which knows no class of these
/// libraries.
extern "C" void kovraShowOptions();
