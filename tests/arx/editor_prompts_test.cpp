// The command line, character by character, and the prompts over it.
#include <gtest/gtest.h>

#include "platform/arx/editor/documents/keywords.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/geometry/typed_point.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/wide_text.h"
#include "tests/arx/editor_user.h"

namespace kovra::arx::test {
namespace {

std::vector<std::string> given;

void note(int status, const wchar_t* text) {
  given.push_back(status == RTNORM   ? win::toUtf8(text)
                  : status == RTCAN  ? "cancel"
                  : status == RTNONE ? "none"
                                     : std::to_string(status));
}

/// Commands that ask and note what they get.
class EditorPrompts : public testing::Test {
 protected:
  void SetUp() override {
    given.clear();
    host::bindCommand(L"ASKLINE", [] {
      wchar_t text[9];
      note(acedGetString(1, L"\nLine: ", text), text);
    });
    host::bindCommand(L"ASKTWO", [] {
      wchar_t text[40];
      for (int i = 0; i < 2; ++i) note(acedGetString(0, L"Word: ", text), text);
    });
    host::bindCommand(L"ASKKEY", [] {
      wchar_t text[40];
      acedInitGet(1, L"New eXit LOck _New Exit Lock");
      note(acedGetKword(L"Option: ", text), text);
    });
    host::bindCommand(L"ASKPOINT", [] {
      ads_point point;
      const ads_point from{10, 10, 0};
      const int status = acedGetPoint(from, L"Point: ", point);
      wchar_t text[40];
      std::swprintf(text, 40, L"%g %g %g", point[0], point[1], point[2]);
      note(status, text);
    });
    host::bindCommand(L"ASKDIST", [] {
      double value = 0;
      acedInitGet(2 + 4, nullptr);
      const int status = acedGetDist(nullptr, L"Distance: ", &value);
      note(status, std::to_wstring(value).c_str());
    });
  }
  void TearDown() override {
    for (const wchar_t* name : {L"ASKLINE", L"ASKTWO", L"ASKKEY", L"ASKPOINT", L"ASKDIST"})
      host::unbindCommand(name);
  }
};

TEST_F(EditorPrompts, TakeWhatIsTyped) {
  using Given = std::vector<std::string>;
  struct Case {
    std::vector<Step> steps;
    Given expected;
    const char* failure = "";
  };
  const Case cases[] = {
      {{"ASKLINE", "a b c"}, {"a b c"}},
      {{"askline a b"}, {"a b"}},
      {{"_.ASKLINE", ""}, {""}},
      {{"..ASKLINE"}, {}, "Unknown command \"..ASKLINE\"."},
      {{"ASKLINE", "123456789", "12345678"},
       {"12345678"},
       "Text is too long: at most 8 characters."},
      {{"ASKLINE", escape()}, {"cancel"}},
      {{"ASKLINE", keys(L"abc\x08\x08x\n")}, {"ax"}},
      {{"ASKLINE", keys(L"\x08\x08q\n")}, {"q"}},
      {{"ASKLINE", keys(L"old\x03"), "ASKLINE", "new"}, {"cancel", "new"}},
      // The cancel drops what stands before it, never what stands behind it.
      {{"ASKLINE", keys(L"old\x03\x03\x41SKLINE\nnew\n")}, {"cancel", "new"}},
      {{keys(L"ASKL"), keys(L"INE\nx\n")}, {"x"}},
      {{"ASKTWO one two ASKLINE the rest"}, {"one", "two", "the rest"}},
      {{"ASKTWO", " two"}, {"", "two"}},
      {{"ASKLINE"}, {"cancel"}},
      {{"ASKKEY n"}, {"New"}},
      {{"ASKKEY x"}, {"Exit"}},
      {{"ASKKEY _exi"}, {"Exit"}},
      {{"ASKKEY l", "lo"}, {"Lock"}, "Invalid option keyword."},
      {{"ASKKEY", "", "new"}, {"New"}},
      {{"ASKPOINT 1,2"}, {"1 2 0"}},
      {{"ASKPOINT 1,2,3"}, {"1 2 3"}},
      {{"ASKPOINT @1,2"}, {"11 12 0"}},
      {{"ASKPOINT @5<90"}, {"10 15 0"}},
      {{"UCS O 100,0", "ASKPOINT *1,2"}, {"-99 2 0"}},
      {{"ASKPOINT", "non", click(4, 5)}, {"4 5 0"}},
      {{"ASKPOINT what 3,4"}, {"3 4 0"}, "Invalid point."},
      {{"ASKPOINT", ""}, {"none"}},
      {{"ORTHOMODE 1", "ASKPOINT", click(30, 12)}, {"30 10 0"}},
      {{"ORTHOMODE 1", "ASKPOINT", "30,12"}, {"30 12 0"}},
      {{"SNAPUNIT 5,5", "SNAPMODE 1", "ASKPOINT", click(3, 13)}, {"5 15 0"}},
      {{"SNAPUNIT 5,5", "SNAPMODE 1", "ASKPOINT", "3,13"}, {"3 13 0"}},
      {{"UCS Z 90", "ASKPOINT", click(7, 8)}, {"7 8 0"}},
      {{"ASKDIST 2.5"}, {"2.500000"}},
      {{"ASKDIST", click(0, 0), click(3, 4)}, {"5.000000"}},
      {{"ASKDIST -1", "1"}, {"1.000000"}, "Requires numeric value or two points."},
  };
  for (const Case& one : cases) {
    EditorUser user;
    given.clear();
    SCOPED_TRACE(user.run(one.steps));
    EXPECT_EQ(given, one.expected);
    EXPECT_EQ(user.failure(), one.failure);
  }
}

TEST_F(EditorPrompts, TranscriptReadsLikeACommandLine) {
  EditorUser user;
  EXPECT_EQ(user.run({"ASKLINE", "abc", "", "nosuch"}),
            "Command: ASKLINE\nLine: abc\nCommand: nosuch\nUnknown command \"nosuch\".\n");
  EXPECT_EQ(user.failure(), "Unknown command \"nosuch\".");
}

TEST_F(EditorPrompts, EnterRepeatsOnlyInATerminal) {
  EditorUser user;
  host::setEnterRepeats(true);
  user.run({"ASKLINE", "one", "", "two"});
  host::setEnterRepeats(false);
  EXPECT_EQ(given, (std::vector<std::string>{"one", "two"}));
}

TEST_F(EditorPrompts, SentStringsComeBeforeTheUser) {
  EditorUser user;
  AcApDocManager* manager = acDocManagerPtr();
  host::bindCommand(L"SEND", [=] {
    manager->sendStringToExecute(manager->curDocument(),
                                 L"\x03\x03"
                                 L"ASKLINE\nsent\n",
                                 true, false, false);
    wchar_t text[20];
    note(acedGetString(1, L"First: ", text), text);
  });
  const std::string shown = user.run({"SEND", "ASKLINE", "typed"});
  EXPECT_EQ(given, (std::vector<std::string>{"cancel", "sent", "typed"}));
  EXPECT_EQ(shown.find("sent"), std::string::npos) << shown;
  host::unbindCommand(L"SEND");
}

TEST_F(EditorPrompts, ExceptionsOfACommandEndAtTheCommandLine) {
  EditorUser user;
  host::bindCommand(L"THROW", [] { throw std::bad_alloc(); });
  user.run({"THROW", "ASKLINE", "after"});
  EXPECT_EQ(given, std::vector<std::string>{"after"});
  EXPECT_NE(user.failure().find("THROW was ended"), std::string::npos);
  host::unbindCommand(L"THROW");
}

TEST(EditorKeywords, Match) {
  struct Case {
    const wchar_t* list;
    const wchar_t* typed;
    int index;
  };
  const Case cases[] = {
      {L"New ON OFF Freeze", L"n", 0},
      {L"New ON OFF Freeze", L"o", -1},
      {L"New ON OFF Freeze", L"ON", 1},
      {L"New ON OFF Freeze", L"off", 2},
      {L"New ON OFF Freeze", L"freez", 3},
      {L"New ON OFF Freeze", L"freezer", -1},
      {L"eXit", L"x", 0},
      {L"eXit", L"ex", 0},
      {L"eXit", L"e", -1},
      {L"_.", L"_.", 0},
      {L"_.", L".", -1},
      {L"Neu Aus _New Off", L"_off", 1},
      {L"Neu Aus _New Off", L"new", -1},
      {L"Neu", L"", -1},
      {L"?", L"?", 0},
  };
  for (const Case& one : cases) {
    const auto index = KeywordList(one.list).match(one.typed);
    EXPECT_EQ(index ? static_cast<int>(*index) : -1, one.index)
        << win::toUtf8(one.list) << " / " << win::toUtf8(one.typed);
  }
}

TEST(EditorTypedPoint, RefusesWhatIsNone) {
  for (const wchar_t* text : {L"", L"1", L"1,", L",1", L"1,2,3,4", L"1,x", L"1<", L"<1", L"@*1,2",
                              L"nan,1", L"1 ,2", L"inf,1", L"0x1,2"})
    EXPECT_FALSE(parsePoint(text, AcGePoint3d())) << win::toUtf8(text);
}

}  // namespace
}  // namespace kovra::arx::test
