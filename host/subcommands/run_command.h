#pragma once

#include <functional>
#include <memory>

#include "host/lines/user_hands.h"
#include "host/program/options.h"

namespace kovra::host {

/// `kovra [options] [DRAWING...]`: opens the drawings one after another, so that the last one is
/// current, carries out the input, saves. Returns the exit status.
int runDrawings(const RunOptions& options);

using HandsMaker = std::function<std::unique_ptr<UserHands>()>;
/// The same with other hands, which are made with the module loaded and no drawing open yet, and go
/// before the module does.
int runDrawingsByHand(const RunOptions& options, const HandsMaker& makeHands);

}  // namespace kovra::host
