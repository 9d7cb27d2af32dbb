// Values of the text style in a dialog's fields, and what combo boxes say about themselves.
#include <gtest/gtest.h>

#include "module/drawing/text_styles.h"
#include "module/frame/dialog_items.h"
#include "module/text7/adopt_style.h"
#include "platform/win/desktop/user_input.h"
#include "tests/module/module_run.h"
#include "tests/module/sheet.h"
#include "tests/win/test_dialog.h"

namespace kovra::test {
namespace {

constexpr int kStyle = 1985;
constexpr int kHeight = 1987;
constexpr int kPickHeight = 1988;
constexpr int kWidth = 1989;
constexpr int kPickWidth = 1990;
constexpr int kAdopt = 4514;

/// The dialog checks its entries when a selection is confirmed.
INT_PTR checksSelections(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

/// The part of the text dialog that adoption is about.
class StyleDialog : public CWnd, public AdoptTextStyleWithButton {
 public:
  explicit StyleDialog(bool available = true) : available_(available) {
    StyleComboId = kStyle;
    AdoptCheckId = kAdopt;
    HeightComboId = kHeight;
    WidthComboId = kWidth;
    HeightButtonId = kPickHeight;
    WidthButtonId = kPickWidth;
    constexpr DWORD kCombo = win::kTab | CBS_DROPDOWN;
    Attach(win::makeDialog(nullptr,
                           win::makeTemplate({{kAdopt, L"BUTTON", win::kTab | BS_AUTOCHECKBOX},
                                              {kStyle, L"COMBOBOX", kCombo},
                                              {kHeight, L"COMBOBOX", kCombo},
                                              {kPickHeight, L"BUTTON", win::kTab},
                                              {kWidth, L"COMBOBOX", kCombo},
                                              {kPickWidth, L"BUTTON", win::kTab}}),
                           win::frameWindow(), checksSelections, 0));
    ShowWindow(SW_SHOW);
    for (const ACHAR* style : {L"STANDARD", L"THREE", L"FIVE"}) AddComboItem(*this, kStyle, style);
    SelectStyle(L"STANDARD");
    SetDlgItemText(kHeight, L"2.50");
    SetDlgItemText(kWidth, L"0.8");
  }
  ~StyleDialog() override { DestroyWindow(); }

  bool IsAvailable() override { return available_; }
  CWnd* GetDialog() override { return this; }

  /// What the dialog does at each check of its entries.
  void check() {
    CWnd& height = *GetDlgItem(kHeight);
    if (HasFixedHeight(StyleName())) {
      AdoptHeight(height);
    } else {
      ReleaseHeight(height);
    }
    ApplyAdoption(IsAdoptChecked());
  }
  void choose(const ACHAR* style) {
    EXPECT_TRUE(SelectStyle(style));
    check();
    check();
  }
  /// "3 locked"; the button says the same as its field.
  std::wstring state(int field) {
    const bool enabled = IsItemEnabled(*this, field);
    EXPECT_EQ(IsItemEnabled(*this, field + 1), enabled) << field;
    return ItemText(*this, field).GetString() + std::wstring(enabled ? L" free" : L" locked");
  }

 private:
  bool available_;
};

INT_PTR checksSelections(HWND dialog, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
  auto* style = dynamic_cast<StyleDialog*>(CWnd::FromHandlePermanent(dialog));
  if (style == nullptr || message != WM_COMMAND || HIWORD(wParam) != CBN_SELENDOK) return FALSE;
  style->check();
  return TRUE;
}

class AdoptStyle : public ::testing::Test {
 protected:
  AdoptStyle() {
    std::string drawing = sheet("");
    const std::string styles =
        groups("0 STYLE|2 THREE|70 0|40 3.0|41 0.5|50 0.0|71 0|42 2.5|3 txt|4") +
        groups("0 STYLE|2 FIVE|70 0|40 5.25|41 1.0|50 0.0|71 0|42 2.5|3 txt|4");
    const std::string standard = groups("0 STYLE|2 STANDARD");
    drawing.insert(drawing.find(standard), styles);
    run.open(drawing);
  }

  ModuleRun run;
};

TEST_F(AdoptStyle, WhatIsLocked) {
  const struct {
    bool available;
    bool checked;
    const ACHAR* style;
    const wchar_t* height;
    const wchar_t* width;
  } rows[] = {
      {false, true, L"STANDARD", L"2.50 free", L"0.8 free"},
      {false, true, L"THREE", L"3 locked", L"0.8 free"},
      {true, false, L"STANDARD", L"2.50 free", L"0.8 free"},
      {true, false, L"THREE", L"3 locked", L"0.8 free"},
      {true, true, L"STANDARD", L"2.50 free", L"1 locked"},
      {true, true, L"THREE", L"3 locked", L"0.5 locked"},
  };
  for (const auto& row : rows) {
    StyleDialog dialog(row.available);
    CheckItem(dialog, kAdopt, row.checked);
    dialog.choose(row.style);
    EXPECT_EQ(dialog.state(kHeight), row.height) << row.available << row.checked;
    EXPECT_EQ(dialog.state(kWidth), row.width) << row.available << row.checked;
    CheckItem(dialog, kAdopt, false);
    dialog.choose(L"STANDARD");
    EXPECT_EQ(dialog.state(kHeight), L"2.50 free") << "the user's own text comes back";
    EXPECT_EQ(dialog.state(kWidth), L"0.8 free");
  }
}

TEST_F(AdoptStyle, FromStyleToStyleTheUsersHeightIsKept) {
  StyleDialog dialog;
  dialog.choose(L"three");
  dialog.choose(L"FIVE");
  EXPECT_EQ(dialog.state(kHeight), L"5.25 locked");
  EXPECT_STREQ(dialog.SavedHeight, L"2.50");
  EXPECT_EQ(dialog.StoredHeight(ItemReal(dialog, kHeight)), 2.5);
  EXPECT_EQ(dialog.StoredWidth(ItemReal(dialog, kWidth)), 0.8) << "nothing is saved of it";
  dialog.choose(L"STANDARD");
  EXPECT_EQ(dialog.state(kHeight), L"2.50 free");
  EXPECT_EQ(dialog.StoredHeight(7), 7);
}

TEST_F(AdoptStyle, EmptyAndUnreadableEntries) {
  StyleDialog dialog;
  dialog.SetDlgItemText(kHeight, L"");
  dialog.choose(L"THREE");
  dialog.choose(L"STANDARD");
  EXPECT_EQ(dialog.state(kHeight), L"3 free") << "there was nothing to give back";
  for (const ACHAR* entry : {L"2.5x", L"abc", L"inf", L"nan"}) {
    dialog.SetDlgItemText(kHeight, entry);
    dialog.choose(L"THREE");
    EXPECT_EQ(dialog.StoredHeight(3), 0) << entry;
    dialog.choose(L"STANDARD");
  }
}

TEST_F(AdoptStyle, AStyleCountsAsSoonAsTheListReportsIt) {
  StyleDialog dialog;
  EXPECT_EQ(win::chooseItem(win::controlWithId(dialog, kStyle), L"FIVE").error, "");
  EXPECT_EQ(dialog.state(kHeight), L"5.25 locked") << "the field of the list shows it later";
}

TEST_F(AdoptStyle, NamesOfTheDrawing) {
  std::vector<CString> names;
  EXPECT_TRUE(ForEachTextStyle(&names, CollectStyleName));
  EXPECT_EQ(names, (std::vector<CString>{L"THREE", L"FIVE", L"STANDARD"}));
  StyleDialog dialog;
  EXPECT_TRUE(dialog.StyleListed(L"five"));
  EXPECT_FALSE(dialog.StyleListed(L"FIV")) << "not by its beginning";
  EXPECT_FALSE(dialog.SelectStyle(L"GONE"));
  EXPECT_STREQ(dialog.StyleName(), L"STANDARD");
  dialog.SetDlgItemText(kStyle, L"GONE");
  EXPECT_FALSE(dialog.HasFixedHeight(dialog.StyleName())) << "a typed name that isn't there";
  ACHAR buffer[128];
  dialog.FormatNumberTo(buffer, 20);
  EXPECT_STREQ(buffer, L"20");
}

TEST_F(AdoptStyle, ComboBoxes) {
  StyleDialog dialog;
  for (const ACHAR* item : {L"2.0", L"2.50", L"2.5"}) AddComboItem(dialog, kHeight, item);
  EXPECT_EQ(FindNumberItem(dialog, kHeight, 2.50009, 0.0001), 1);
  EXPECT_EQ(FindNumberItem(dialog, kHeight, 2.502, 0.0001), -1);
  SelectOrType(dialog, kHeight, L"2.5");
  EXPECT_EQ(SelectedIndex(dialog, kHeight), 2);
  SelectOrType(dialog, kHeight, L"7");
  EXPECT_EQ(SelectedIndex(dialog, kHeight), -1);
  EXPECT_STREQ(ComboText(dialog, kHeight), L"7");
  EXPECT_STREQ(ComboItemText(dialog, kHeight, 3), L"");
  constexpr int kNone = 77;
  EXPECT_EQ(SelectedIndex(dialog, kNone) + FindComboItem(dialog, kNone, L"x"), -2);
  EXPECT_FALSE(SelectComboItem(dialog, kNone, L"x"));
  EXPECT_EQ(ComboItemCount(dialog, kNone), 0);
}

}  // namespace
}  // namespace kovra::test
