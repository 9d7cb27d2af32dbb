#include "platform/win/resources/loader.h"

#include <dlfcn.h>
#include <link.h>

#include <map>
#include <system_error>
#include <utility>

#include "platform/win/resources/module_table.h"

namespace kovra::win {
namespace {

/// A row of the table `kovraExportTable` in a library, as the library declares it.
struct ExportRow {
  int ordinal;
  void (*function)();
};

using DllMainFunction = BOOL (*)(HINSTANCE, DWORD, LPVOID);

std::map<HMODULE, LoadedModule>& modules() {
  static std::map<HMODULE, LoadedModule> table;
  return table;
}

HMODULE addModule(LoadedModule module) {
  static std::uintptr_t last = 0x10000;
  last += 0x10000;
  const auto handle = reinterpret_cast<HMODULE>(last);
  modules().emplace(handle, std::move(module));
  return handle;
}

const void* mapOfAddress(const void* address) {
  Dl_info info{};
  void* map = nullptr;
  return dladdr1(address, &info, &map, RTLD_DL_LINKMAP) != 0 ? map : nullptr;
}

const void* mapOfLibrary(void* library) {
  link_map* map = nullptr;
  return dlinfo(library, RTLD_DI_LINKMAP, &map) == 0 ? map : nullptr;
}

std::string linkerError() {
  const char* message = dlerror();
  return message != nullptr ? message : "unknown reason";
}

HMODULE handleOfMap(const void* map) {
  for (const auto& [handle, module] : modules()) {
    if (map != nullptr && module.map == map) return handle;
  }
  return nullptr;
}

/// A symbol of this very library: dlsym by itself would look into the libraries it needs as well.
void* ownSymbol(const LoadedModule& module, const char* name) {
  void* address = module.library != nullptr ? dlsym(module.library, name) : nullptr;
  return address != nullptr && mapOfAddress(address) == module.map ? address : nullptr;
}

bool notifyModule(HMODULE handle, const LoadedModule& module, DWORD reason) {
  const auto entry = reinterpret_cast<DllMainFunction>(ownSymbol(module, "DllMain"));
  return entry == nullptr || entry(handle, reason, nullptr) != FALSE;
}

std::string describeAlive(const LoadedModule& module) {
  std::string text;
  for (const auto& [what, count] : module.alive) {
    if (!text.empty()) text += ", ";
    text += std::to_string(count) + " " + what + (count == 1 ? "" : "s");
  }
  return text;
}

/// Closes the library; a text when something else keeps it in memory, and its state with it.
std::string closeLibrary(const LoadedModule& module) {
  if (module.library == nullptr) return {};
  if (dlclose(module.library) != 0) return linkerError();
  void* still = dlopen(module.file.c_str(), RTLD_LAZY | RTLD_NOLOAD);
  if (still == nullptr) return {};
  dlclose(still);
  return module.file.filename().string() + " stays in memory: something else uses it";
}

}  // namespace

LoadedModule* findModule(HMODULE handle) {
  const auto found = modules().find(handle);
  return found != modules().end() ? &found->second : nullptr;
}

LoadResult loadLibrary(const std::filesystem::path& file) {
  std::error_code ignored;
  const auto path = std::filesystem::absolute(file, ignored);
  void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) return {nullptr, linkerError()};
  if (const HMODULE known = handleOfMap(mapOfLibrary(library))) {
    dlclose(library);
    ++findModule(known)->uses;
    return {known, {}};
  }
  LoadedModule module;
  module.file = path;
  module.library = library;
  module.map = mapOfLibrary(library);
  module.resources = ResourceFile::read(std::filesystem::path(path).replace_extension(".res"));
  const HMODULE handle = addModule(std::move(module));
  if (notifyModule(handle, *findModule(handle), DLL_PROCESS_ATTACH)) return {handle, {}};
  closeLibrary(*findModule(handle));
  modules().erase(handle);
  return {nullptr, path.filename().string() + " refused to be attached"};
}

LoadResult loadResourceFile(const std::filesystem::path& file) {
  LoadedModule module;
  module.file = file;
  module.resources = ResourceFile::read(file);
  if (!module.resources) {
    return {nullptr, "cannot read " + file.string() + " as a compiled resource file"};
  }
  return {addModule(std::move(module)), {}};
}

std::string unloadModule(HMODULE handle) {
  LoadedModule* module = findModule(handle);
  if (module == nullptr) return "no such module is loaded";
  if (module->uses > 1) {
    --module->uses;
    return {};
  }
  const std::string alive = describeAlive(*module);
  if (!alive.empty()) {
    return module->file.filename().string() + " can't be unloaded: alive in it: " + alive;
  }
  notifyModule(handle, *module, DLL_PROCESS_DETACH);
  const std::string error = closeLibrary(*module);
  modules().erase(handle);
  return error;
}

FARPROC exportByOrdinal(HMODULE handle, int ordinal) {
  const LoadedModule* module = findModule(handle);
  if (module == nullptr || ordinal == 0) return nullptr;
  const auto* row = static_cast<const ExportRow*>(ownSymbol(*module, "kovraExportTable"));
  if (row == nullptr) return nullptr;
  while (row->ordinal != 0 && row->ordinal != ordinal) ++row;
  return row->ordinal == ordinal ? row->function : nullptr;
}

FARPROC exportByName(HMODULE handle, const char* name) {
  const LoadedModule* module = findModule(handle);
  return module != nullptr ? reinterpret_cast<FARPROC>(ownSymbol(*module, name)) : nullptr;
}

std::filesystem::path moduleFile(HMODULE handle) {
  const LoadedModule* module = findModule(handle);
  return module != nullptr ? module->file : std::filesystem::path();
}

HMODULE moduleAt(const void* address) {
  return handleOfMap(mapOfAddress(address));
}

ModuleUse::ModuleUse(HMODULE module, const char* what) : module_(module), what_(what) {
  if (LoadedModule* held = findModule(module_)) ++held->alive[what_];
}

ModuleUse::ModuleUse(ModuleUse&& other) noexcept
    : module_(std::exchange(other.module_, nullptr)), what_(other.what_) {}

ModuleUse& ModuleUse::operator=(ModuleUse&& other) noexcept {
  if (this != &other) {
    release();
    module_ = std::exchange(other.module_, nullptr);
    what_ = other.what_;
  }
  return *this;
}

void ModuleUse::release() {
  LoadedModule* held = findModule(std::exchange(module_, nullptr));
  if (held == nullptr) return;
  const auto count = held->alive.find(what_);
  if (count != held->alive.end() && --count->second == 0) held->alive.erase(count);
}

}  // namespace kovra::win

FARPROC GetProcAddress(HMODULE module, LPCSTR name) {
  return kovra::win::exportByName(module, name);
}
