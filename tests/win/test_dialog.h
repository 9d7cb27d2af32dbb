#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/win/base/interaction.h"
#include "platform/win/base/pump.h"
#include "platform/win/controls/up_down.h"
#include "platform/win/desktop/desktop.h"
#include "platform/win/desktop/user_input.h"
#include "platform/win/dialogs/dialogs.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {

/// A control of a test dialog. Places follow each other downwards.
struct Item {
  int id;
  const wchar_t* className;
  DWORD style = 0;
  const wchar_t* text = L"";
};

constexpr DWORD kShown = WS_VISIBLE;
constexpr DWORD kTab = WS_VISIBLE | WS_TABSTOP;

inline DialogTemplate makeTemplate(const std::vector<Item>& items,
                                   DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU) {
  DialogTemplate dialog;
  dialog.id = 100;
  dialog.style = style;
  dialog.place = {10, 10, 210, 10 + 16 * static_cast<LONG>(items.size() + 1)};
  dialog.title = L"Test";
  LONG top = 4;
  for (const Item& item : items) {
    TemplateItem made;
    made.style = item.style;
    made.place = {4, top, 104, top + 12};
    made.id = item.id;
    made.className = item.className;
    made.text = item.text;
    dialog.items.push_back(made);
    top += 16;
  }
  return dialog;
}

/// Shows a dialog and writes down what it is told: "1931 EN_CHANGE".
class DialogTest : public testing::Test {
 protected:
  using Handler = std::function<void()>;

  void SetUp() override {
    current() = this;
    resetDesktop();
    interaction() = Interaction{};
  }
  void TearDown() override {
    resetDesktop();
    current() = nullptr;
  }

  HWND show(const std::vector<Item>& items) {
    dialog = makeDialog(nullptr, makeTemplate(items), frameWindow(), procedure, 0);
    ShowWindow(dialog, SW_SHOW);
    return dialog;
  }

  HWND control(int id) const { return GetDlgItem(dialog, id); }
  std::string text(int id) const { return narrow(windowText(control(id))); }

  /// What the dialog has been told since the last call.
  std::vector<std::string> told() { return std::exchange(log, {}); }

  /// Runs when the dialog is told this, before anything else happens.
  void when(const std::string& notification, Handler handler) {
    handlers[notification] = std::move(handler);
  }

  static std::string narrow(const std::wstring& wide) { return {wide.begin(), wide.end()}; }

  HWND dialog = nullptr;
  std::vector<std::string> log;
  std::map<std::string, Handler> handlers;
  /// Answers of the dialog to messages that aren't notifications.
  std::map<UINT, LRESULT> answers;

 private:
  static DialogTest*& current() {
    static DialogTest* test = nullptr;
    return test;
  }

  static std::string codeName(HWND control, UINT code) {
    static const std::map<std::pair<std::wstring, UINT>, std::string> names = {
        {{L"BUTTON", BN_CLICKED}, "BN_CLICKED"},
        {{L"EDIT", EN_SETFOCUS}, "EN_SETFOCUS"},
        {{L"EDIT", EN_KILLFOCUS}, "EN_KILLFOCUS"},
        {{L"EDIT", EN_CHANGE}, "EN_CHANGE"},
        {{L"EDIT", EN_UPDATE}, "EN_UPDATE"},
        {{L"EDIT", EN_MAXTEXT}, "EN_MAXTEXT"},
        {{L"COMBOBOX", CBN_SELCHANGE}, "CBN_SELCHANGE"},
        {{L"COMBOBOX", CBN_SETFOCUS}, "CBN_SETFOCUS"},
        {{L"COMBOBOX", CBN_KILLFOCUS}, "CBN_KILLFOCUS"},
        {{L"COMBOBOX", CBN_EDITCHANGE}, "CBN_EDITCHANGE"},
        {{L"COMBOBOX", CBN_EDITUPDATE}, "CBN_EDITUPDATE"},
        {{L"COMBOBOX", CBN_SELENDOK}, "CBN_SELENDOK"},
    };
    const auto found = names.find({classNameOf(control), code});
    return found != names.end() ? found->second : std::to_string(code);
  }

  void note(const std::string& what) {
    log.push_back(what);
    const auto handler = handlers.find(what);
    if (handler != handlers.end()) handler->second();
  }

  /// "50 changed 1 1000>2000" of a list view's row, "50 click 1".
  void noteRow(const NMLISTVIEW& record) {
    static const std::map<UINT, std::string> names = {
        {LVN_ITEMCHANGING, "changing"}, {LVN_ITEMCHANGED, "changed"}, {LVN_INSERTITEM, "insert"},
        {LVN_DELETEITEM, "delete"},     {LVN_KEYDOWN, "key"},         {NM_CLICK, "click"},
        {NM_DBLCLK, "double click"},    {NM_SETFOCUS, "focus"},       {NM_KILLFOCUS, "no focus"}};
    const auto name = names.find(record.hdr.code);
    if (name == names.end()) return;
    const UINT code = record.hdr.code;
    std::string what = std::to_string(record.hdr.idFrom) + " " + name->second;
    const bool ofRow = code != LVN_KEYDOWN && code != NM_SETFOCUS && code != NM_KILLFOCUS;
    if (ofRow) what += " " + std::to_string(record.iItem);
    if (code == LVN_ITEMCHANGING || code == LVN_ITEMCHANGED) {
      char states[32];
      std::snprintf(states, sizeof states, " %x>%x", record.uOldState, record.uNewState);
      what += states;
    }
    note(what);
  }

  INT_PTR onMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) return FALSE;
    if (message == WM_COMMAND) {
      note(std::to_string(LOWORD(wParam)) + " " +
           codeName(reinterpret_cast<HWND>(lParam), HIWORD(wParam)));
      return TRUE;
    }
    if (message == WM_NOTIFY) {
      const auto* step = reinterpret_cast<const NMUPDOWN*>(lParam);
      if (step->hdr.code == UDN_DELTAPOS) {
        note(std::to_string(wParam) + " at " + std::to_string(step->iPos) + " by " +
             std::to_string(step->iDelta));
      } else {
        noteRow(*reinterpret_cast<const NMLISTVIEW*>(lParam));
      }
    }
    if (message == WM_SHOWWINDOW) note(wParam != 0 ? "show" : "hide");
    if (message == WM_SIZE) note("size");
    if (message >= WM_USER + 100 && message < WM_USER + 200) {
      note("message " + std::to_string(message - WM_USER));
    }
    const auto answer = answers.find(message);
    if (answer == answers.end()) return FALSE;
    auto* state = stateOf<DialogState>(window);
    if (state != nullptr) state->result = answer->second;
    return TRUE;
  }

  static INT_PTR procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return current() != nullptr ? current()->onMessage(window, message, wParam, lParam) : FALSE;
  }
};

using Told = std::vector<std::string>;

}  // namespace kovra::win
