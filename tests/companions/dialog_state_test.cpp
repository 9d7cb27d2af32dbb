#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "module/frame/companions/dialog_state_lib.h"
#include "platform/arx/editor/host/dialog_bases.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/base/state_store.h"
#include "tests/companions/temporary_folder.h"

namespace {

using Clock = std::chrono::steady_clock;

class DialogState : public ::testing::Test {
 protected:
  DialogState() {
    use("user/state/dialogs.sqlite");
    kovra::win::interaction().setTranscript([this](std::string_view text) { shown += text; });
  }
  ~DialogState() override {
    kovra::win::interaction().setTranscript({});
    kovra::win::runSettings().stateStore.clear();
  }

  void use(const char* name) { kovra::win::runSettings().stateStore = folder.path() / name; }

  static bool write(const wchar_t* key, int value) {
    DialogStateStore store;
    return store.OpenSection(L"Dialog") && store.SetInt(key, value);
  }

  static int readInt(const wchar_t* key, int missing = -1) {
    DialogStateStore store;
    int value = missing;
    if (store.OpenSection(L"Dialog")) store.GetInt(key, value);
    return value;
  }

  // Runs work in a process of its own, with the store's default signal handling.
  static pid_t start(const std::function<void()>& work) {
    const pid_t child = ::fork();
    if (child == 0) {
      work();
      ::_exit(0);
    }
    return child;
  }

  static int finish(pid_t child) {
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
  }

