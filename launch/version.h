#pragma once

namespace kovra::launch {

/// The version and, where the program was built from a repository, the commit: "0.1.0 (1a2b3c4)".
const char* versionText();

}  // namespace kovra::launch
