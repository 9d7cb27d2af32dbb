/// The pump, message boxes and file choices, the registry file.
#include <gtest/gtest.h>

#include <fstream>
#include <functional>

#include "platform/win/base/interaction.h"
#include "platform/win/base/pump.h"
#include "platform/win/base/registry.h"
#include "platform/win/base/registry_file.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/dialogs/message_box.h"

namespace kovra::win {
namespace {

struct Steps : PumpSource {
  explicit Steps(int rank) { Pump::instance().addSource(rank, this); }
  ~Steps() override { Pump::instance().removeSource(this); }
  bool dispatchOne() override {
    if (steps.empty()) return false;
    const auto step = steps.front();
    steps.erase(steps.begin());
    step();
    return true;
  }
  std::vector<std::function<void()>> steps;
};

TEST(Pump, TakesOutsideInputOnlyWhenAllElseIsAtRest) {
  Steps outside(kOutsideInput), posted(kPostedMessages), sent(kSentStrings);
  std::string order;
  bool done = false;
  outside.steps = {[&] {
                     order += "line1 ";
                     sent.steps = {[&] { order += "sent "; }};
                     posted.steps = {[&] { order += "posted1 "; }, [&] { order += "posted2 "; }};
                   },
                   [&] {
                     order += "line2 ";
                     done = true;
                   }};
  EXPECT_TRUE(Pump::instance().runUntil([&] { return done; }));
  EXPECT_EQ(order, "line1 posted1 posted2 sent line2 ");
}

TEST(Pump, NestedWaitsAreCancelledFromTheTop) {
  Steps outside(kOutsideInput);
  std::string order;
  bool innerDone = false, outerDone = false;
  outside.steps = {[&] {
                     Wait inner{WaitKind::prompt, "inner", [&] { innerDone = true; }};
                     EXPECT_TRUE(Pump::instance().runUntil([&] { return innerDone; }, inner));
                     order += "inner ";
                   },
                   [&] {
                     EXPECT_EQ(Pump::instance().depth(), 2U);
                     EXPECT_EQ(Pump::instance().topWait()->what, "inner");
                     EXPECT_TRUE(Pump::instance().cancelTopWait());
                   },
                   [&] {
                     EXPECT_FALSE(Pump::instance().cancelTopWait());
                     outerDone = true;
                   }};
  EXPECT_TRUE(Pump::instance().runUntil([&] { return outerDone; }));
  EXPECT_EQ(order, "inner ");
  EXPECT_FALSE(Pump::instance().runUntil([] { return false; }));  // nothing hangs
}

TEST(MessageBoxes, AreAnsweredByTheRules) {
  struct Case {
    const char* name;
    UINT style;
    std::vector<int> queued;
    int answer;
    std::size_t left;
    bool fails;
  };
  const Case cases[] = {
      {"one button", MB_OK, {}, IDOK, 0, false},
      {"one button takes its own answer", MB_OK, {IDOK}, IDOK, 0, false},
      {"one button leaves another answer", MB_OK | MB_ICONSTOP, {IDYES}, IDOK, 1, false},
      {"queued", MB_YESNO | MB_ICONQUESTION, {IDYES, IDNO}, IDYES, 1, false},
      {"cancel when nothing is queued", MB_YESNOCANCEL, {}, IDCANCEL, 0, true},
      {"no when there is no cancel", MB_YESNO, {}, IDNO, 0, true},
      {"no such button", MB_YESNO, {IDOK}, IDNO, 0, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    interaction() = Interaction{};
    std::string transcript;
    interaction().setTranscript([&](std::string_view text) { transcript += text; });
    for (const int answer : c.queued) interaction().queueAnswer(answer);
    interaction().print(L"prompt: ");
    EXPECT_EQ(MessageBoxW(nullptr, L"text 左", L"AutoCAD", c.style), c.answer);
    EXPECT_EQ(interaction().queuedAnswers(), c.left);
    EXPECT_EQ(interaction().takeFailure().has_value(), c.fails);
    EXPECT_TRUE(transcript.starts_with("prompt: \n[AutoCAD] text 左")) << transcript;
    EXPECT_TRUE(transcript.ends_with("\n"));
  }
  interaction() = Interaction{};
  interaction().setBoxAsker([](const MessageBoxRequest&) { return IDYES; });
  EXPECT_EQ(MessageBoxW(nullptr, L"", L"", MB_YESNO), IDYES);
  interaction() = Interaction{};
}

TEST(FileChoices, ComeFromTheQueue) {
  interaction() = Interaction{};
  interaction().queueFiles({"a.dxf", "b.dxf"});
  interaction().queueFiles({});
  EXPECT_EQ(interaction().chooseFiles().size(), 2U);
  EXPECT_TRUE(interaction().chooseFiles().empty());
  EXPECT_FALSE(interaction().takeFailure());
  EXPECT_TRUE(interaction().chooseFiles().empty());
  EXPECT_TRUE(interaction().takeFailure());
}

constexpr char kRegistry[] =
    "\xEF\xBB\xBFWindows Registry Editor Version 5.00\r\n\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Brindlux\\Parameters\\BypassVerChk\\]\r\n"
    "; a comment\r\n"
    "\"adoptTextStyle\"=dword:00000001\r\n"
    "\"Text\"=\"a\\\\b \\\"c\\\"\"\r\n"
    "\"Bytes\"=hex:01,\\\r\n  ff\r\n"
    "\"Wide\"=hex(1):e6,5d,00,00\r\n"
    "\"broken\"=dword:zz\r\n"
    "@=\"default\"\r\n";

class Registry : public testing::Test {
 protected:
  void write(const std::string& bytes) {
    const auto path = std::filesystem::temp_directory_path() / "kovra_registry_test.reg";
    std::ofstream(path, std::ios::binary) << bytes;
    runSettings().registry = path;
  }
  void TearDown() override {
    std::filesystem::remove(runSettings().registry);
    runSettings().registry.clear();
  }
  HKEY open(const wchar_t* name) {
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, name, 0, KEY_QUERY_VALUE, &key);
    return key;
  }
};

TEST_F(Registry, ValuesOfAllKinds) {
  const std::string utf8 = kRegistry;
  std::string utf16 = "\xFF\xFE";
  for (const char c : utf8.substr(3)) utf16 += std::string{c, '\0'};
  for (const std::string& bytes : {utf8, utf16}) {
    write(bytes);
    const HKEY key = open(L"software\\BRINDLUX\\Parameters\\BypassVerChk\\");
    ASSERT_NE(key, nullptr);
    DWORD type = 0, number = 0, size = sizeof(number);
    const auto read = [&](const wchar_t* name, void* to) {
      return RegQueryValueExW(key, name, nullptr, &type, static_cast<BYTE*>(to), &size);
    };
    EXPECT_EQ(read(L"ADOPTTEXTSTYLE", &number), ERROR_SUCCESS);
    EXPECT_EQ(type, REG_DWORD);
    EXPECT_EQ(number, 1U);
    wchar_t text[16] = {};
    size = sizeof(text);
    EXPECT_EQ(read(L"Text", text), ERROR_SUCCESS);
    EXPECT_STREQ(text, L"a\\b \"c\"");
    size = 2;
    EXPECT_EQ(read(L"Text", text), ERROR_MORE_DATA);
    size = sizeof(text);
    EXPECT_EQ(read(L"Wide", text), ERROR_SUCCESS);
    EXPECT_STREQ(text, L"左");
    EXPECT_EQ(read(L"Bytes", nullptr), ERROR_SUCCESS);
    EXPECT_EQ(size, 2U);
    size = sizeof(number);
    EXPECT_EQ(read(L"broken", &number), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(read(L"", nullptr), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);
  }
}

TEST_F(Registry, KeysAreThereOrNot) {
  write(kRegistry);
  EXPECT_NE(open(L"SOFTWARE\\Brindlux"), nullptr);
  EXPECT_EQ(open(L"SOFTWARE\\Brind"), nullptr);
  runSettings().registry = "/nonexistent/file.reg";
  EXPECT_EQ(open(L"SOFTWARE\\Brindlux"), nullptr);
}

}  // namespace
}  // namespace kovra::win
