/// Native widgets against the windows in memory that they show, with real clicks and keys.
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

#include "desktop/loop/texts.h"
#include "desktop/mirror/window_mirror.h"
#include "platform/spread/spread.h"
#include "platform/win/base/list_messages.h"
#include "platform/win/controls/tab_messages.h"
#include "platform/win/desktop/dialog_listing.h"
#include "platform/win/desktop/table_input.h"
#include "platform/win/dialogs/message_box.h"
#include "tests/desktop/hands/native_input.h"
#include "tests/win/test_dialog.h"

namespace kovra::test {
namespace {

using win::Item;
using win::kShown;
using win::kTab;
constexpr int kText = 10, kUpper = 11, kLines = 12, kCheck = 20, kThree = 21, kRadio = 30;
constexpr int kList = 40, kBox = 41, kRows = 50, kArrows = 60, kTabs = 70, kGrid = 80;

/// Answers a box or menu as soon as it is open.
template <class Widget>
void whenOpen(QWidget* (*current)(), const std::function<void(Widget&)>& answer) {
  auto* timer = new QTimer(qApp);
  QObject::connect(timer, &QTimer::timeout, timer, [timer, current, answer] {
    auto* widget = qobject_cast<Widget*>(current());
    if (widget == nullptr || !widget->isVisible()) return;
    timer->stop();
    timer->deleteLater();
    answer(*widget);
  });
  timer->start(10);
}

class MirrorTest : public win::DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    QGuiApplication::clipboard()->clear();
    frame = std::make_unique<QMainWindow>();
    frame->resize(900, 700);
    frame->show();
    mirror = std::make_unique<desktop::WindowMirror>(frame.get());
  }
  void TearDown() override {
    DialogTest::TearDown();
    see();
    mirror.reset();
  }

  /// All that is under way comes to rest, and the widgets are equal to their windows then.
  void see() {
    for (int i = 0; i < 3; ++i) {
      seeThrough();
      win::Pump::instance().settle();
      mirror->refresh();
    }
    for (const std::string& difference : mirror->differences()) ADD_FAILURE() << difference;
  }
  void open(const std::vector<Item>& items) {
    show(items);
    see();
    told();
  }
  template <class Widget = QWidget>
  Widget* widget(int id) {
    QWidget* found = mirror->widgetOf(control(id));
    EXPECT_NE(dynamic_cast<Widget*>(found), nullptr);
    return static_cast<Widget*>(found);
  }
  void click(QWidget* target, QPoint place = {}) {
    ASSERT_NE(target, nullptr);
    clickWidget(target, place);
    see();
  }
  void press(const char* key) {
    pressNativeKey(*win::keyNamed(key));
    see();
  }
  void type(std::wstring_view characters) {
    typeNativeText(characters);
    see();
  }
  int focusId() { return GetDlgCtrlID(win::focusedControl()); }

  std::unique_ptr<QMainWindow> frame;
  std::unique_ptr<desktop::WindowMirror> mirror;
};

TEST_F(MirrorTest, FieldsTakeWhatTheWindowsInMemoryLetThrough) {
  open({{kText, L"EDIT", kTab | ES_AUTOHSCROLL, L"first"},
        {kUpper, L"EDIT", kTab | ES_UPPERCASE | ES_AUTOHSCROLL},
        {kLines, L"EDIT", kTab | ES_MULTILINE | ES_WANTRETURN}});
  SendMessageW(control(kUpper), EM_LIMITTEXT, 4, 0);
  click(widget(kUpper));
  type(L"abcdef");
  EXPECT_EQ(text(kUpper), "ABCD");
  click(widget(kLines));
  type(L"one\r\ntwo");
  EXPECT_EQ(text(kLines), "one\r\ntwo");
  EXPECT_EQ(widget<QPlainTextEdit>(kLines)->toPlainText(), "one\ntwo");

  auto* field = widget<QLineEdit>(kText);
  QTest::mouseDClick(field, Qt::LeftButton, {}, {8, field->height() / 2});
  see();
  EXPECT_EQ(field->selectedText(), "first");
  press("Ctrl+C");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "first");
  type(L"x");
  press("Ctrl+Z");
  EXPECT_EQ(text(kText), "first");
  QGuiApplication::clipboard()->setText("from elsewhere");
  press("Ctrl+A");
  press("Ctrl+V");
  EXPECT_EQ(text(kText), "from elsewhere");
}

TEST_F(MirrorTest, ComposedTextIsTheFieldsWhenItIsCommitted) {
  open({{kText, L"EDIT", kTab | ES_AUTOHSCROLL, L"ab"}, {kUpper, L"EDIT", kTab}});
  auto* field = widget<QLineEdit>(kText);
  click(field);
  press("End");
  QInputMethodEvent composing(QStringLiteral("ちゅう"), {});
  QApplication::sendEvent(field, &composing);
  seeThrough();
  mirror->refresh();
  EXPECT_EQ(text(kText), "ab");
  EXPECT_TRUE(field->displayText().contains(QStringLiteral("ab")));
  QInputMethodEvent commit;
  commit.setCommitString(QStringLiteral("注"));
  QApplication::sendEvent(field, &commit);
  see();
  EXPECT_EQ(win::windowText(control(kText)), L"ab注");
  // Given up: the field is as it was, also the text that had been selected.
  press("Ctrl+A");
  QApplication::sendEvent(field, &composing);
  QInputMethodEvent given;
  QApplication::sendEvent(field, &given);
  see();
  EXPECT_EQ(field->text(), QStringLiteral("ab注"));
}

