#pragma once

#include <string>
#include <vector>

#include "launch/completion.h"

namespace kovra::host {

/// Candidates for a screen of `width` columns, UTF-8: in columns, those with a note one a line. Of
/// very many the first ones.
std::string candidateTable(const std::vector<launch::Offer>& candidates, size_t width);

}  // namespace kovra::host
