#include "tests/win/test_dialog.h"

namespace kovra::win {
namespace {

class Edit : public DialogTest {
 protected:
  void showField(DWORD style, const wchar_t* start) { show({{10, L"EDIT", kTab | style, start}}); }
  /// Characters and, between angle brackets, names of keys.
  void input(const std::string& script) {
    for (std::size_t i = 0; i < script.size(); ++i) {
      if (script[i] != '<') {
        typeCharacters(std::wstring(1, static_cast<wchar_t>(script[i])));
        continue;
      }
      const std::size_t end = script.find('>', i);
      const auto key = keyNamed(script.substr(i + 1, end - i - 1));
      ASSERT_TRUE(key) << script;
      pressKey(control(10), *key);
      i = end;
    }
  }
};

TEST_F(Edit, TypingMovingDeletingAndTheClipboard) {
  struct Case {
    DWORD style;
    const wchar_t* start;
    std::string input;
    std::string text;
  };
  constexpr DWORD kMulti = ES_MULTILINE | ES_WANTRETURN;
  const Case cases[] = {
      {0, L"abc", "<End>d<Home>x", "xabcd"},
      {0, L"abc", "<Home><Right><Delete>", "ac"},
      {0, L"abc", "<End><Backspace><Backspace>", "a"},
      {0, L"abc", "<Home><Backspace>", "abc"},
      {0, L"abcd", "<Home><Shift+Right><Shift+Right>X", "Xcd"},
      {0, L"ab cd", "<End><Ctrl+Left>X", "ab Xcd"},
      {0, L"ab cd", "<Home><Ctrl+Right>X", "ab Xcd"},
      {0, L"ab", "<Ctrl+A><Ctrl+C><End><Ctrl+V>", "abab"},
      {0, L"ab", "<Ctrl+A><Ctrl+X><Shift+Insert><Shift+Insert>", "abab"},
      {0, L"ab", "<End>c<Ctrl+Z>", "ab"},
      {0, L"ab", "<End>c<Ctrl+Z><Ctrl+Z>", "abc"},
      {0, L"ab", "<End><Enter>", "ab"},
      {ES_NUMBER, L"", "1a.2-", "12"},
      {ES_UPPERCASE, L"", "aB1", "AB1"},
      {ES_READONLY, L"ab", "<End>c<Backspace>", "ab"},
      {kMulti, L"ab", "<End><Enter>c<Up>d", "adb\r\nc"},
      {kMulti, L"ab\r\ncd", "<Home><Down><End><Backspace><Backspace><Backspace>x", "abx"},
      {kMulti, L"ab\r\ncd", "<Home><Right><Right><Delete>", "abcd"},
      {kMulti, L"ab\r\ncd", "<Ctrl+End>e<Ctrl+Home>f", "fab\r\ncde"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.input);
    showField(c.style, c.start);
    SetFocus(control(10));
    input(c.input);
    EXPECT_EQ(text(10), c.text);
    DestroyWindow(dialog);
  }
}

TEST_F(Edit, TheLimitHoldsForTheUserOnly) {
  showField(0, L"");
  SendMessageW(control(10), EM_LIMITTEXT, 3, 0);
  SetFocus(control(10));
  told();
  typeCharacters(L"abcd");
  EXPECT_EQ(text(10), "abc");
  EXPECT_EQ(told().back(), "10 EN_MAXTEXT");
  SetDlgItemTextW(dialog, 10, L"longer");
  EXPECT_EQ(text(10), "longer");
  interaction().setClipboard(L"123456");
  EXPECT_EQ(typeOver(control(10), L"").error, "");
  pressKey(control(10), *keyNamed("Ctrl+V"));
  EXPECT_EQ(text(10), "123");
}

TEST_F(Edit, APastedTextEndsAtItsFirstLineInASingleLine) {
  showField(0, L"");
  interaction().setClipboard(L"one\r\ntwo");
  pressKey(control(10), *keyNamed("Ctrl+V"));
  EXPECT_EQ(text(10), "one");
}

TEST_F(Edit, SelectionAndLinesAsMessagesGiveThem) {
  showField(ES_MULTILINE, L"ab\r\ncdef\r\n");
  const HWND field = control(10);
  SendMessageW(field, EM_SETSEL, 5, 7);
  DWORD from = 0, to = 0;
  SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  EXPECT_EQ(from, 5U);
  EXPECT_EQ(to, 7U);
  SendMessageW(field, EM_SETSEL, 99, 99);
  EXPECT_EQ(LOWORD(SendMessageW(field, EM_GETSEL, 0, 0)), 10);
  EXPECT_EQ(SendMessageW(field, EM_GETLINECOUNT, 0, 0), 3);
  EXPECT_EQ(SendMessageW(field, EM_LINEINDEX, 1, 0), 4);
  EXPECT_EQ(SendMessageW(field, EM_LINEINDEX, 3, 0), -1);
  EXPECT_EQ(SendMessageW(field, EM_LINELENGTH, 5, 0), 4);
  EXPECT_EQ(SendMessageW(field, EM_LINEFROMCHAR, 5, 0), 1);
}

TEST_F(Edit, TypeOverReplacesTheWholeText) {
  showField(ES_MULTILINE | ES_WANTRETURN, L"old");
  EXPECT_EQ(typeOver(control(10), L"a\nb\r\nc").error, "");
  EXPECT_EQ(text(10), "a\r\nb\r\nc");
  told();
  EXPECT_EQ(typeOver(control(10), L"").error, "");
  EXPECT_EQ(text(10), "");
  EXPECT_EQ(told(), (Told{"10 EN_UPDATE", "10 EN_CHANGE"}));
  EXPECT_EQ(typeOver(control(10), L"").error, "");
  EXPECT_EQ(told(), Told{});
}

}  // namespace
}  // namespace kovra::win
