/// Libraries and compiled resources.
#include <gtest/gtest.h>

#include <fstream>

#include "platform/win/resources/dialog_template.h"
#include "platform/win/resources/loader.h"
#include "platform/win/resources/resource_file.h"
#include "platform/win/resources/resources.h"
#include "tests/win/res_builder.h"

namespace kovra::win {
namespace {

int stateOf(HMODULE module) {
  return reinterpret_cast<int (*)()>(exportByName(module, "state"))();
}

TEST(Loader, ExportsAreFoundByNumberAndName) {
  const auto loaded = loadLibrary(LOADED_LIBRARY);
  ASSERT_TRUE(loaded) << loaded.error;
  ASSERT_NE(exportByOrdinal(loaded.module, 1003), nullptr);
  exportByOrdinal(loaded.module, 1003)();
  EXPECT_EQ(stateOf(loaded.module), 1010);  // attached once, counted once
  EXPECT_EQ(exportByOrdinal(loaded.module, 1001), nullptr);
  EXPECT_EQ(exportByOrdinal(loaded.module, 0), nullptr);
  EXPECT_EQ(exportByName(loaded.module, "malloc"), nullptr);  // of another library
  EXPECT_EQ(moduleAt(reinterpret_cast<const void*>(exportByName(loaded.module, "state"))),
            loaded.module);
  EXPECT_EQ(unloadModule(loaded.module), "");
}

TEST(Loader, StateIsFreshAfterUnloading) {
  for (int i = 0; i < 3; ++i) {
    const auto loaded = loadLibrary(LOADED_LIBRARY);
    ASSERT_TRUE(loaded) << loaded.error;
    EXPECT_EQ(stateOf(loaded.module), 1000);
    exportByName(loaded.module, "touch")();
    exportByOrdinal(loaded.module, 1000)();
    EXPECT_EQ(stateOf(loaded.module), 1015);
    EXPECT_EQ(unloadModule(loaded.module), "");
  }
}

TEST(Loader, RefusesToUnloadWhatIsAlive) {
  const auto loaded = loadLibrary(LOADED_LIBRARY);
  ModuleUse use;
  reinterpret_cast<void (*)(ModuleUse*)>(exportByName(loaded.module, "hold"))(&use);
  ModuleUse moved = std::move(use);
  EXPECT_NE(unloadModule(loaded.module).find("1 reactor"), std::string::npos);
  EXPECT_EQ(stateOf(loaded.module), 1000);  // still attached and usable
  moved = ModuleUse();
  const auto again = loadLibrary(LOADED_LIBRARY);
  EXPECT_EQ(again.module, loaded.module);
  EXPECT_EQ(unloadModule(loaded.module), "");
  EXPECT_EQ(stateOf(loaded.module), 1000);  // one use is left
  EXPECT_EQ(unloadModule(loaded.module), "");
  EXPECT_NE(unloadModule(loaded.module), "");
}

TEST(Loader, WhatIsNoLibraryIsAnError) {
  EXPECT_NE(loadLibrary("/nonexistent.so").error, "");
  EXPECT_NE(loadResourceFile("/nonexistent.res").error, "");
}

const ResBuilder kResources =
    ResBuilder()
        .strings({{2809, u"左寄せ"}, {2811, u"long text"}})
        .dialog(526, 0x80C80000, u"Kopie",
                {{1, 0x80, 0x50010001, u"OK"}, {1931, 0x81, 0x50010000, u""}});

TEST(Resources, StringsAndTemplatesOfAFile) {
  const auto path = std::filesystem::temp_directory_path() / "kovra_modules_test.res";
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(kResources.bytes().data()),
             static_cast<std::streamsize>(kResources.bytes().size()));
  const auto loaded = loadResourceFile(path);
  std::filesystem::remove(path);
  ASSERT_TRUE(loaded) << loaded.error;
  wchar_t buffer[5];
  EXPECT_EQ(LoadStringW(loaded.module, 2809, buffer, 5), 3);
  EXPECT_STREQ(buffer, L"左寄せ");
  EXPECT_EQ(LoadStringW(loaded.module, 2811, buffer, 5), 4);
  EXPECT_STREQ(buffer, L"long");
  for (const unsigned missing : {2810U, 2812U, 1U, 70000U}) {
    EXPECT_EQ(LoadStringW(loaded.module, missing, buffer, 5), 0);
    EXPECT_STREQ(buffer, L"");
  }
  const auto dialog = loadDialogTemplate(loaded.module, 526);
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->title, L"Kopie");
  EXPECT_EQ(dialog->pointSize, 9);
  ASSERT_EQ(dialog->items.size(), 2U);
  EXPECT_EQ(dialog->items[1].id, 1931);
  EXPECT_EQ(dialog->items[1].className, L"EDIT");
  EXPECT_EQ(dialog->items[1].place.bottom, 32);
  EXPECT_FALSE(loadDialogTemplate(loaded.module, 527));
  EXPECT_EQ(unloadModule(loaded.module), "");
  EXPECT_EQ(LoadStringW(loaded.module, 2809, buffer, 5), 0);
}

TEST(Resources, DamagedFilesAreRefusedOrReadShort) {
  const auto& whole = kResources.bytes();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const auto file =
        ResourceFile::parse({whole.begin(), whole.begin() + static_cast<long>(length)});
    if (!file) continue;
    const auto bytes = file->find(5, 526);
    EXPECT_TRUE(bytes.empty() || parseDialogTemplate(bytes)) << length;
  }
  for (std::size_t at = 0; at < whole.size(); ++at) {
    auto changed = whole;
    changed[at] = std::byte{0xFF};
    if (const auto file = ResourceFile::parse(changed)) {
      std::wstring text;
      file->findString(2809, text);
      parseDialogTemplate(file->find(5, 526));
    }
  }
}

}  // namespace
}  // namespace kovra::win
