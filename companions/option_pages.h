#pragma once

#include <vector>

class KovraOptionPage;

namespace kovra::companions {

/// The pages that the option dialog shows, in the order in which they were made.
std::vector<KovraOptionPage*> optionPages();

}  // namespace kovra::companions