TEST_F(MirrorTest, ChecksAndRadiosFollowTheirDialog) {
  open({{kCheck, L"BUTTON", kTab | BS_AUTOCHECKBOX, L"&Check"},
        {kThree, L"BUTTON", kTab | BS_AUTO3STATE, L"Three"},
        {kRadio, L"BUTTON", kTab | WS_GROUP | BS_AUTORADIOBUTTON, L"One"},
        {kRadio + 1, L"BUTTON", kShown | BS_AUTORADIOBUTTON, L"Two"},
        {kRadio + 2, L"BUTTON", kShown | BS_RADIOBUTTON, L"Not by itself"}});
  click(widget(kCheck));
  click(widget(kThree));
  click(widget(kThree));
  click(widget(kRadio + 1));
  click(widget(kRadio + 2));
  EXPECT_EQ(IsDlgButtonChecked(dialog, kCheck), BST_CHECKED);
  EXPECT_EQ(IsDlgButtonChecked(dialog, kThree), 2U);
  EXPECT_EQ(IsDlgButtonChecked(dialog, kRadio + 1), BST_CHECKED);
  EXPECT_EQ(IsDlgButtonChecked(dialog, kRadio + 2), 0U);
  press("Alt+C");
  EXPECT_EQ(IsDlgButtonChecked(dialog, kCheck), 0U);
  press("Space");
  EXPECT_EQ(IsDlgButtonChecked(dialog, kCheck), BST_CHECKED);
  when("20 BN_CLICKED", [this] { EnableWindow(control(kThree), FALSE); });
  press("Space");
  EXPECT_FALSE(widget(kThree)->isEnabled());
}