  TemporaryFolder folder;
  std::string shown;
};

TEST_F(DialogState, KeepsTypesSectionsAndTexts) {
  {
    DialogStateStore store;
    EXPECT_FALSE(store.SetInt(L"X", 1));  // no section yet
    ASSERT_TRUE(store.OpenSection(L"Dialog"));
    EXPECT_TRUE(store.SetInt(L"X", -2147483647 - 1));
    EXPECT_TRUE(store.SetString(L"Number", L"12"));
    EXPECT_TRUE(store.SetString(L"Text", L" 文字 \"quoted\"\n"));
    EXPECT_TRUE(store.SetString(L"Empty", L""));
    ASSERT_TRUE(store.OpenSection("別"));
    EXPECT_TRUE(store.SetInt(L"X", 7));
    EXPECT_FALSE(store.OpenSection(static_cast<const char*>(nullptr)));
  }
  DialogStateStore store;
  ASSERT_TRUE(store.OpenSection("Dialog"));
  int number = 5;
  StateStringRef text;
  EXPECT_TRUE(store.GetInt(L"X", number));
  EXPECT_EQ(number, -2147483647 - 1);
  EXPECT_FALSE(store.GetInt(L"Number", number));
  EXPECT_FALSE(store.GetInt(L"Missing", number));
  EXPECT_EQ(number, -2147483647 - 1);
  EXPECT_FALSE(store.GetString(L"X", text));
  EXPECT_EQ(text.text, nullptr);
  for (const auto& [key, expected] :
       {std::pair(L"Number", L"12"), {L"Empty", L""}, {L"Text", L" 文字 \"quoted\"\n"}}) {
    ASSERT_TRUE(store.GetString(key, text));
    EXPECT_STREQ(text.text, expected);
    DialogStateStore::ReleaseString(text);
    EXPECT_EQ(text.text, nullptr);
  }
  ASSERT_TRUE(store.OpenSection(L"別"));
  EXPECT_TRUE(store.GetInt(L"X", number));
  EXPECT_EQ(number, 7);
  EXPECT_TRUE(shown.empty());
}

TEST_F(DialogState, OneObjectIsOneTransaction) {
  ASSERT_TRUE(write(L"X", 1));
  auto store = std::make_unique<DialogStateStore>();
  ASSERT_TRUE(store->OpenSection(L"Dialog"));
  ASSERT_TRUE(store->SetInt(L"X", 2));
  int number = 0;
  EXPECT_TRUE(store->GetInt(L"X", number));
  EXPECT_EQ(number, 2);
  EXPECT_EQ(readInt(L"X"), 1);
  store.reset();
  EXPECT_EQ(readInt(L"X"), 2);
}

TEST_F(DialogState, TwoProcessesCountTogether) {
  constexpr int kRounds = 60;
  // Each raises the number in a transaction of its own; a lost one would show in the sum.
  const auto countUp = [] {
    for (int i = 0; i < kRounds; ++i) {
      DialogStateStore store;
      int number = 0;
      if (!store.OpenSection(L"Dialog") || !store.SetInt(L"Begun", i)) ::_exit(1);
      store.GetInt(L"Count", number);
      if (!store.SetInt(L"Count", number + 1)) ::_exit(1);
    }
  };
  const pid_t other = start(countUp);
  const pid_t another = start(countUp);
  EXPECT_EQ(finish(other), 0);
  EXPECT_EQ(finish(another), 0);
  EXPECT_EQ(readInt(L"Count"), 2 * kRounds);
}

TEST_F(DialogState, SurvivesAKillAtAnyMoment) {
  for (int round = 0; round < 12; ++round) {
    const pid_t writer = start([] {
      for (int i = 0;; ++i) {
        DialogStateStore store;
        store.OpenSection(L"Dialog");
        store.SetInt(L"First", i);
        store.SetString(L"Ballast", std::wstring(5000, L'b').c_str());
        store.SetInt(L"Last", i);
      }
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(20 + 7 * round));
    ::kill(writer, SIGKILL);
    EXPECT_TRUE(WIFSIGNALED(finish(writer)));
    EXPECT_EQ(readInt(L"First"), readInt(L"Last"));
    EXPECT_TRUE(write(L"After", round));
    EXPECT_EQ(readInt(L"After"), round);
  }
  EXPECT_TRUE(shown.empty()) << shown;
}

TEST_F(DialogState, WaitsForABusyStoreOnceAndThenFails) {
  ASSERT_TRUE(write(L"X", 1));
  kovra::win::StateStore busy(kovra::win::runSettings().stateStore);
  ASSERT_TRUE(busy.set("Dialog", "X", 2));
  const auto begun = Clock::now();
  {
    DialogStateStore store;
    ASSERT_TRUE(store.OpenSection(L"Dialog"));
    EXPECT_FALSE(store.SetInt(L"X", 3));
    EXPECT_FALSE(store.SetInt(L"Y", 3));
  }
  const auto waited = Clock::now() - begun;
  EXPECT_GE(waited, std::chrono::seconds(4));
  EXPECT_LT(waited, std::chrono::seconds(9));
  EXPECT_NE(shown.find("could not be stored"), std::string::npos);
  EXPECT_EQ(readInt(L"X"), 1);
}

TEST_F(DialogState, PutsADamagedFileAsideAndSaysSoOnce) {
  use("dialogs.sqlite");
  const std::string foreign = "This is a letter and no database, though long enough for one.\n";
  folder.write("dialogs.sqlite", foreign);
  folder.write("dialogs.sqlite-journal", "left over");
  EXPECT_EQ(readInt(L"X"), -1);
  EXPECT_TRUE(write(L"X", 1));
  EXPECT_EQ(readInt(L"X"), 1);
  EXPECT_EQ(folder.read("dialogs.sqlite.damaged"), foreign);
  const auto told = [&] {
    std::size_t count = 0;
    for (std::size_t at = shown.find("damaged. "); at != std::string::npos;
         at = shown.find("damaged. ", at + 1))
      ++count;
    return count;
  };
  EXPECT_EQ(told(), 1U);

  // Damage inside a database, with a name for the file that is taken.
  for (int i = 0; i < 60; ++i) {
    DialogStateStore store;
    store.OpenSection(std::to_wstring(i).c_str());
    store.SetString(L"Text", std::wstring(300, L'x').c_str());
  }
  std::string bytes = folder.read("dialogs.sqlite");
  ASSERT_GT(bytes.size(), 12000U);
  std::fill(bytes.begin() + 4096, bytes.begin() + 8192, '\x5A');
  folder.write("dialogs.sqlite", bytes);
  EXPECT_TRUE(write(L"X", 2));
  EXPECT_EQ(readInt(L"X"), 2);
  EXPECT_EQ(folder.read("dialogs.sqlite.damaged-2"), bytes);
  EXPECT_EQ(told(), 2U);
}

TEST_F(DialogState, ManyProcessesReplaceADamagedFileOnce) {
  use("dialogs.sqlite");
  folder.write("dialogs.sqlite", std::string(3000, 'x'));
  pid_t children[4];
  for (int i = 0; i < 4; ++i)
    children[i] = start([i] {
      if (!write(std::to_wstring(i).c_str(), i)) ::_exit(1);
    });
  for (const pid_t child : children) EXPECT_EQ(finish(child), 0);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(readInt(std::to_wstring(i).c_str()), i);
  EXPECT_EQ(folder.files(), 2U);
}

TEST_F(DialogState, AnEmptyFileIsANewStore) {
  use("dialogs.sqlite");
  folder.write("dialogs.sqlite", "");
  EXPECT_TRUE(write(L"X", 1));
  EXPECT_EQ(folder.files(), 1U);
}

TEST_F(DialogState, SaysOnceWhereNothingCanBeStored) {
  folder.write("file", "no folder");
  use("file/dialogs.sqlite");
  EXPECT_EQ(readInt(L"X"), -1);
  EXPECT_FALSE(write(L"X", 1));
  EXPECT_EQ(folder.read("file"), "no folder");
  EXPECT_NE(shown.find("can't be used"), std::string::npos);
  EXPECT_EQ(shown.find("can't be used"), shown.rfind("can't be used"));
}

// As another user, since the superuser may write everywhere.
TEST_F(DialogState, ReadsFromAFolderThatCannotBeWritten) {
  if (::geteuid() != 0) GTEST_SKIP() << "needs to change the user";
  use("dialogs.sqlite");
  ASSERT_TRUE(write(L"X", 1));
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
  const pid_t reader = start([] {
    if (::setuid(65534) != 0) ::_exit(2);
    ::_exit(readInt(L"X") == 1 && !write(L"X", 2) ? 0 : 1);
  });
  EXPECT_EQ(finish(reader), 0);
  EXPECT_EQ(readInt(L"X"), 1);
  EXPECT_EQ(folder.files(), 1U);
}

TEST_F(DialogState, LiesWhereTheUserKeepsState) {
  kovra::win::runSettings().stateStore.clear();
  const char* home = std::getenv("HOME");
  const std::string oldHome = home ? home : "";
  ::setenv("HOME", folder.path().c_str(), 1);
  ::setenv("XDG_STATE_HOME", "relative", 1);
  EXPECT_EQ(kovra::win::stateStoreFile(), folder.path() / ".local/state/kovra/dialogs.sqlite");
  ::setenv("XDG_STATE_HOME", (folder.path() / "xdg").c_str(), 1);
  EXPECT_TRUE(write(L"X", 1));
  EXPECT_TRUE(std::filesystem::exists(folder.path() / "xdg/kovra/dialogs.sqlite"));
  ::unsetenv("XDG_STATE_HOME");
  if (home) ::setenv("HOME", oldHome.c_str(), 1);
}

// What the platform's own dialog functions keep lies beside the sections of the same name.
TEST_F(DialogState, DialogsKeepValuesUnderTheirName) {
  ASSERT_TRUE(write(L"Radio", 5));
  CString text = L"before";
  DWORD number = 77;
  {
    CAcUiDialog dialog(1);
    EXPECT_FALSE(dialog.SetDialogData(L"Radio", DWORD{1}));
    dialog.SetDialogName(L"Dialog");
    EXPECT_FALSE(dialog.GetDialogData(L"Radio", number));
    EXPECT_TRUE(dialog.SetDialogData(L"Radio", static_cast<DWORD>(-1)));
    EXPECT_TRUE(dialog.SetDialogData(L"Edit1", L"1.5 \u56f3"));
    EXPECT_TRUE(dialog.GetDialogData(L"Edit1", text));
    EXPECT_FALSE(dialog.StorePixelData());
    // Nobody else sees them yet, and nobody is kept waiting.
    EXPECT_TRUE(write(L"Other", 6));
  }
  EXPECT_EQ(readInt(L"Radio"), 5);
  CAcUiDialog again(1);
  CRect place;
  again.SetDialogName(L"Dialog");
  EXPECT_TRUE(again.GetDialogData(L"Radio", number));
  EXPECT_EQ(number, static_cast<DWORD>(-1));
  text.Empty();
  EXPECT_FALSE(again.GetDialogData(L"Edit1", number));
  EXPECT_FALSE(again.GetDialogData(L"Radio", text));
  EXPECT_TRUE(again.GetDialogData(L"Edit1", text));
  EXPECT_STREQ(text, L"1.5 \u56f3");
  EXPECT_FALSE(again.GetPixelData(place));
  again.SetDialogName(L"Another");
  EXPECT_FALSE(again.GetDialogData(L"Radio", number));
}

}  // namespace
