#pragma once

#include <string>

#include "platform/win/desktop/dialog_listing.h"

namespace kovra::host {

/// The dialog in the few lines that count, UTF-8: its title, then row by row as on the screen what
/// is visible, each control behind its number; group boxes with their titles. Values stand in
/// quotes, those of lists with the number of items.
std::string dialogView(const win::DialogListing& dialog);

}  // namespace kovra::host
