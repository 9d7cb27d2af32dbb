#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

#include "tests/module/module_run.h"

namespace kovra::test {
namespace {

constexpr const char* kSwitchKey =
    "Windows Registry Editor Version 5.00\n\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Brindlux\\Parameters\\BypassVerChk]\n";

// The gates are the module's own, so they are called by the names that the linker gives them.
using Gate = bool (*)();
using VersionGate = bool (*)(const wchar_t*);
using TemplateGate = unsigned (*)(unsigned&, unsigned);

bool passes(const ModuleRun& run, const char* gate) {
  return reinterpret_cast<Gate>(run.exported(gate))();
}

bool passes(const ModuleRun& run, const char* gate, const wchar_t* version) {
  return reinterpret_cast<VersionGate>(run.exported(gate))(version);
}

constexpr const char* kCached = "_ZN5kovra18DataVersionAtLeastEPKw";
constexpr const char* kLive = "_ZN5kovra22LiveDataVersionAtLeastEPKw";
constexpr const char* kMemo10 = "_ZN5kovra20DataVersionAtLeast10Ev";
constexpr const char* kAdopt = "_ZN5kovra21AdoptTextStyleEnabledEv";
constexpr const char* kTemplate = "_ZN5kovra18CopyPropTemplateIdERjj";

TEST(Library, TableAndDefFileGiveTheSameExports) {
  const ModuleRun run;
  std::ifstream file(KOVRA_DEF_FILE);
  std::map<std::string, int> listed;
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    std::string name;
    std::string ordinal;
    words >> name >> ordinal;
    if (name.empty() || name == "EXPORTS") continue;
    listed[name] = ordinal.empty() ? 0 : std::stoi(ordinal.substr(1));
  }
  ASSERT_EQ(listed.size(), 11U);
  for (const auto& [name, ordinal] : listed) {
    ASSERT_NE(run.exported(name.c_str()), nullptr) << name;
    if (ordinal == 0) continue;
    EXPECT_EQ(run.exported(ordinal), run.exported(name.c_str())) << name;
  }
  for (int ordinal = 1000; ordinal <= 1008; ++ordinal) {
    EXPECT_NE(run.exported(ordinal), nullptr) << ordinal;
  }
}

TEST(Library, StartAndEndOfTheApplicationSayNothing) {
  ModuleRun run;
  run.exported("KovraInitApplication")();
  run.exported("KovraUnloadApplication")();
  EXPECT_EQ(run.takeTranscript(), "");
}

TEST(Library, GatesCompareWithTheCurrentProject) {
  ModuleRun run;
  const struct {
    const char* project;
    const wchar_t* text;
    bool passes;
  } cases[] = {
      {"", L"7.00", false},     {"6.99", L"7.00", false}, {"7.00", L"7.00", true},
      {"10.0", L"7.00", true},  {"9.9", L"10.0", false},  {"12.0", L"12.0", true},
      {"12.0", L"15.0", false}, {"odd", L"7.00", false},
  };
  for (const auto& each : cases) {
    run.project(each.project);
    EXPECT_EQ(passes(run, kCached, each.text), each.passes) << each.project;
    EXPECT_EQ(passes(run, kLive, each.text), each.passes) << each.project;
  }
}

TEST(Library, MemosLastUntilTheLibraryIsUnloaded) {
  ModuleRun run;
  unsigned record = 0;
  const auto templateId = [&run, &record](unsigned forced) {
    return reinterpret_cast<TemplateGate>(run.exported(kTemplate))(record, forced);
  };
  run.project("9.0");
  EXPECT_EQ(templateId(535), 535U);
  EXPECT_EQ(record, 535U) << "a forced id goes to the record";
  EXPECT_FALSE(passes(run, kMemo10));
  EXPECT_EQ(templateId(0), 530U) << "and isn't remembered";
  run.project("12.0");
  EXPECT_FALSE(passes(run, kMemo10));
  EXPECT_EQ(templateId(0), 530U);
  EXPECT_TRUE(passes(run, kLive, L"12.0")) << "the live gate follows the project";
  ASSERT_EQ(run.unload(), "");
  run.load();
  EXPECT_TRUE(passes(run, kMemo10));
  EXPECT_EQ(templateId(0), 535U);
  ASSERT_EQ(run.unload(), "");
  run.load();
  run.project("11.0");
  EXPECT_EQ(templateId(0), 533U);
}

TEST(Library, RegistrySwitchOrVersion15AdoptsTextStyles) {
  ModuleRun run;
  const struct {
    const char* project;
    const char* value;
    bool enabled;
  } cases[] = {
      {"12.0", "", false},
      {"12.0", "\"adoptTextStyle\"=dword:00000001\n", true},
      {"12.0", "\"adoptTextStyle\"=dword:00000000\n", false},
      {"12.0", "\"adoptTextStyle\"=\"1\"\n", false},
      {"", "\"adoptTextStyle\"=dword:00000001\n", true},
      {"15.0", "\"adoptTextStyle\"=dword:00000000\n", true},
  };
  for (const auto& each : cases) {
    run.project(each.project);
    run.registry(kSwitchKey + std::string(each.value));
    EXPECT_EQ(passes(run, kAdopt), each.enabled) << each.project << ' ' << each.value;
  }
}

}  // namespace
}  // namespace kovra::test
