#include "companions/option_dialog.h"

#include <algorithm>
#include <iterator>

#include "companions/option_pages.h"
#include "companions/text.h"
#include "module/frame/companions/option_frame_lib.h"
#include "module/frame/companions/string_res_lib.h"
#include "platform/mfc/message_boxes.h"
#include "platform/mfc/message_map.h"

namespace kovra::companions {
namespace {

constexpr UINT kTemplate = 3930;
constexpr int kList = 3931;
constexpr int kPageRoom = 3932;
constexpr int kApply = 3933;
constexpr int kReset = 3934;
constexpr UINT kPageNotShown = 3923;

// Questions to a page.
constexpr int kAskSizing = 3;

constexpr DialogItemResize kSizing[] = {
    {kList, 0, 0, 0, 100},      {kPageRoom, 0, 0, 100, 100},    {kReset, 0, 100, 0, 100},
    {IDOK, 100, 100, 100, 100}, {IDCANCEL, 100, 100, 100, 100}, {kApply, 100, 100, 100, 100},
};

/// A library may take its page away while the dialog is open.
bool isKnown(KovraOptionPage* page) {
  const std::vector<KovraOptionPage*> known = optionPages();
  return std::find(known.begin(), known.end(), page) != known.end();
}

bool isMade(KovraOptionPage* page) {
  return page != nullptr && isKnown(page) && page->IsPageCreated();
}

}  // namespace

BEGIN_MESSAGE_MAP(OptionDialog, CAcUiDialog)
ON_BN_CLICKED(kApply, &OptionDialog::OnApply)
ON_BN_CLICKED(kReset, &OptionDialog::OnReset)
ON_NOTIFY(LVN_ITEMCHANGED, kList, &OptionDialog::OnPageRow)
ON_MESSAGE(kPageModifiedMessage, &OptionDialog::OnPageModified)
ON_WM_SIZE()
ON_WM_GETMINMAXINFO()
ON_WM_DESTROY()
END_MESSAGE_MAP()

OptionDialog::OptionDialog() : CAcUiDialog(kTemplate, nullptr, GetResourceModule()) {}

BOOL OptionDialog::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  pages_ = optionPages();
  SetItemResizing(kSizing, static_cast<int>(std::size(kSizing)));
  CRect place;
  GetWindowRect(&place);
  least_ = place.Size();
  fillList();
  // A page that can't be made leaves its place to the next one.
  for (std::size_t i = 0; shown_ == nullptr && i < pages_.size(); ++i) goTo(pages_[i]);
  updateApply();
  return TRUE;
}

void OptionDialog::fillList() {
  list_.SubclassDlgItem(kList, this);
  CRect client;
  list_.GetClientRect(&client);
  list_.InsertColumn(0, L"", LVCFMT_LEFT, client.Width());
  for (std::size_t i = 0; i < pages_.size(); ++i)
    list_.InsertItem(static_cast<int>(i), wide(pages_[i]->Path()).c_str());
}

void OptionDialog::selectRow(int row) {
  constexpr UINT kSelected = LVIS_SELECTED | LVIS_FOCUSED;
  list_.SetItemState(row, kSelected, kSelected);
}

void OptionDialog::OnPageRow(NMHDR* notification, LRESULT* /*result*/) {
  const auto& change = *reinterpret_cast<const NMLISTVIEW*>(notification);
  const bool selected = (change.uNewState & ~change.uOldState & LVIS_SELECTED) != 0;
  if (!selected || change.iItem < 0 || change.iItem >= static_cast<int>(pages_.size())) return;
  KovraOptionPage* const page = pages_[static_cast<std::size_t>(change.iItem)];
  if (page != shown_) goTo(page);
}

