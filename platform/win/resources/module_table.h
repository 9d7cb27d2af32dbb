#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "platform/win/base/windows_types.h"
#include "platform/win/resources/resource_file.h"

namespace kovra::win {

/// A loaded library or resource file.
struct LoadedModule {
  std::filesystem::path file;
  void* library = nullptr;    ///< of dlopen; null for a resource file
  const void* map = nullptr;  ///< the dynamic linker's record of the library, its identity
  std::optional<ResourceFile> resources;
  int uses = 1;
  std::map<std::string, int> alive;  ///< what keeps it from being unloaded, by kind
};

/// The module of a handle; null for one that isn't loaded. Valid until it is unloaded.
LoadedModule* findModule(HMODULE handle);

}  // namespace kovra::win
