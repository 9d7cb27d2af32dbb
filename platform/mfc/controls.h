#pragma once

#include "platform/mfc/wnd.h"
#include "platform/win/controls/tab_messages.h"
#include "platform/win/controls/up_down.h"

class CButton : public CWnd {
 public:
  using CWnd::Create;
  BOOL Create(LPCWSTR caption, DWORD style, const RECT& rect, CWnd* parent, UINT id);
  int GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK)); }
  void SetCheck(int check) { SendMessage(BM_SETCHECK, static_cast<WPARAM>(check)); }
  UINT GetState() const { return static_cast<UINT>(SendMessage(BM_GETSTATE)); }
  void SetState(BOOL pressed) { SendMessage(BM_SETSTATE, static_cast<WPARAM>(pressed)); }
  UINT GetButtonStyle() const { return GetStyle() & 0xFFFF; }
  void SetButtonStyle(UINT style, BOOL redraw = TRUE) { SendMessage(BM_SETSTYLE, style, redraw); }
  HICON SetIcon(HICON icon);
  HICON GetIcon() const;

  /// An owner-drawn button paints itself here.
  virtual void DrawItem(LPDRAWITEMSTRUCT /*item*/) {}

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};

class CEdit : public CWnd {
 public:
  using CWnd::Create;
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
  void SetSel(int from, int to, BOOL /*noScroll*/ = FALSE) {
    SendMessage(EM_SETSEL, static_cast<WPARAM>(static_cast<LONG_PTR>(from)), to);
  }
  void SetSel(DWORD both) { SetSel(LOWORD(both), HIWORD(both)); }
  void GetSel(int& from, int& to) const;
  DWORD GetSel() const { return static_cast<DWORD>(SendMessage(EM_GETSEL)); }
  void ReplaceSel(LPCWSTR text, BOOL canUndo = FALSE) {
    SendMessage(EM_REPLACESEL, static_cast<WPARAM>(canUndo), reinterpret_cast<LPARAM>(text));
  }
  void SetLimitText(UINT limit) { SendMessage(EM_LIMITTEXT, limit); }
  void LimitText(int limit = 0) { SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(limit)); }
  UINT GetLimitText() const { return static_cast<UINT>(SendMessage(EM_GETLIMITTEXT)); }
  BOOL SetReadOnly(BOOL readOnly = TRUE) {
    return SendMessage(EM_SETREADONLY, static_cast<WPARAM>(readOnly)) != 0;
  }
  int GetLineCount() const { return static_cast<int>(SendMessage(EM_GETLINECOUNT)); }
  int LineIndex(int line = -1) const {
    return static_cast<int>(
        SendMessage(EM_LINEINDEX, static_cast<WPARAM>(static_cast<LONG_PTR>(line))));
  }
  int LineLength(int position = -1) const {
    return static_cast<int>(
        SendMessage(EM_LINELENGTH, static_cast<WPARAM>(static_cast<LONG_PTR>(position))));
  }
  BOOL GetModify() const { return SendMessage(EM_GETMODIFY) != 0; }
  void SetModify(BOOL modified = TRUE) { SendMessage(EM_SETMODIFY, static_cast<WPARAM>(modified)); }
  BOOL CanUndo() const { return SendMessage(EM_CANUNDO) != 0; }
  BOOL Undo() { return SendMessage(EM_UNDO) != 0; }
  void Clear() { SendMessage(WM_CLEAR); }
  void Copy() { SendMessage(WM_COPY); }
  void Cut() { SendMessage(WM_CUT); }
  void Paste() { SendMessage(WM_PASTE); }
};

