/// Dialog classes on windows: maps, modal and modeless life, data exchange, the resource chain.
#include <gtest/gtest.h>

#include <fstream>
#include <functional>

#include "platform/mfc/mfc.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/pump.h"
#include "platform/win/controls/painting.h"
#include "platform/win/desktop/desktop.h"
#include "platform/win/desktop/user_input.h"
#include "tests/win/res_builder.h"

namespace {

using namespace kovra::win;

constexpr UINT kTemplate = 526;
constexpr DWORD kTab = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr UINT kPing = WM_USER + 7;

/// Loads compiled resources as a module of the process.
HMODULE loadResources() {
  static const HMODULE module = [] {
    ResBuilder resources;
    resources.strings({{2762, u"The step must not be 0"}, {2763, u"%1 of %2!d!"}})
        .dialog(kTemplate, WS_POPUP | WS_CAPTION | WS_SYSMENU, u"Copy",
                {{IDOK, 0x80, kTab | BS_DEFPUSHBUTTON, u"OK"},
                 {IDCANCEL, 0x80, kTab, u"Cancel"},
                 {10, 0x81, kTab, u""},
                 {11, 0x81, kTab, u""},
                 {20, 0x80, kTab | BS_AUTOCHECKBOX, u"Count"},
                 {30, 0x80, kTab | WS_GROUP | BS_AUTORADIOBUTTON, u"a"},
                 {31, 0x80, WS_CHILD | WS_VISIBLE | BS_AUTORADIOBUTTON, u"b"},
                 {40, 0x85, kTab | WS_GROUP | CBS_DROPDOWN, u""},
                 {50, 0x80, kTab | BS_OWNERDRAW, u"draw"}});
    const auto path = std::filesystem::temp_directory_path() / "kovra_dialog_test.res";
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(resources.bytes().data()),
               static_cast<std::streamsize>(resources.bytes().size()));
    const auto loaded = loadResourceFile(path);
    std::filesystem::remove(path);
    return loaded.module;
  }();
  return module;
}

/// What a user does while the dialog is open, step by step.
struct User : PumpSource {
  User() { Pump::instance().addSource(kOutsideInput, this); }
  ~User() override { Pump::instance().removeSource(this); }
  bool dispatchOne() override {
    if (next == steps.size()) return false;
    steps[next++]();
    return true;
  }
  std::vector<std::function<void()>> steps;
  std::size_t next = 0;
};

HWND item(int id) {
  return controlWithId(topDialog(), id);
}

class DrawnButton : public CButton {
 public:
  void DrawItem(LPDRAWITEMSTRUCT drawn) override {
    RECT place = drawn->rcItem;
    DrawFrameControl(drawn->hDC, &place, DFC_BUTTON, drawn->itemState);
  }
};

class CountDialog : public CDialog {
 public:
  explicit CountDialog(std::string& events) : CDialog(kTemplate), events_(events) {}
  ~CountDialog() override { events_ += "deleted "; }

  CString text = L"start";
  int number = 3;
  int count = 1;
  int mode = 1;
  CString style = L"two";
  bool deletesItself = false;
  bool refuses = false;

  LRESULT ping(WPARAM wParam, LPARAM) {
    events_ += "ping" + std::to_string(wParam) + " ";
    return 42;
  }

 protected:
  void DoDataExchange(CDataExchange* exchange) override {
    DDX_Text(exchange, 10, text);
    DDX_Text(exchange, 11, number);
    DDX_Check(exchange, 20, count);
    DDX_Radio(exchange, 30, mode);
    DDX_CBStringExact(exchange, 40, style);
    DDX_Control(exchange, 50, drawn_);
  }
  BOOL OnInitDialog() override {
    auto* combo = static_cast<CComboBox*>(GetDlgItem(40));
    for (const wchar_t* name : {L"one", L"two"}) combo->AddString(name);
    events_ += "init ";
    return CDialog::OnInitDialog();
  }
  void OnOK() override {
    events_ += "ok ";
    if (refuses) {
      AfxMessageBox(2762);
      GetDlgItem(11)->SetFocus();
      return;
    }
    CDialog::OnOK();
  }
  void OnCancel() override {
    events_ += "cancel ";
    if (deletesItself) {
      DestroyWindow();
    } else {
      CDialog::OnCancel();
    }
  }
  BOOL DestroyWindow() override {
    events_ += "destroy ";
    return CDialog::DestroyWindow();
  }
  void PostNcDestroy() override {
    events_ += "gone ";
    if (deletesItself) delete this;
  }
  BOOL PreTranslateMessage(MSG* message) override {
    if (message->message == WM_LBUTTONDOWN) events_ += "press ";
    return CDialog::PreTranslateMessage(message);
  }