TEST_F(MirrorTest, ItemsAreChosenFromListsThatDropDown) {
  open({{kList, L"COMBOBOX", kTab | CBS_DROPDOWNLIST}, {kBox, L"COMBOBOX", kTab | CBS_DROPDOWN}});
  for (const int id : {kList, kBox})
    for (const wchar_t* item : {L"LAYER1", L"NOTES", L"WIRES"})
      SendMessageW(control(id), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
  see();
  for (const int id : {kList, kBox}) {
    auto* box = widget<QComboBox>(id);
    click(box, {box->width() - 8, box->height() / 2});
    QAbstractItemView* view = box->view();
    ASSERT_TRUE(view->isVisible());
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    click(view->viewport(), view->visualRect(view->model()->index(1, 0)).center());
    EXPECT_EQ(text(id), "NOTES");
    EXPECT_EQ(focusId(), id);
    press("Down");
    EXPECT_EQ(text(id), "WIRES");
  }
  type(L"own");
  EXPECT_EQ(text(kBox), "own");
  EXPECT_EQ(SendMessageW(control(kBox), CB_GETCURSEL, 0, 0), CB_ERR);
  press("F4");
  EXPECT_TRUE(widget<QComboBox>(kBox)->view()->isVisible());
  press("Esc");
  EXPECT_TRUE(IsWindowVisible(dialog));
  // A text that is an item's isn't chosen by leaving the field.
  told();
  press("Ctrl+A");
  type(L"NOTES");
  press("Tab");
  EXPECT_EQ(SendMessageW(control(kBox), CB_GETCURSEL, 0, 0), CB_ERR);
}

TEST_F(MirrorTest, RowsAreCheckedAndChosenApart) {
  open({{kRows, L"SysListView32", kTab | LVS_NOCOLUMNHEADER}});
  const HWND list = control(kRows);
  SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_CHECKBOXES);
  LVCOLUMNW column{};
  column.mask = LVCF_WIDTH;
  column.cx = 80;
  SendMessageW(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
  for (int i = 0; i < 3; ++i) {
    std::wstring name = L"row " + std::to_wstring(i);
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = i;
    item.pszText = name.data();
    SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
  }
  SetWindowPos(list, nullptr, 0, 0, 150, 90, SWP_NOMOVE | SWP_NOZORDER);
  see();
  auto* view = widget<QTreeView>(kRows);
  const QRect row = view->visualRect(view->model()->index(1, 0));
  click(view->viewport(), {row.left() + 9, row.center().y()});
  EXPECT_EQ(win::listControl(list).checks, (std::vector{0, 1, 0}));
  EXPECT_EQ(win::listControl(list).selected, -1);
  click(view->viewport(), view->visualRect(view->model()->index(2, 0)).center());
  EXPECT_EQ(win::listControl(list).selected, 2);
  press("Up");
  press("Space");
  EXPECT_EQ(win::listControl(list).checks, (std::vector{0, 0, 0}));
}

TEST_F(MirrorTest, ArrowsCountAndTabsTurn) {
  open({{kText, L"EDIT", kTab, L"5"},
        {kArrows, UPDOWN_CLASSW, kShown | UDS_SETBUDDYINT | UDS_AUTOBUDDY | UDS_ARROWKEYS},
        {kTabs, L"SysTabControl32", kTab}});
  SendMessageW(control(kArrows), UDM_SETRANGE32, 0, 9);
  for (const wchar_t* name : {L"First", L"Second"}) {
    std::wstring caption = name;
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = caption.data();
    SendMessageW(control(kTabs), TCM_INSERTITEMW, 9, reinterpret_cast<LPARAM>(&item));
  }
  see();
  click(widget(kArrows)->findChild<QToolButton*>("up"));
  EXPECT_EQ(text(kText), "6");
  press("Down");
  EXPECT_EQ(text(kText), "5");
  QTabBar* bar = widget<QTabWidget>(kTabs)->tabBar();
  click(bar, bar->tabRect(1).center());
  EXPECT_EQ(SendMessageW(control(kTabs), TCM_GETCURSEL, 0, 0), 1);
}

TEST_F(MirrorTest, CellsAreEditedInTheTable) {
  open({{kGrid, L"fpUSpread80", kTab}});
  const HWND grid = control(kGrid);
  SetWindowPos(dialog, nullptr, 0, 0, 320, 220, SWP_NOMOVE | SWP_NOZORDER);
  SetWindowPos(grid, nullptr, 0, 0, 280, 160, SWP_NOMOVE | SWP_NOZORDER);
  SSSetMaxCols(grid, 2);
  SSSetData(grid, 1, 1, L"one");
  see();
  auto* view = widget<QTableView>(kGrid);
  const auto place = [&](int row, int column) {
    return view->visualRect(view->model()->index(row - 1, column - 1)).center();
  };
  click(view->viewport(), place(2, 2));
  type(L"two");
  press("F2");
  doubleClickWidget(view->viewport(), place(1, 1));
  see();
  press("End");
  type(L"!");
  click(view->viewport(), place(3, 1));
  const auto cells = win::listControl(grid).table->cells;
  ASSERT_EQ(cells.size(), 2U);
  EXPECT_EQ(cells[0].text, L"one!");
  EXPECT_EQ(cells[1].text, L"two");
  dragWidget(view->viewport(), place(1, 1), place(2, 2));
  see();
  const auto block = win::listControl(grid).table->block;
  ASSERT_TRUE(block);
  EXPECT_EQ(block->second.row, 2);
  EXPECT_EQ(block->second.column, 2);
}

TEST_F(MirrorTest, TheKeysOfTheDialogAreDecidedInMemory) {
  open({{5, L"STATIC", kShown, L"&Name"},
        {kText, L"EDIT", kTab},
        {kUpper, L"EDIT", kTab | WS_DISABLED},
        {IDOK, L"BUTTON", kTab | BS_DEFPUSHBUTTON, L"OK"},
        {IDCANCEL, L"BUTTON", kTab, L"Cancel"}});
  press("Tab");
  press("Tab");
  press("Shift+Tab");
  const int before = focusId();
  press("Alt+N");
  EXPECT_NE(before, kUpper);
  EXPECT_EQ(focusId(), kText);
  told();
  press("Enter");
  press("Esc");
  mirror->widgetOf(dialog)->close();
  see();
  win::Pump::instance().settle();
  EXPECT_EQ(told(), (win::Told{"1 BN_CLICKED", "2 BN_CLICKED", "2 BN_CLICKED"}));
  EXPECT_TRUE(mirror->widgetOf(dialog)->isVisible());
  ShowWindow(dialog, SW_HIDE);
  see();
  EXPECT_FALSE(mirror->widgetOf(dialog)->isVisible());
  DestroyWindow(dialog);
  see();
  EXPECT_EQ(mirror->widgetOf(dialog), nullptr);
}

TEST_F(MirrorTest, BoxesAndMenusAreNative) {
  open({{kText, L"EDIT", kTab, L"abc"}, {kCheck, L"BUTTON", kTab, L"Ask"}});
  int answer = 0;
  when("20 BN_CLICKED", [&] {
    whenOpen<QMessageBox>(QApplication::activeModalWidget, [](QMessageBox& box) {
      EXPECT_EQ(box.buttons().size(), 3);
      box.findChild<QPushButton*>("no")->click();
    });
    answer = MessageBoxW(dialog, L"Really?", L"Question", MB_YESNOCANCEL | MB_ICONQUESTION);
  });
  click(widget(kCheck));
  EXPECT_EQ(answer, IDNO);
  EXPECT_EQ(focusId(), kCheck);
  click(widget(kText));
  press("Ctrl+A");
  whenOpen<QMenu>(QApplication::activePopupWidget,
                  [](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_D); });  // "Delete"
  QTest::mouseClick(widget(kText), Qt::RightButton);
  see();
  EXPECT_EQ(text(kText), "");
}

}  // namespace
}  // namespace kovra::test
