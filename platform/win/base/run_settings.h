#pragma once

#include <cstdint>
#include <filesystem>

namespace kovra::win {

enum class Language { english, japanese };

/// What the program tells the platform and the companion libraries about this run.
struct RunSettings {
  std::filesystem::path projectFolder;    ///< empty: no project is current
  std::uint64_t projectGeneration = 0;    ///< changes whenever another project is made current
  std::filesystem::path stateStore;       ///< the user's dialog store; empty: the user's own
  std::filesystem::path registry;         ///< stands for HKEY_LOCAL_MACHINE; empty: no keys
  bool keepBackup = true;                 ///< a saved drawing's former file stays as NAME.bak
  std::filesystem::path resourceFolder;   ///< where compiled resource files lie
  Language language = Language::english;  ///< of strings and dialogs
};

/// The settings of this run. The program fills them before it loads the module.
RunSettings& runSettings();

/// Makes another project current, or none with an empty path, and counts the generation up.
void setCurrentProject(const std::filesystem::path& folder);

/// The file of the user's dialog store: the one that the run names, else
/// $XDG_STATE_HOME/kovra/dialogs.sqlite with ~/.local/state as the default. Empty without a home.
std::filesystem::path stateStoreFile();

/// The language that the process's locale asks for (LC_ALL, LC_MESSAGES, LANG).
Language localeLanguage();

}  // namespace kovra::win
