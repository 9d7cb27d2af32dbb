#include "launch/text_module.h"

#include <string>

#include "launch/program_library.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/interaction.h"
#include "platform/win/resources/loader.h"

namespace kovra::launch {
namespace {

struct CommandName {
  const wchar_t* name;
  int ordinal;
  const wchar_t* summary;
};

constexpr CommandName kCommands[] = {
    {L"KOVRA_TEXT", 1000, L"places texts"},
    {L"KOVRA_TEXT_RESIZEH", 1001, L"changes the height of one text"},
    {L"KOVRA_TEXT_PROPERTIES", 1002, L"changes properties of the selected texts"},
    {L"KOVRA_TEXT_COUNTUP", 1003, L"copies texts with counted values"},
    {L"KOVRA_ATTR_COPY", 1004, L"copies properties to attributes"},
    {L"KOVRA_ATTR_COPY_ALL", 1005, L"the same, always with the dialog of data version 12.0"},
    {L"-KOVRA_ATTR_COPY", 1006, L"sets properties of attributes from the command line"},
    {L"KOVRA_TEXT_EDITPROP", 1007, L"applies a set of properties, selection after selection"},
    {L"KOVRA_TEXT_ALIGN", 1008, L"puts the selected texts into a column"},
};

constexpr const char* kCompanions = "libkovra_companions.so";

void say(const std::string& text) {
  win::interaction().freshLine();
  win::interaction().print(text + "\n");
}

void showOptions() {
  const auto shown =
      withProgramExport(kCompanions, "kovraShowOptions", "the options can't be shown",
                        [](void (*show)()) { show(); });
  if (!shown) say(shown.error().message);
}

}  // namespace

Result<void> TextModule::load() {
  const win::LoadResult loaded = win::loadLibrary(file_);
  if (!loaded) return Error{ErrorKind::kNotReadable, loaded.error};
  module_ = loaded.module;
  callByName("KovraInitApplication");
  for (const CommandName& command : kCommands) {
    arx::host::bindCommand(
        command.name, [this, &command] { run(command.ordinal); }, command.summary);
  }
  arx::host::bindCommand(L"KOVRA_OPTIONS", showOptions, L"shows the options");
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

}  // namespace kovra::launch
