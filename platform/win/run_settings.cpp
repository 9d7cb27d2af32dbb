#include "platform/win/run_settings.h"

#include <cstdlib>
#include <string_view>

namespace kovra::win {

RunSettings& runSettings() {
  static RunSettings settings;
  return settings;
}

void setCurrentProject(const std::filesystem::path& folder) {
  runSettings().projectFolder = folder;
  ++runSettings().projectGeneration;
}

Language localeLanguage() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value == nullptr || *value == '\0') continue;
    return std::string_view(value).starts_with("ja") ? Language::japanese : Language::english;
  }
  return Language::english;
}

}  // namespace kovra::win
