#include "tests/module/module_run.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

#include "platform/arx/editor/host_api.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/base/wide_text.h"

namespace kovra::test {
namespace {

struct Binding {
  const wchar_t* name;
  int ordinal;
};

constexpr Binding kBindings[] = {
    {L"KOVRA_TEXT", 1000}, {L"KOVRA_TEXT_COUNTUP", 1003}, {L"-KOVRA_ATTR_COPY", 1006}};

std::filesystem::path makeFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "kovra-module-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
  return name;
}

std::vector<std::string> linesOf(std::string_view text) {
  std::istringstream stream{std::string(text)};
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace

ModuleRun::ModuleRun() : folder_(makeFolder()) {
  win::interaction().setTranscript([this](std::string_view text) { transcript_ += text; });
  win::RunSettings& settings = win::runSettings();
  settings.stateStore = folder_ / "state.db";
  settings.resourceFolder = KOVRA_RESOURCES;
  settings.language = win::Language::english;
  settings.registry.clear();
  win::setCurrentProject({});
  load();
}

ModuleRun::~ModuleRun() {
  closeDrawing();
  // A modeless dialog closes when it is told of that.
  arx::host::runIdle();
  EXPECT_EQ(unload(), "");
  win::setCurrentProject({});
  win::interaction().setTranscript({});
  std::filesystem::remove_all(folder_);
}

void ModuleRun::load() {
  const win::LoadResult loaded = win::loadLibrary(KOVRA_MODULE);
  if (!loaded) throw std::runtime_error(loaded.error);
  module_ = loaded.module;
  for (const Binding& each : kBindings) {
    arx::host::bindCommand(each.name, [this, &each] { exported(each.ordinal)(); });
  }
}

std::string ModuleRun::unload() {
  for (const Binding& each : kBindings) arx::host::unbindCommand(each.name);
  const std::string refusal = module_ != nullptr ? win::unloadModule(module_) : "";
  module_ = nullptr;
  return refusal;
}

void ModuleRun::project(std::string_view dataVersion, std::string_view furtherSections) {
  if (dataVersion.empty()) return win::setCurrentProject({});
  const auto place = folder_ / ("project" + std::to_string(++projects_));
  std::filesystem::create_directory(place);
  write(place / "project.ini",
        "[Project]\nDataVersion=" + std::string(dataVersion) + "\n" + std::string(furtherSections));
  win::setCurrentProject(place);
}

void ModuleRun::registry(std::string_view lines) {
  write(folder_ / "registry.reg", lines);
  win::runSettings().registry = folder_ / "registry.reg";
}

void ModuleRun::open(std::string_view dxf) {
  closeDrawing();
  write(folder_ / "drawing.dxf", dxf);
  const auto opened = arx::host::openDrawing(folder_ / "drawing.dxf");
  if (!opened) throw std::runtime_error(opened.error().message);
  drawing_ = opened.value();
}

void ModuleRun::closeDrawing() {
  if (drawing_ == 0) return;
  const auto closed = arx::host::closeDrawing(drawing_);
  EXPECT_TRUE(closed) << closed.error().message;
  drawing_ = 0;
}

void ModuleRun::type(std::string_view lines) {
  const auto typed = arx::host::typeText(win::fromUtf8(std::string(lines) + "\n"));
  if (!typed) throw std::runtime_error(typed.error().message);
  arx::host::runIdle();
}

std::string ModuleRun::saved() const {
  const auto copy = folder_ / "saved.dxf";
  const auto result = arx::host::saveDrawing(drawing_, &copy, {.backup = false});
  if (!result) throw std::runtime_error(result.error().message);
  std::ostringstream bytes;
  bytes << std::ifstream(copy, std::ios::binary).rdbuf();
  return bytes.str();
}

std::vector<std::string> ModuleRun::changes(std::string_view before, std::string_view after) {
  const auto old = linesOf(before);
  const auto now = linesOf(after);
  if (old.size() != now.size()) {
    return {std::to_string(old.size()) + " lines -> " + std::to_string(now.size())};
  }
  std::vector<std::string> changes;
  for (std::size_t i = 0; i < old.size(); ++i) {
    if (old[i] != now[i]) changes.push_back(old[i] + " -> " + now[i]);
  }
  return changes;
}

std::string ModuleRun::takeTranscript() {
  return std::exchange(transcript_, {});
}

void ModuleRun::write(const std::filesystem::path& file, std::string_view content) const {
  std::ofstream(file, std::ios::binary) << content;
}

}  // namespace kovra::test