  void onCount() { events_ += "count "; }
  void onMode(UINT id) { events_ += "mode" + std::to_string(id) + " "; }
  void onChange() { events_ += "change "; }
  void onStyle() { events_ += "style "; }
  afx_msg void OnShowWindow(BOOL show, UINT status) {
    CDialog::OnShowWindow(show, status);
    events_ += show ? "shown " : "hidden ";
  }
  DECLARE_MESSAGE_MAP()

 private:
  std::string& events_;
  DrawnButton drawn_;
};

BEGIN_MESSAGE_MAP(CountDialog, CDialog)
ON_BN_CLICKED(20, &CountDialog::onCount)
ON_CONTROL_RANGE(BN_CLICKED, 30, 31, &CountDialog::onMode)
ON_EN_CHANGE(10, &CountDialog::onChange)
ON_CBN_SELENDOK(40, &CountDialog::onStyle)
ON_MESSAGE(kPing, &CountDialog::ping)
ON_WM_SHOWWINDOW()
END_MESSAGE_MAP()

/// Keeps one row of a list checked, as dialogs with a choice among rows do.
class RowDialog : public CDialog {
 public:
  explicit RowDialog() : CDialog(kTemplate) {}
  CListCtrl rows;

 protected:
  static constexpr UINT kRows = 60;
  BOOL OnInitDialog() override {
    rows.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 150, 100), this, kRows);
    rows.SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
    EXPECT_EQ(rows.InsertColumn(0, L"Tag", LVCFMT_LEFT, 128), 0);
    for (const wchar_t* text : {L"NAME", L"SENBAN"}) rows.InsertItem(rows.GetItemCount(), text);
    return CDialog::OnInitDialog();
  }
  void onRow(NMHDR* header, LRESULT*) {
    const auto* change = reinterpret_cast<const NMLISTVIEW*>(header);
    const int other = 1 - change->iItem;
    const UINT image = change->uNewState & LVIS_STATEIMAGEMASK;
    if (image == (change->uOldState & LVIS_STATEIMAGEMASK)) return;
    if (image == INDEXTOSTATEIMAGEMASK(2)) rows.SetCheck(other, FALSE);
    if (image == INDEXTOSTATEIMAGEMASK(1) && !rows.GetCheck(other)) rows.SetCheck(change->iItem);
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(RowDialog, CDialog)
ON_NOTIFY(LVN_ITEMCHANGED, kRows, &RowDialog::onRow)
END_MESSAGE_MAP()

class Dialogs : public testing::Test {
 protected:
  void SetUp() override {
    resetDesktop();
    interaction() = Interaction{};
    AfxSetResourceHandle(loadResources());
  }
  void TearDown() override { resetDesktop(); }

  std::string events;
  User user;
};

TEST_F(Dialogs, AModalDialogRunsUntilOk) {
  CountDialog dialog(events);
  user.steps = {[&] {
                  EXPECT_TRUE(drawingBlocked());
                  EXPECT_EQ(Pump::instance().topWait()->kind, WaitKind::modalDialog);
                  EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDOK);
                  EXPECT_EQ(typeOver(item(10), L"a").error, "");
                  EXPECT_EQ(typeOver(item(11), L"12").error, "");
                  EXPECT_EQ(clickControl(item(20)).error, "");
                  EXPECT_EQ(clickControl(item(30)).error, "");
                  EXPECT_EQ(chooseItem(item(40), L"one").error, "");
                },
                [&] { EXPECT_EQ(SendMessageW(topDialog(), kPing, 5, 0), 42); },
                [&] { EXPECT_EQ(pressKeyInDialog(topDialog(), {VK_RETURN}).error, ""); }};
  EXPECT_EQ(dialog.DoModal(), IDOK);
  EXPECT_EQ(
      events,
      "init change shown change press count press mode30 style ping5 ok hidden destroy gone ");
  EXPECT_STREQ(dialog.text, L"a");
  EXPECT_EQ(dialog.number, 12);
  EXPECT_EQ(dialog.count, 0);
  EXPECT_EQ(dialog.mode, 0);
  EXPECT_STREQ(dialog.style, L"one");
  EXPECT_FALSE(drawingBlocked());
  EXPECT_EQ(GetFocus(), drawingWindow());
}

TEST_F(Dialogs, CancelAndTheEndOfInputLeaveTheFields) {
  for (const bool presses : {true, false}) {
    CountDialog dialog(events);
    user.steps = {[&] { typeOver(item(11), L"77"); }};
    user.next = 0;
    if (presses) user.steps.push_back([&] { EXPECT_EQ(pressCloseBox(topDialog()).error, ""); });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.number, 3);
    EXPECT_FALSE(drawingBlocked());
  }
}

TEST_F(Dialogs, OkMayBeRefusedWithAMessageAndTheFocus) {
  CountDialog dialog(events);
  dialog.refuses = true;
  std::string transcript;
  interaction().setTranscript([&](std::string_view text) { transcript += text; });
  user.steps = {[&] { clickControl(item(IDOK)); },
                [&] { EXPECT_EQ(GetDlgCtrlID(GetFocus()), 11); }};
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_EQ(transcript, "[AutoCAD] The step must not be 0\n");
}