bool OptionDialog::goTo(KovraOptionPage* page) {
  const bool leave = !isMade(shown_) || shown_->ValidatePage();
  const bool done = leave && isKnown(page) && makePage(page);
  if (done) {
    if (isMade(shown_)) shown_->ShowPage(0);
    shown_ = page;
    startSizing(page);
    placePage();
    page->ShowPage(1);
  }
  const auto row = std::find(pages_.begin(), pages_.end(), shown_);
  if (row != pages_.end()) selectRow(static_cast<int>(row - pages_.begin()));
  return done;
}

bool OptionDialog::makePage(KovraOptionPage* page) {
  if (page->IsPageCreated()) return true;
  if (!page->CreatePage(this) || page->PageWindow() == nullptr) {
    page->DestroyPage();
    AfxMessageBox(optionText(kPageNotShown).c_str());
    return false;
  }
  // Its controls come right behind the list in the tab order.
  ::SetWindowPos(page->PageWindow(), list_.m_hWnd, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  page->modified_ = false;
  page->ReloadPage();
  return true;
}

void OptionDialog::startSizing(KovraOptionPage* page) {
  const auto* rule = reinterpret_cast<const OptionPageSizing*>(page->PageInfo(kAskSizing, 0));
  const auto share = [rule](int edge) { return (rule->edges & edge) != 0 ? rule->percent : 0; };
  sizing_ = {};
  if (rule == nullptr) return;
  const DialogItemResize row = {rule->control, share(1), share(2), share(4), share(8)};
  sizing_.start(*CWnd::FromHandle(page->PageWindow()), &row, 1);
}

void OptionDialog::placePage() {
  const CWnd* room = GetDlgItem(kPageRoom);
  if (!isMade(shown_) || room == nullptr) return;
  CRect place;
  room->GetWindowRect(&place);
  ScreenToClient(&place);
  CWnd& page = *CWnd::FromHandle(shown_->PageWindow());
  page.MoveWindow(place);
  sizing_.apply(page, place.Width(), place.Height());
}

LRESULT OptionDialog::OnPageModified(WPARAM /*wParam*/, LPARAM /*lParam*/) {
  updateApply();
  return 0;
}

void OptionDialog::updateApply() {
  const bool any = std::any_of(pages_.begin(), pages_.end(), [](KovraOptionPage* page) {
    return isMade(page) && page->IsModified();
  });
  GetDlgItem(kApply)->EnableWindow(any ? TRUE : FALSE);
}

bool OptionDialog::apply() {
  if (isMade(shown_) && !shown_->ValidatePage()) return false;
  bool all = true;
  for (KovraOptionPage* page : pages_) {
    if (!isMade(page) || !page->IsModified()) continue;
    page->modified_ = false;
    page->ApplyPage();
    all = all && !(isKnown(page) && page->IsModified());
  }
  updateApply();
  return all;
}

void OptionDialog::OnApply() {
  apply();
}

void OptionDialog::OnOK() {
  if (apply()) CAcUiDialog::OnOK();
}

/// A page reads what is stored over what it shows. One that is made anew shows nothing else.
void OptionDialog::OnReset() {
  if (!isMade(shown_)) return;
  KovraOptionPage* const page = shown_;
  shown_ = nullptr;
  page->DestroyPage();
  page->modified_ = false;
  goTo(page);
  updateApply();
}

void OptionDialog::OnSize(UINT type, int width, int height) {
  CAcUiDialog::OnSize(type, width, height);
  if (type != SIZE_MINIMIZED) placePage();
}

void OptionDialog::OnGetMinMaxInfo(MINMAXINFO* limits) {
  CAcUiDialog::OnGetMinMaxInfo(limits);
  if (least_.cx > 0) limits->ptMinTrackSize = {least_.cx, least_.cy};
}

void OptionDialog::OnDestroy() {
  for (KovraOptionPage* page : pages_) {
    if (!isMade(page)) continue;
    page->DestroyPage();
    page->modified_ = false;
  }
  pages_.clear();
  CAcUiDialog::OnDestroy();
}

}  // namespace kovra::companions