class CComboBox : public CWnd {
 public:
  using CWnd::Create;
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
  int GetCount() const { return number(CB_GETCOUNT); }
  int GetCurSel() const { return number(CB_GETCURSEL); }
  int SetCurSel(int index) { return number(CB_SETCURSEL, index); }
  int AddString(LPCWSTR text) { return number(CB_ADDSTRING, 0, text); }
  int InsertString(int index, LPCWSTR text) { return number(CB_INSERTSTRING, index, text); }
  int DeleteString(UINT index) { return number(CB_DELETESTRING, static_cast<int>(index)); }
  void ResetContent() { SendMessage(CB_RESETCONTENT); }
  /// Empty when there is no such item.
  void GetLBText(int index, CString& text) const;
  int GetLBText(int index, LPWSTR buffer) const { return number(CB_GETLBTEXT, index, buffer); }
  int GetLBTextLen(int index) const { return number(CB_GETLBTEXTLEN, index); }
  int FindString(int after, LPCWSTR text) const { return number(CB_FINDSTRING, after, text); }
  int FindStringExact(int after, LPCWSTR text) const {
    return number(CB_FINDSTRINGEXACT, after, text);
  }
  int SelectString(int after, LPCWSTR text) { return number(CB_SELECTSTRING, after, text); }
  DWORD_PTR GetItemData(int index) const;
  int SetItemData(int index, DWORD_PTR data);
  DWORD GetEditSel() const { return static_cast<DWORD>(SendMessage(CB_GETEDITSEL)); }
  BOOL SetEditSel(int from, int to);
  BOOL LimitText(int limit) { return number(CB_LIMITTEXT, limit); }
  int SetItemHeight(int index, UINT height) {
    return static_cast<int>(SendMessage(CB_SETITEMHEIGHT,
                                        static_cast<WPARAM>(static_cast<LONG_PTR>(index)),
                                        static_cast<LPARAM>(height)));
  }
  int GetItemHeight(int index) const { return number(CB_GETITEMHEIGHT, index); }
  int SetDroppedWidth(UINT width) { return number(CB_SETDROPPEDWIDTH, static_cast<int>(width)); }
  void ShowDropDown(BOOL show = TRUE) { SendMessage(CB_SHOWDROPDOWN, static_cast<WPARAM>(show)); }

 private:
  int number(UINT message, int index = 0, LPCWSTR text = nullptr) const {
    return static_cast<int>(SendMessage(message, static_cast<WPARAM>(static_cast<LONG_PTR>(index)),
                                        reinterpret_cast<LPARAM>(text)));
  }
};

/// Tabs; the first one put in is selected. What is shown for a tab is the parent's to show.
class CTabCtrl : public CWnd {
 public:
  using CWnd::Create;
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
  /// The new tab's index, -1 when it failed.
  LONG InsertItem(int index, LPCWSTR text);
  LONG InsertItem(int index, const TCITEM* item) { return number(TCM_INSERTITEMW, index, item); }
  int GetItemCount() const { return number(TCM_GETITEMCOUNT); }
  int GetCurSel() const { return number(TCM_GETCURSEL); }
  /// The tab selected before; the parent isn't told.
  int SetCurSel(int index) { return number(TCM_SETCURSEL, index); }
  BOOL GetItem(int index, TCITEM* item) const { return number(TCM_GETITEMW, index, item); }
  BOOL SetItem(int index, const TCITEM* item) { return number(TCM_SETITEMW, index, item); }
  BOOL GetItemRect(int index, LPRECT rect) const { return number(TCM_GETITEMRECT, index, rect); }
  BOOL DeleteItem(int index) { return number(TCM_DELETEITEM, index); }
  BOOL DeleteAllItems() { return number(TCM_DELETEALLITEMS); }
  /// With `larger` from the part below the tabs to the whole control, else the other way.
  void AdjustRect(BOOL larger, LPRECT rect) const { number(TCM_ADJUSTRECT, larger, rect); }

 private:
  int number(UINT message, int index = 0, const void* data = nullptr) const {
    return static_cast<int>(SendMessage(message, static_cast<WPARAM>(static_cast<LONG_PTR>(index)),
                                        reinterpret_cast<LPARAM>(data)));
  }
};

class CStatic : public CWnd {
 public:
  using CWnd::Create;
  BOOL Create(LPCWSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id = 0xFFFF);
  HICON SetIcon(HICON icon);
  HICON GetIcon() const;
};

