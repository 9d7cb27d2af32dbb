#include "module/frame/companions/string_res_lib.h"

#include <dlfcn.h>

#include <filesystem>
#include <map>

#include "platform/win/base/interaction.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/resources/loader.h"

namespace {

namespace win = kovra::win;

// The compiled resource files stand beside this library unless the run says otherwise.
std::filesystem::path resourceFolder() {
  const std::filesystem::path& named = win::runSettings().resourceFolder;
  if (!named.empty()) return named;
  Dl_info info{};
  if (::dladdr(reinterpret_cast<const void*>(&GetResourceModule), &info) == 0) return {};
  std::error_code error;
  return std::filesystem::canonical(info.dli_fname, error).parent_path();
}

}  // namespace

HMODULE GetResourceModule() {
  static std::map<std::filesystem::path, HMODULE> loaded;
  const bool japanese = win::runSettings().language == win::Language::japanese;
  const std::filesystem::path file =
      resourceFolder() / (japanese ? "kovra_ja.res" : "kovra_en.res");
  if (const auto known = loaded.find(file); known != loaded.end()) return known->second;
  const win::LoadResult result = win::loadResourceFile(file);
  if (!result) {
    win::interaction().freshLine();
    win::interaction().print(result.error + "\n");
    return nullptr;
  }
  return loaded[file] = result.module;
}
