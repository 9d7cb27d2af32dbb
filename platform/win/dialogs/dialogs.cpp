#include "platform/win/dialogs/dialogs.h"

#include <algorithm>

#include "platform/win/base/pump.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/resources/icons.h"
#include "platform/win/windows/focus.h"
#include "platform/win/windows/system_metrics.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

constexpr const wchar_t* kDialogClass = L"#32770";

/// The window's rectangle from the template's client area.
RECT outerPlace(const DialogTemplate& dialog, HWND parent, SIZE base) {
  RECT place = dialogUnitsToPixels(dialog.place, base);
  AdjustWindowRectEx(&place, dialog.style, FALSE, dialog.exStyle);
  if ((dialog.style & WS_CHILD) != 0) return place;
  const int width = widthOf(place);
  const int height = heightOf(place);
  // The template's place counts from the owner's client area.
  POINT corner{dialogUnitsToPixels(dialog.place, base).left,
               dialogUnitsToPixels(dialog.place, base).top};
  ClientToScreen(parent, &corner);
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  if ((dialog.style & DS_CENTER) != 0) {
    corner = {(work.left + work.right - width) / 2, (work.top + work.bottom - height) / 2};
  }
  corner.x = std::max(work.left, std::min(corner.x, work.right - width));
  corner.y = std::max(work.top, std::min(corner.y, work.bottom - height));
  return {corner.x, corner.y, corner.x + width, corner.y + height};
}

bool makeItem(HWND dialog, HINSTANCE module, const TemplateItem& item, SIZE base) {
  WindowSpec spec;
  spec.className = item.className;
  spec.text = item.text;
  spec.style = item.style | WS_CHILD;
  spec.exStyle = item.exStyle;
  spec.place = dialogUnitsToPixels(item.place, base);
  spec.parentOrOwner = dialog;
  spec.id = item.id;
  spec.instance = module;
  const HWND control = makeWindow(spec);
  if (control != nullptr && item.resourceId != 0) {
    SendMessageW(control, STM_SETICON,
                 reinterpret_cast<WPARAM>(LoadIconW(module, MAKEINTRESOURCEW(item.resourceId))), 0);
  }
  return control != nullptr;
}

/// The default button of the template, else OK.
int defaultButtonOf(const DialogTemplate& dialog) {
  for (const TemplateItem& item : dialog.items) {
    if (equalNoCase(item.className, L"BUTTON") && (item.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON) {
      return item.id;
    }
  }
  return IDOK;
}

void initialize(HWND dialog, LPARAM parameter) {
  const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
  const LRESULT wantsFocus =
      SendMessageW(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), parameter);
  if (wantsFocus == FALSE || !IsWindow(dialog) || hasStyle(dialog, DS_CONTROL)) return;
  const HWND target = GetNextDlgTabItem(dialog, nullptr, FALSE);
  if (target == nullptr) return;
  SetFocus(target);
  if ((SendMessageW(target, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0) {
    SendMessageW(target, EM_SETSEL, 0, -1);
  }
}

/// The control that gets the focus when the dialog becomes active.
HWND focusTargetOf(HWND dialog) {
  const auto* state = stateOf<DialogState>(dialog);
  if (state == nullptr) return nullptr;
  const HWND saved = state->savedFocus;
  if (isInside(dialog, saved) && IsWindowVisible(saved) && canTakeFocus(saved)) return saved;
  const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
  return first != nullptr ? first : dialog;
}

void onActivate(HWND dialog, bool active) {
  auto* state = stateOf<DialogState>(dialog);
  if (!active) {
    if (isInside(dialog, GetFocus())) state->savedFocus = GetFocus();
  } else if (!focusIsChosen()) {
    changeFocus(focusTargetOf(dialog));
  }
}

/// Presses Cancel as its key or the close box does, unless the dialog has disabled it.
void pressCancel(HWND dialog) {
  const HWND button = GetDlgItem(dialog, IDCANCEL);
  if (button != nullptr && !IsWindowEnabled(button)) return;
  SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
               reinterpret_cast<LPARAM>(button));
}

LRESULT onDefaultId(HWND dialog, UINT message, WPARAM wParam) {
  auto* state = stateOf<DialogState>(dialog);
  if (message == DM_SETDEFID) {
    state->defaultId = static_cast<int>(wParam);
    tellObservers(dialog, Change::content);
    return TRUE;
  }
  return state->defaultId != 0 ? static_cast<LRESULT>(MAKELONG(
                                     LOWORD(static_cast<UINT>(state->defaultId)), DC_HASDEFID))
                               : 0;
}

LRESULT defaultDialogMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ACTIVATE:
      onActivate(dialog, LOWORD(wParam) != WA_INACTIVE);
      return 0;
    case WM_SETFOCUS:
      changeFocus(focusTargetOf(dialog));
      return 0;
    case WM_CLOSE:
      PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                   reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDCANCEL)));
      return 0;
    case DM_GETDEFID:
    case DM_SETDEFID:
      return onDefaultId(dialog, message, wParam);
    default:
      return DefWindowProcW(dialog, message, wParam, lParam);
  }
}

