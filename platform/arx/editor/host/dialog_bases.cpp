#include "platform/arx/editor/host/dialog_bases.h"

#include "platform/mfc/message_map.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/base/state_store.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/desktop/desktop.h"

CMDIFrameWnd* acedGetAcadFrame() {
  return static_cast<CMDIFrameWnd*>(AfxGetMainWnd());
}

void InitAcUiDLL() {}

IMPLEMENT_DYNAMIC(CAdUiBaseDialog, CDialog)
IMPLEMENT_DYNAMIC(CAdUiDialog, CAdUiBaseDialog)
IMPLEMENT_DYNAMIC(CAcUiDialog, CAdUiDialog)

BEGIN_MESSAGE_MAP(CAdUiBaseDialog, CDialog)
ON_MESSAGE(kKeepFocusMessage, &CAdUiBaseDialog::OnKeepFocus)
END_MESSAGE_MAP()

CAdUiBaseDialog::CAdUiBaseDialog(UINT templateId, CWnd* parent, HINSTANCE resources)
    : CDialog(templateId, parent) {
  m_hResource = resources;
}

void CAdUiBaseDialog::BeginEditorCommand() {
  if (editing_) return;
  editing_ = true;
  drawingWasBlocked_ = kovra::win::drawingBlocked();
  ::EnableWindow(kovra::win::frameWindow(), TRUE);
  // Hidden first: it remembers the control that had the focus, which disabling would take away.
  ShowWindow(SW_HIDE);
  EnableWindow(FALSE);
  kovra::win::focusDrawing();
}

void CAdUiBaseDialog::CompleteEditorCommand(BOOL restoreDialogs) {
  if (!editing_) return;
  editing_ = false;
  EnableWindow(TRUE);
  if (restoreDialogs) ShowWindow(SW_SHOW);
  if (drawingWasBlocked_) ::EnableWindow(kovra::win::frameWindow(), FALSE);
}

LRESULT CAdUiBaseDialog::OnKeepFocus(WPARAM /*wParam*/, LPARAM /*lParam*/) {
  return FALSE;
}

BEGIN_MESSAGE_MAP(CAdUiDialog, CAdUiBaseDialog)
ON_WM_SHOWWINDOW()
ON_WM_SIZE()
END_MESSAGE_MAP()

using kovra::win::StateValue;
using kovra::win::toUtf8;

namespace {

constexpr LPCTSTR kPlaceKeys[] = {L"PixelX", L"PixelY", L"PixelWidth", L"PixelHeight"};

}  // namespace

CAdUiDialog::~CAdUiDialog() {
  writeData();
}

void CAdUiDialog::PostNcDestroy() {
  writeData();
  CAdUiBaseDialog::PostNcDestroy();
}

/// What is written stays under the name that it was written under.
void CAdUiDialog::SetDialogName(LPCTSTR name) {
  writeData();
  name_ = name != nullptr ? name : L"";
}

void CAdUiDialog::writeData() {
  if (unwritten_.empty()) return;
  kovra::win::StateStore store(kovra::win::stateStoreFile(), kovra::win::kPlatformTable);
  const std::string section = toUtf8(name_.GetString());
  for (const auto& [key, value] : unwritten_) store.set(section, key, value);
  unwritten_.clear();
}

/// The place for a value that is to be written; null without a name or a key.
StateValue* CAdUiDialog::newValue(LPCTSTR key) {
  return name_.IsEmpty() || key == nullptr ? nullptr : &unwritten_[toUtf8(key)];
}

std::optional<StateValue> CAdUiDialog::value(LPCTSTR key) const {
  if (name_.IsEmpty() || key == nullptr) return std::nullopt;
  const auto pending = unwritten_.find(toUtf8(key));
  if (pending != unwritten_.end()) return pending->second;
  const kovra::win::StateStore store(kovra::win::stateStoreFile(), kovra::win::kPlatformTable);
  return store.isOpen() ? store.get(toUtf8(name_.GetString()), toUtf8(key)) : std::nullopt;
}

BOOL CAdUiDialog::GetDialogData(LPCTSTR key, CString& text) const {
  const std::optional<StateValue> found = value(key);
  if (!found || !std::holds_alternative<std::string>(*found)) return FALSE;
  text = kovra::win::fromUtf8(std::get<std::string>(*found)).c_str();
  return TRUE;
}

BOOL CAdUiDialog::GetDialogData(LPCTSTR key, DWORD& number) const {
  const std::optional<StateValue> found = value(key);
  if (!found || !std::holds_alternative<int>(*found)) return FALSE;
  number = static_cast<DWORD>(std::get<int>(*found));
  return TRUE;
}

BOOL CAdUiDialog::SetDialogData(LPCTSTR key, LPCTSTR text) {
  StateValue* place = text != nullptr ? newValue(key) : nullptr;
  if (place != nullptr) *place = toUtf8(text);
  return place != nullptr;
}

BOOL CAdUiDialog::SetDialogData(LPCTSTR key, DWORD number) {
  StateValue* place = newValue(key);
  if (place != nullptr) *place = static_cast<int>(number);
  return place != nullptr;
}

BOOL CAdUiDialog::StorePixelData() {
  CRect place;
  if (name_.IsEmpty() || GetSafeHwnd() == nullptr) return FALSE;
  GetWindowRect(&place);
  const LONG numbers[] = {place.left, place.top, place.Width(), place.Height()};
  for (std::size_t i = 0; i < std::size(numbers); ++i)
    SetDialogData(kPlaceKeys[i], static_cast<DWORD>(numbers[i]));
  return TRUE;
}

BOOL CAdUiDialog::GetPixelData(CRect& place) const {
  LONG numbers[std::size(kPlaceKeys)] = {};
  for (std::size_t i = 0; i < std::size(numbers); ++i) {
    DWORD number = 0;
    if (!GetDialogData(kPlaceKeys[i], number)) return FALSE;
    numbers[i] = static_cast<LONG>(number);
  }
  place = CRect(numbers[0], numbers[1], numbers[0] + numbers[2], numbers[1] + numbers[3]);
  return TRUE;
}

void CAdUiDialog::OnShowWindow(BOOL show, UINT status) {
  CAdUiBaseDialog::OnShowWindow(show, status);
}

void CAdUiDialog::SetItemResizing(const DialogItemResize* items, int count) {
  layout_.start(*this, items, count);
}

void CAdUiDialog::OnSize(UINT type, int width, int height) {
  CAdUiBaseDialog::OnSize(type, width, height);
  if (type != SIZE_MINIMIZED) layout_.apply(*this, width, height);
}
