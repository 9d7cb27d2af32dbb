#include "module/options/option_page.h"

#include "module/frame/commands.h"
#include "module/frame/gates.h"
#include "module/frame/reporting.h"
#include "module/frame/resource_scope.h"
#include "module/options/option_ids.h"

namespace kovra {
namespace {

constexpr const char* kPagePath = "文字\\文字入力";
constexpr UINT kTemplate = 1529;
constexpr UINT kTemplateWithRatios = 1559;
constexpr UINT kTablesNotSaved = 3921;

// Questions of the frame.
constexpr int kAskSizing = 3;
constexpr int kAskControl = 4;

/// The tabs follow the page's lower edge.
constexpr OptionPageSizing kSizing = {optionpage::kTableTabs, 8, 100};

std::unique_ptr<OptionBase1> optionPage;

}  // namespace

/// A page that is open stays: the option dialog would go on with an object that isn't there, and
/// its window keeps the library loaded anyway.
void OptionEntry(int add) {
  if (add == 0) {
    if (optionPage != nullptr && !optionPage->IsPageCreated()) optionPage.reset();
  } else if (optionPage == nullptr) {
    optionPage = std::make_unique<OptionBase1>(kPagePath);
  }
}

OptionBase1::~OptionBase1() {
  DestroyPage();
}

bool OptionBase1::CreatePage(CWnd* parent) {
  if (PageDialog != nullptr) return true;
  const ResourceScope scope;
  const bool ratios = DataVersionAtLeast(L"12.0");
  const UINT templateId = ratios ? kTemplateWithRatios : kTemplate;
  PageDialog =
      std::make_unique<COptionPage1>(templateId, ratios ? kOptionTables : kOptionTables - 1);
  PageDialog->OwnerPage = this;
  if (!PageDialog->Create(templateId, parent)) PageDialog.reset();
  return PageDialog != nullptr;
}

bool OptionBase1::DestroyPage() {
  if (PageDialog == nullptr) return true;
  PageDialog->DestroyWindow();
  PageDialog.reset();
  return true;
}

HWND OptionBase1::PageWindow() {
  return PageDialog != nullptr ? PageDialog->m_hWnd : nullptr;
}

int OptionBase1::ShowPage(int flag) {
  return PageDialog != nullptr ? PageDialog->ShowWindow(flag > 0 ? SW_SHOW : SW_HIDE) : 0;
}

/// Tables that can't be saved stay changes that the page holds.
void OptionBase1::ApplyPage() {
  if (PageDialog == nullptr) return;
  PageDialog->UpdateData(TRUE);
  const bool saved = SaveOptionTables(*PageDialog);
  PageDialog->ForgetChanges();
  if (saved) return;
  SetModified();
  ShowMessage(kTablesNotSaved);
}

void OptionBase1::ReloadPage() {
  if (PageDialog == nullptr) return;
  LoadOptionTables(*PageDialog);
  PageDialog->ForgetChanges();
}

bool OptionBase1::ValidatePage() {
  return PageDialog != nullptr && PageDialog->UpdateData(TRUE);
}

std::intptr_t OptionBase1::PageInfo(int kind, int controlId) {
  switch (kind) {
    case kAskSizing:
      return reinterpret_cast<std::intptr_t>(&kSizing);
    case kAskControl:
      return reinterpret_cast<std::intptr_t>(::GetDlgItem(PageWindow(), controlId));
    default:
      return KovraOptionPage::PageInfo(kind, controlId);
  }
}

}  // namespace kovra
