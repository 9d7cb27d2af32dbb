#pragma once

#include "platform/win/base/windows_types.h"

/// List views: messages, notification codes, styles and records, with the numbers that the platform
/// gives them. messages.h brings them in.

inline constexpr const wchar_t* WC_LISTVIEW = L"SysListView32";

// What every common control tells its parent in WM_NOTIFY.
inline constexpr UINT NM_CLICK = static_cast<UINT>(-2);
inline constexpr UINT NM_DBLCLK = static_cast<UINT>(-3);
inline constexpr UINT NM_SETFOCUS = static_cast<UINT>(-7);
inline constexpr UINT NM_KILLFOCUS = static_cast<UINT>(-8);

struct NMHDR {
  HWND hwndFrom;
  UINT_PTR idFrom;
  UINT code;
};

inline constexpr DWORD LVS_REPORT = 0x0001;
inline constexpr DWORD LVS_TYPEMASK = 0x0003;
inline constexpr DWORD LVS_SINGLESEL = 0x0004;
inline constexpr DWORD LVS_SHOWSELALWAYS = 0x0008;
inline constexpr DWORD LVS_NOCOLUMNHEADER = 0x4000;
inline constexpr DWORD LVS_NOSORTHEADER = 0x8000;
inline constexpr DWORD LVS_EX_GRIDLINES = 0x0001;
inline constexpr DWORD LVS_EX_CHECKBOXES = 0x0004;
inline constexpr DWORD LVS_EX_FULLROWSELECT = 0x0020;

inline constexpr UINT LVM_GETITEMCOUNT = 0x1004;
inline constexpr UINT LVM_DELETEITEM = 0x1008;
inline constexpr UINT LVM_DELETEALLITEMS = 0x1009;
inline constexpr UINT LVM_GETNEXTITEM = 0x100C;
inline constexpr UINT LVM_GETITEMRECT = 0x100E;
inline constexpr UINT LVM_HITTEST = 0x1012;
inline constexpr UINT LVM_ENSUREVISIBLE = 0x1013;
inline constexpr UINT LVM_GETCOLUMNWIDTH = 0x101D;
inline constexpr UINT LVM_SETCOLUMNWIDTH = 0x101E;
inline constexpr UINT LVM_GETTOPINDEX = 0x1027;
inline constexpr UINT LVM_GETCOUNTPERPAGE = 0x1028;
inline constexpr UINT LVM_SETITEMSTATE = 0x102B;
inline constexpr UINT LVM_GETITEMSTATE = 0x102C;
inline constexpr UINT LVM_GETSELECTEDCOUNT = 0x1032;
inline constexpr UINT LVM_SETEXTENDEDLISTVIEWSTYLE = 0x1036;
inline constexpr UINT LVM_GETEXTENDEDLISTVIEWSTYLE = 0x1037;
inline constexpr UINT LVM_GETITEMW = 0x104B;
inline constexpr UINT LVM_SETITEMW = 0x104C;
inline constexpr UINT LVM_INSERTITEMW = 0x104D;
inline constexpr UINT LVM_INSERTCOLUMNW = 0x1061;
inline constexpr UINT LVM_GETITEMTEXTW = 0x1073;
inline constexpr UINT LVM_SETITEMTEXTW = 0x1074;
inline constexpr UINT LVM_GETITEM = LVM_GETITEMW;
inline constexpr UINT LVM_SETITEM = LVM_SETITEMW;
inline constexpr UINT LVM_INSERTITEM = LVM_INSERTITEMW;
inline constexpr UINT LVM_INSERTCOLUMN = LVM_INSERTCOLUMNW;
inline constexpr UINT LVM_GETITEMTEXT = LVM_GETITEMTEXTW;
inline constexpr UINT LVM_SETITEMTEXT = LVM_SETITEMTEXTW;

inline constexpr UINT LVN_ITEMCHANGING = static_cast<UINT>(-100);
inline constexpr UINT LVN_ITEMCHANGED = static_cast<UINT>(-101);
inline constexpr UINT LVN_INSERTITEM = static_cast<UINT>(-102);
inline constexpr UINT LVN_DELETEITEM = static_cast<UINT>(-103);
inline constexpr UINT LVN_DELETEALLITEMS = static_cast<UINT>(-104);
inline constexpr UINT LVN_KEYDOWN = static_cast<UINT>(-155);

// Which fields of a record count, and what they may hold.
inline constexpr UINT LVIF_TEXT = 0x0001;
inline constexpr UINT LVIF_PARAM = 0x0004;
inline constexpr UINT LVIF_STATE = 0x0008;
inline constexpr UINT LVIS_FOCUSED = 0x0001;
inline constexpr UINT LVIS_SELECTED = 0x0002;
inline constexpr UINT LVIS_STATEIMAGEMASK = 0xF000;
inline constexpr UINT LVCF_FMT = 0x0001;
inline constexpr UINT LVCF_WIDTH = 0x0002;
inline constexpr UINT LVCF_TEXT = 0x0004;
inline constexpr UINT LVCF_SUBITEM = 0x0008;
inline constexpr int LVCFMT_LEFT = 0;
inline constexpr int LVSCW_AUTOSIZE = -1;
inline constexpr int LVSCW_AUTOSIZE_USEHEADER = -2;
inline constexpr UINT LVNI_ALL = 0;
inline constexpr UINT LVNI_FOCUSED = 0x0001;
inline constexpr UINT LVNI_SELECTED = 0x0002;
inline constexpr UINT LVHT_NOWHERE = 0x0001;
inline constexpr UINT LVHT_ONITEMLABEL = 0x0004;
inline constexpr UINT LVHT_ONITEMSTATEICON = 0x0008;
inline constexpr int LVIR_BOUNDS = 0;
inline constexpr int LVIR_LABEL = 2;

/// The number of an image in the state bits; of check boxes 1 is off and 2 is on.
constexpr UINT INDEXTOSTATEIMAGEMASK(UINT image) {
  return image << 12;
}

struct LVITEMW {
  UINT mask;
  int iItem;
  int iSubItem;
  UINT state;
  UINT stateMask;
  LPWSTR pszText;
  int cchTextMax;
  int iImage;
  LPARAM lParam;
  int iIndent;
};
using LVITEM = LVITEMW;

struct LVCOLUMNW {
  UINT mask;
  int fmt;
  int cx;
  LPWSTR pszText;
  int cchTextMax;
  int iSubItem;
};
using LVCOLUMN = LVCOLUMNW;

struct LVHITTESTINFO {
  POINT pt;
  UINT flags;
  int iItem;
  int iSubItem;
};

struct NMLISTVIEW {
  NMHDR hdr;
  int iItem;
  int iSubItem;
  UINT uNewState;
  UINT uOldState;
  UINT uChanged;
  POINT ptAction;
  LPARAM lParam;
};
using LPNMLISTVIEW = NMLISTVIEW*;
using NM_LISTVIEW = NMLISTVIEW;

struct NMITEMACTIVATE {
  NMHDR hdr;
  int iItem;
  int iSubItem;
  UINT uNewState;
  UINT uOldState;
  UINT uChanged;
  POINT ptAction;
  LPARAM lParam;
  UINT uKeyFlags;
};
using LPNMITEMACTIVATE = NMITEMACTIVATE*;

struct NMLVKEYDOWN {
  NMHDR hdr;
  WORD wVKey;
  UINT flags;
};