std::unique_ptr<WindowState> makeDialogState() {
  return std::make_unique<DialogState>();
}

}  // namespace

const OwnWindowClass kOwnDialogClass({kDialogClass, DefDlgProcW, makeDialogState});

HWND makeDialog(HINSTANCE module, const DialogTemplate& dialog, HWND parent, DLGPROC procedure,
                LPARAM parameter, const std::function<void(HWND)>& attach) {
  const SIZE base = dialogBaseUnits(dialog.pointSize);
  WindowSpec spec;
  spec.className = kDialogClass;
  spec.text = dialog.title;
  spec.style = dialog.style & ~WS_VISIBLE;
  spec.exStyle = dialog.exStyle;
  spec.place = outerPlace(dialog, parent, base);
  spec.parentOrOwner = parent;
  spec.instance = module;
  const HWND handle = makeWindow(spec, [&](HWND made) {
    auto* state = stateOf<DialogState>(made);
    if (state == nullptr) return;
    state->procedure = procedure;
    state->templateId = dialog.id;
    state->baseUnits = base;
    state->corner = {spec.place.left, spec.place.top};
    state->defaultId = defaultButtonOf(dialog);
    if (attach) attach(made);
  });
  if (handle == nullptr) return nullptr;
  for (const TemplateItem& item : dialog.items) {
    if (makeItem(handle, module, item, base)) continue;
    DestroyWindow(handle);
    return nullptr;
  }
  initialize(handle, parameter);
  if ((dialog.style & WS_VISIBLE) != 0 && IsWindow(handle)) ShowWindow(handle, SW_SHOW);
  return IsWindow(handle) ? handle : nullptr;
}

void runModal(HWND dialog, const std::function<bool()>& done) {
  const auto over = [&] { return done() || !IsWindow(dialog); };
  Wait wait;
  wait.kind = WaitKind::modalDialog;
  wait.what = toUtf8(windowText(dialog));
  wait.cancel = [dialog] { pressCancel(dialog); };
  while (!Pump::instance().runUntil(over, wait)) {
    // Nobody is left who could end it.
    pressCancel(dialog);
    if (!over()) return;
  }
}

namespace {

void collectControls(HWND dialog, std::vector<HWND>& controls) {
  for (const HWND child : childrenOf(dialog)) {
    if (isDialog(child)) {
      collectControls(child, controls);
    } else {
      controls.push_back(child);
    }
  }
}

}  // namespace

std::vector<HWND> dialogControls(HWND dialog) {
  std::vector<HWND> controls;
  collectControls(dialog, controls);
  return controls;
}

bool isDialog(HWND window) {
  return stateOf<DialogState>(window) != nullptr;
}

unsigned templateOf(HWND dialog) {
  const auto* state = stateOf<DialogState>(dialog);
  return state != nullptr ? state->templateId : 0;
}

}  // namespace kovra::win

LRESULT DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  using namespace kovra::win;
  auto* state = stateOf<DialogState>(dialog);
  if (state == nullptr) return DefWindowProcW(dialog, message, wParam, lParam);
  state->result = 0;
  const DLGPROC procedure = state->procedure;
  const INT_PTR handled = procedure != nullptr ? procedure(dialog, message, wParam, lParam) : FALSE;
  if (message == WM_INITDIALOG) return handled;
  state = stateOf<DialogState>(dialog);
  if (state == nullptr) return 0;
  if (handled == FALSE) return defaultDialogMessage(dialog, message, wParam, lParam);
  return state->result;
}

BOOL MapDialogRect(HWND dialog, RECT* rect) {
  const auto* state = kovra::win::stateOf<kovra::win::DialogState>(dialog);
  if (state == nullptr || rect == nullptr) return FALSE;
  *rect = kovra::win::dialogUnitsToPixels(*rect, state->baseUnits);
  return TRUE;
}
