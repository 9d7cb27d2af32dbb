#include "host/libraries/text_module.h"

#include <string>

#include "platform/arx/editor/host_api.h"
#include "platform/win/base/interaction.h"
#include "platform/win/resources/loader.h"

namespace kovra::host {
namespace {

struct CommandName {
  const wchar_t* name;
  int ordinal;
};

constexpr CommandName kCommands[] = {
    {L"KOVRA_TEXT", 1000},         {L"KOVRA_TEXT_RESIZEH", 1001},  {L"KOVRA_TEXT_PROPERTIES", 1002},
    {L"KOVRA_TEXT_COUNTUP", 1003}, {L"KOVRA_ATTR_COPY", 1004},     {L"KOVRA_ATTR_COPY_ALL", 1005},
    {L"-KOVRA_ATTR_COPY", 1006},   {L"KOVRA_TEXT_EDITPROP", 1007}, {L"KOVRA_TEXT_ALIGN", 1008},
};

void showOptions() {
  win::interaction().freshLine();
  win::interaction().print("The option dialog isn't available yet.\n");
}

}  // namespace

Result<void> TextModule::load() {
  const win::LoadResult loaded = win::loadLibrary(file_);
  if (!loaded) return Error{ErrorKind::kNotReadable, loaded.error};
  module_ = loaded.module;
  callByName("KovraInitApplication");
  for (const CommandName& command : kCommands) {
    arx::host::bindCommand(command.name, [this, &command] { run(command.ordinal); });
  }
  arx::host::bindCommand(L"KOVRA_OPTIONS", showOptions);
  return {};
}

Result<void> TextModule::unload() {
  if (module_ == nullptr) return {};
  callByName("KovraUnloadApplication");
  if (std::string refusal = win::unloadModule(module_); !refusal.empty()) {
    callByName("KovraInitApplication");
    return Error{ErrorKind::kNotSupported, std::move(refusal)};
  }
  module_ = nullptr;
  return {};
}

void TextModule::run(int ordinal) const {
  if (const FARPROC function = win::exportByOrdinal(module_, ordinal)) return function();
  win::interaction().freshLine();
  win::interaction().print("The module has no command " + std::to_string(ordinal) + ".\n");
}

void TextModule::callByName(const char* name) const {
  if (const FARPROC function = win::exportByName(module_, name)) function();
}

}  // namespace kovra::host
