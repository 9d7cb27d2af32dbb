#include "module/textcmd/text_input.h"

#include <string>

#include "module/drawing/coordinates.h"
#include "module/drawing/group_list.h"
#include "module/drawing/system_variables.h"
#include "module/frame/narrow_text.h"

namespace kovra {
namespace {

constexpr const ACHAR* kRequestStart = L"_. ";
constexpr int kRequestStartLength = 3;

// The prompt in progress, for the callbacks; there is one at a time.
const AcApDocument* askedDocument = nullptr;
const ACHAR* offeredText = nullptr;
bool Offered = false;  // the text has been typed

void postCharacter(BYTE byte, LPARAM key) {
  PostMessageW(adsw_acadDocWnd(), WM_CHAR, byte, key);
}

/// How a key says that it was pressed once.
LPARAM keyOf(BYTE byte) {
  constexpr UINT kScanCodeShift = 16;
  const auto key = static_cast<UINT>(byte >= 'a' && byte <= 'z' ? byte - 'a' + 'A' : byte);
  return static_cast<LPARAM>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC) << kScanCodeShift) | 1;
}

/// Types a text into the command line, byte by byte of the thread's code page.
void typeText(const ACHAR* text) {
  const std::string bytes = NarrowText(text);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<BYTE>(bytes[i]);
    if (_ismbblead(byte) != 0 && i + 1 < bytes.size()) {
      postCharacter(byte, 1);
      postCharacter(static_cast<BYTE>(bytes[++i]), 1);
    } else {
      postCharacter(byte, keyOf(byte));
    }
  }
}

void pressEnd() {
  const LPARAM key = static_cast<LPARAM>(MapVirtualKeyW(VK_END, MAPVK_VK_TO_VSC)) << 16 | 1;
  PostMessageW(adsw_acadDocWnd(), WM_KEYDOWN, VK_END, key);
  PostMessageW(adsw_acadDocWnd(), WM_KEYUP, VK_END, key);
}

/// The entity at a pixel of the drawing window; false when there is none.
bool entityAt(POINT pixel, ads_name entity) {
  ads_point point = {};
  if (!acedCoordFromPixelToWorld(acedGetWinNum(pixel.x, pixel.y), pixel, point)) return false;
  WorldToUcs(point, point);
  ads_matrix matrix = {};
  resbuf* containers = nullptr;
  const int found = acedNEntSelP(nullptr, entity, point, 1, matrix, &containers);
  const GroupList released(containers);
  return found == RTNORM;
}

/// What a text stands for: its value, and the tag of an attribute definition.
CString valueOf(const AcDbText& text) {
  const auto* definition = AcDbAttributeDefinition::cast(&text);
  return definition != nullptr ? definition->tagConst() : text.textStringConst();
}

void typeTextAt(POINT pixel) {
  ads_name entity = {};
  AcDbObjectId id;
  if (!entityAt(pixel, entity) || acdbGetObjectId(id, entity) != Acad::eOk) return;
  AcDbText* text = nullptr;
  if (acdbOpenObject(text, id, AcDb::kForRead) != Acad::eOk) return;
  const CString value = valueOf(*text);
  text->close();
  pressEnd();
  typeText(value.GetString());
}

POINT pixelOf(LPARAM place) {
  const auto both = static_cast<DWORD>(place);
  return {static_cast<SHORT>(LOWORD(both)), static_cast<SHORT>(HIWORD(both))};
}

void watchInput(const MSG* message) {
  // Another document may have come to the front while the prompt waits.
  if (message->hwnd != adsw_acadDocWnd() || acDocManager->curDocument() != askedDocument) return;
  const UINT kind = message->message;
  // The last one is the tilted wheel, which older versions of the platform don't have.
  if (!Offered && kind >= WM_MOUSEFIRST && kind < WM_MOUSELAST) {
    Offered = true;
    typeText(offeredText);
  }
  if (kind == WM_LBUTTONDOWN) typeTextAt(pixelOf(message->lParam));
}

BOOL filterInput(MSG* message) {
  if (message->message != WM_LBUTTONDOWN && message->message != WM_LBUTTONDBLCLK) return FALSE;
  ACHAR className[32] = L"";
  GetClassNameW(message->hwnd, className, 32);
  return _wcsicmp(className, L"ToolbarWindow32") == 0 ? TRUE : FALSE;
}

/// Watch and filter for the time of a scope.
class InputHooks {
 public:
  InputHooks() {
    acedRegisterWatchWinMsg(watchInput);
    acedRegisterFilterWinMsg(filterInput);
  }
  ~InputHooks() {
    acedRemoveFilterWinMsg(filterInput);
    acedRemoveWatchWinMsg(watchInput);
  }
  InputHooks(const InputHooks&) = delete;
  InputHooks& operator=(const InputHooks&) = delete;
};

int readLine(const ACHAR* prompt, TextInput& text) {
  TextInput line = L"";
  const InputHooks hooks;
  const int result = acedGetString(1, prompt, line);
  if (result != RTNORM) return result;
  std::copy_n(line, kTextInputLength, text);
  const bool request = CompareStartNoCase(line, kRequestStart, kRequestStartLength) == 0;
  return request ? kDialogRequest : RTNORM;
}

}  // namespace

int CompareStartNoCase(const ACHAR* a, const ACHAR* b, int n) {
  return lstrcmpiW(CString(a).Left(n), CString(b).Left(n));
}

int ReadTextInput(const ACHAR* prompt, TextInput& text) {
  askedDocument = acDocManager->curDocument();
  offeredText = text;
  int snap = 0;
  GetVar(L"SNAPMODE", snap);
  SetVar(L"SNAPMODE", 0);
  Offered = false;
  const int result = readLine(prompt, text);
  SetVar(L"SNAPMODE", snap);
  return result;
}

}  // namespace kovra