TEST_F(Dialogs, ANumberThatIsNoneKeepsTheDialogOpen) {
  CountDialog dialog(events);
  user.steps = {[&] { typeOver(item(11), L"x"); }, [&] { clickControl(item(IDOK)); },
                [&] { EXPECT_EQ(GetDlgCtrlID(GetFocus()), 11); }};
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(Dialogs, AModelessDialogDeletesItselfInItsOwnMessage) {
  auto* dialog = new CountDialog(events);
  dialog->deletesItself = true;
  ASSERT_TRUE(dialog->Create(kTemplate));
  EXPECT_FALSE(dialog->IsWindowVisible());
  dialog->ShowWindow(SW_SHOWNA);
  EXPECT_FALSE(drawingBlocked());
  events.clear();
  PostMessageW(dialog->m_hWnd, WM_COMMAND, IDCANCEL, 0);
  Pump::instance().settle();
  EXPECT_EQ(events, "cancel destroy gone deleted ");
  EXPECT_EQ(topDialog(), nullptr);
}

TEST_F(Dialogs, RowsTellOfTheirChecks) {
  RowDialog dialog;
  ASSERT_TRUE(dialog.Create(kTemplate));
  dialog.ShowWindow(SW_SHOW);
  const auto checks = [&] { return std::pair(dialog.rows.GetCheck(0), dialog.rows.GetCheck(1)); };
  EXPECT_EQ(checks(), std::pair(1, 0)) << "rows come unchecked; the dialog has its rule";
  EXPECT_EQ(clickItemCheck(item(60), 1).error, "");
  EXPECT_EQ(checks(), std::pair(0, 1));
  EXPECT_EQ(clickItemCheck(item(60), 1).error, "");
  EXPECT_EQ(checks(), std::pair(0, 1)) << "the last check comes back";
  EXPECT_TRUE(dialog.rows.SetItemText(1, 0, std::wstring(300, L'W').c_str()));
  EXPECT_EQ(dialog.rows.GetItemText(1, 0).GetLength(), 300);
  EXPECT_TRUE(dialog.rows.SetItemData(1, 7));
  EXPECT_EQ(dialog.rows.GetItemData(1), 7U);
  DestroyWindow(dialog.m_hWnd);
}

TEST_F(Dialogs, AMissingTemplateIsAnError) {
  CDialog dialog(999U);
  EXPECT_EQ(dialog.DoModal(), -1);
  EXPECT_FALSE(CDialog().Create(999U));
  EXPECT_FALSE(drawingBlocked());
}

TEST_F(Dialogs, OwnerDrawnControlsPaintThemselves) {
  CountDialog dialog(events);
  ASSERT_TRUE(dialog.Create(kTemplate));
  dialog.ShowWindow(SW_SHOW);
  EnableWindow(item(50), FALSE);
  const auto steps = paintWindow(item(50));
  ASSERT_EQ(steps.size(), 1U);
  EXPECT_EQ(steps[0].state, ODS_DISABLED);
  DestroyWindow(dialog.m_hWnd);
}

TEST_F(Dialogs, TipsShowForTheControlUnderTheCursor) {
  CountDialog dialog(events);
  ASSERT_TRUE(dialog.Create(kTemplate));
  CToolTipCtrl tips;
  ASSERT_TRUE(tips.Create(&dialog));
  tips.AddTool(dialog.GetDlgItem(50), L"draws");
  MSG over{::GetDlgItem(dialog.m_hWnd, 50), WM_MOUSEMOVE, 0, 0, 0, {}};
  tips.RelayEvent(&over);
  EXPECT_STREQ(tips.shownTip(), L"draws");
  over.hwnd = dialog.m_hWnd;
  tips.RelayEvent(&over);
  EXPECT_STREQ(tips.shownTip(), L"");
  DestroyWindow(dialog.m_hWnd);
}

TEST_F(Dialogs, TheResourceChainFindsWhatExtensionsBring) {
  AfxSetResourceHandle(nullptr);
  AFX_EXTENSION_MODULE extension;
  CString text;
  EXPECT_FALSE(text.LoadString(2762));
  ASSERT_TRUE(AfxInitExtensionModule(extension, loadResources()));
  new CDynLinkLibrary(extension);
  EXPECT_TRUE(text.LoadString(2762));
  AfxFormatString1(text, 2762, L"");
  EXPECT_STREQ(text, L"The step must not be 0");
  text.FormatMessage(2763U, L"a", 2);
  EXPECT_STREQ(text, L"a of 2");
  AfxTermExtensionModule(extension);
  EXPECT_FALSE(text.LoadString(2762));
}

}  // namespace