/// A list view in report form: rows of texts under columns, with a check box before each row when
/// the extended style LVS_EX_CHECKBOXES is set.
class CListCtrl : public CWnd {
 public:
  using CWnd::Create;
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
  /// The former style. SetExtendedStyle replaces all bits.
  DWORD SetExtendedStyle(DWORD style);
  DWORD GetExtendedStyle() const {
    return static_cast<DWORD>(SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE));
  }
  /// The column's index, -1 when it can't be. A width of -1 means none yet.
  int InsertColumn(int index, LPCWSTR heading, int format = LVCFMT_LEFT, int width = -1,
                   int subItem = -1);
  int InsertColumn(int index, const LVCOLUMNW* column);
  BOOL SetColumnWidth(int column, int width);
  int GetColumnWidth(int column) const;

  /// The row's index; an index behind the end means the end.
  int InsertItem(int index, LPCWSTR text);
  int InsertItem(const LVITEMW* item);
  int GetItemCount() const { return static_cast<int>(SendMessage(LVM_GETITEMCOUNT)); }
  BOOL DeleteItem(int row) { return SendMessage(LVM_DELETEITEM, wide(row)) != 0; }
  BOOL DeleteAllItems() { return SendMessage(LVM_DELETEALLITEMS) != 0; }
  BOOL SetItem(const LVITEMW* item);
  BOOL GetItem(LVITEMW* item) const;
  BOOL SetItemText(int row, int subItem, LPCWSTR text);
  CString GetItemText(int row, int subItem) const;
  int GetItemText(int row, int subItem, LPWSTR buffer, int capacity) const;
  BOOL SetItemState(int row, UINT state, UINT mask);
  UINT GetItemState(int row, UINT mask) const {
    return static_cast<UINT>(SendMessage(LVM_GETITEMSTATE, wide(row), mask));
  }
  DWORD_PTR GetItemData(int row) const;
  BOOL SetItemData(int row, DWORD_PTR data);
  /// Whether the row's box is checked; without check boxes it isn't.
  BOOL GetCheck(int row) const;
  BOOL SetCheck(int row, BOOL check = TRUE);
  /// The next row behind `after` (-1: from the first on) with these flags; -1 for none.
  int GetNextItem(int after, int flags) const {
    return static_cast<int>(SendMessage(LVM_GETNEXTITEM, wide(after), flags));
  }
  UINT GetSelectedCount() const { return static_cast<UINT>(SendMessage(LVM_GETSELECTEDCOUNT)); }
  int HitTest(LVHITTESTINFO* info) const;
  int HitTest(CPoint point, UINT* flags = nullptr) const;
  BOOL GetItemRect(int row, LPRECT rect, UINT part) const;
  BOOL EnsureVisible(int row, BOOL partialOk) {
    return SendMessage(LVM_ENSUREVISIBLE, wide(row), partialOk) != 0;
  }

 private:
  static WPARAM wide(int index) { return static_cast<WPARAM>(static_cast<LONG_PTR>(index)); }
};

class CSpinButtonCtrl : public CWnd {
 public:
  using CWnd::Create;
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
  /// The ends of the range; the upper one may be less.
  void SetRange(short lower, short upper);
  void SetRange32(int lower, int upper);
  void GetRange(int& lower, int& upper) const;
  void GetRange32(int& lower, int& upper) const { GetRange(lower, upper); }
  /// Give the former position.
  int SetPos(int position) { return static_cast<SHORT>(SendMessage(UDM_SETPOS, 0, position)); }
  int SetPos32(int position) { return static_cast<int>(SendMessage(UDM_SETPOS32, 0, position)); }
  int GetPos() const { return static_cast<int>(SendMessage(UDM_GETPOS)); }
  int GetPos32(BOOL* failed = nullptr) const {
    return static_cast<int>(SendMessage(UDM_GETPOS32, 0, reinterpret_cast<LPARAM>(failed)));
  }
  /// Gives the former buddy.
  CWnd* SetBuddy(CWnd* buddy);
  CWnd* GetBuddy() const;
};
