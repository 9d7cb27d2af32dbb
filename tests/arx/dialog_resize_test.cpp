// Controls that follow the size of their dialog.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/arx/editor/host/dialog_bases.h"
#include "platform/mfc/mfc.h"
#include "platform/win/desktop/user_input.h"
#include "tests/win/res_builder.h"

namespace {

using namespace kovra::win;

constexpr UINT kTemplate = 700;
constexpr DWORD kStyle =
    WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_VISIBLE | WS_MINIMIZEBOX;

HMODULE loadTemplate() {
  ResBuilder resources;
  const auto item = [](int id) {
    return ResBuilder::Control{id, 0x80, WS_CHILD | WS_VISIBLE, u"a"};
  };
  resources.dialog(kTemplate, kStyle, u"Sized", {item(1), item(10), item(11), item(12)});
  const auto path = std::filesystem::temp_directory_path() / "kovra_resize_test.res";
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(resources.bytes().data()),
             static_cast<std::streamsize>(resources.bytes().size()));
  const auto loaded = loadResourceFile(path);
  std::filesystem::remove(path);
  return loaded.module;
}

/// Its width alone can change, and grows only.
class SizedDialog : public CAcUiDialog {
 public:
  using CAcUiDialog::CAcUiDialog;
  CSize least;

  CRect placeOf(int id) const {
    CRect place;
    GetDlgItem(id)->GetWindowRect(&place);
    ScreenToClient(&place);
    return place;
  }

 protected:
  DECLARE_MESSAGE_MAP()
  BOOL OnInitDialog() override {
    CRect window;
    GetWindowRect(&window);
    least = window.Size();
    static constexpr DialogItemResize kItems[] = {
        {10, 0, 0, 100, 0}, {1, 100, 0, 100, 0}, {11, 50, 0, 100, 0}, {99, 100, 0, 100, 0}};
    SetItemResizing(kItems, 4);
    return CAcUiDialog::OnInitDialog();
  }
  afx_msg void OnGetMinMaxInfo(MINMAXINFO* limits) {
    CAcUiDialog::OnGetMinMaxInfo(limits);
    if (least.cx < 1) return;
    limits->ptMinTrackSize = CPoint(least.cx, least.cy);
    limits->ptMaxTrackSize.y = least.cy;
  }
};

BEGIN_MESSAGE_MAP(SizedDialog, CAcUiDialog)
ON_WM_GETMINMAXINFO()
END_MESSAGE_MAP()

TEST(DialogResize, ControlsFollowWithinTheLimits) {
  const HMODULE resources = loadTemplate();
  SizedDialog dialog(kTemplate, nullptr, resources);
  ASSERT_TRUE(dialog.Create(kTemplate));
  const HWND window = dialog.GetSafeHwnd();
  const CRect stretched = dialog.placeOf(10), moved = dialog.placeOf(1), half = dialog.placeOf(11);
  const CRect fixed = dialog.placeOf(12);
  for (const int wider : {0, 101, 7, 300, -50, 33}) {
    SCOPED_TRACE(wider);
    EXPECT_EQ(sizeDialog(window, dialog.least.cx + wider, dialog.least.cy + 80).error, "");
    CRect now;
    dialog.GetWindowRect(&now);
    const int change = std::max(wider, 0);
    EXPECT_EQ(now.Width(), dialog.least.cx + change);
    EXPECT_EQ(now.Height(), dialog.least.cy);
    EXPECT_EQ(dialog.placeOf(10),
              CRect(stretched.left, stretched.top, stretched.right + change, stretched.bottom));
    EXPECT_EQ(dialog.placeOf(1),
              CRect(moved.left + change, moved.top, moved.right + change, moved.bottom));
    EXPECT_EQ(dialog.placeOf(11).left, half.left + change / 2);
    EXPECT_EQ(dialog.placeOf(12), fixed);
  }
  EXPECT_EQ(minimizeDialog(window).error, "");
  EXPECT_EQ(restoreDialog(window).error, "");
  EXPECT_EQ(dialog.placeOf(10).Width(), stretched.Width() + 33);
  dialog.DestroyWindow();
}

}  // namespace
