#include "platform/win/base/run_settings.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace kovra::win {
namespace {

std::filesystem::path homeFolder() {
  const char* home = std::getenv("HOME");
  if (home && *home == '/') return home;
  const passwd* user = ::getpwuid(::getuid());
  return user && user->pw_dir ? user->pw_dir : "";
}

}  // namespace

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

std::filesystem::path stateStoreFile() {
  const std::filesystem::path& named = runSettings().stateStore;
  if (!named.empty()) return named;
  const char* stateHome = std::getenv("XDG_STATE_HOME");
  // Relative paths in that variable are to be ignored (XDG base directories).
  if (stateHome && *stateHome == '/')
    return std::filesystem::path(stateHome) / "kovra" / "dialogs.sqlite";
  const std::filesystem::path home = homeFolder();
  return home.empty() ? home : home / ".local" / "state" / "kovra" / "dialogs.sqlite";
}

}  // namespace kovra::win
