#pragma once

#include <string>

namespace kovra::host {

/// The shortest decimal text that reads back as the same double; whole numbers without a point.
std::string shortestNumber(double value);

}  // namespace kovra::host
