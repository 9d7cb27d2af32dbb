#pragma once

#include <filesystem>
#include <string>

#include "platform/win/base/windows_types.h"

namespace kovra::win {

/// Outcome of loading: a module, or a text for the user (UTF-8) that says why there is none.
struct LoadResult {
  HMODULE module = nullptr;
  std::string error;

  explicit operator bool() const { return module != nullptr; }
};

/// Loads a shared library and calls its DllMain with DLL_PROCESS_ATTACH, if it has one. A library
/// that is loaded already gives the same module and counts one more use.
/// Compiled resources in a file of the same name with the extension .res belong to it.
LoadResult loadLibrary(const std::filesystem::path& file);

/// Loads a compiled resource file as a module of its own, without code.
LoadResult loadResourceFile(const std::filesystem::path& file);

/// Ends one use of the module. The last one calls DllMain with DLL_PROCESS_DETACH, unloads the
/// library and makes sure that its state is gone. Gives an empty text when done. Refused, with a
/// text that says what is alive, while anything of the module is in use: nothing is called then.
std::string unloadModule(HMODULE module);

/// The exported function with this number (in the library's table) or name; null if there is none.
FARPROC exportByOrdinal(HMODULE module, int ordinal);
FARPROC exportByName(HMODULE module, const char* name);

/// The file that the module was loaded from; empty for an unknown handle.
std::filesystem::path moduleFile(HMODULE module);

/// The loaded module whose code or constant data holds this address; null if none does.
HMODULE moduleAt(const void* address);

/// As long as it lives, the module that holds the class of an object can't be unloaded. Registrars
/// of windows, reactors, jigs and pages keep one beside each object that they hold.
/// Objects of the platform's own classes hold nothing back.
class ModuleUse {
 public:
  ModuleUse() = default;
  /// `what` names the kind of thing for the user: "window", "reactor". The object must be
  /// completely constructed and have virtual functions.
  template <typename T>
  ModuleUse(const T* object, const char* what)
      : ModuleUse(moduleAt(*reinterpret_cast<const void* const*>(object)), what) {}
  ModuleUse(HMODULE module, const char* what);
  ~ModuleUse() { release(); }
  ModuleUse(ModuleUse&& other) noexcept;
  ModuleUse& operator=(ModuleUse&& other) noexcept;
  ModuleUse(const ModuleUse&) = delete;
  ModuleUse& operator=(const ModuleUse&) = delete;

 private:
  void release();

  HMODULE module_ = nullptr;
  const char* what_ = nullptr;
};

}  // namespace kovra::win

/// Name of the platform for exportByName.
FARPROC GetProcAddress(HMODULE module, LPCSTR name);
