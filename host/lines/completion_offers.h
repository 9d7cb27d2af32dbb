#pragma once

#include "host/lines/line_handlers.h"
#include "launch/completion.h"

namespace kovra::host {

/// The names that there are right now: lines, commands, records of the current drawing, controls
/// and items of the dialog that lines mean, files (from the folder that the line in question starts
/// from).
std::vector<launch::Offer> offersNow(const LineContext& context, launch::OfferKind kind,
                                     std::wstring_view detail);

}  // namespace kovra::host
