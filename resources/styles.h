// The style bits that the dialog templates use, as the operating system defines them. A Windows
// resource compiler takes them from its own header.
#pragma once

#ifdef _WIN32
#include <commctrl.h>
#include <winresrc.h>
#else

#define IDOK 1
#define IDCANCEL 2

#define WS_POPUP 0x80000000
#define WS_CHILD 0x40000000
#define WS_CLIPCHILDREN 0x02000000
#define WS_CAPTION 0x00C00000
#define WS_BORDER 0x00800000
#define WS_VSCROLL 0x00200000
#define WS_SYSMENU 0x00080000
#define WS_THICKFRAME 0x00040000
#define WS_GROUP 0x00020000
#define WS_TABSTOP 0x00010000

#define DS_MODALFRAME 0x80
#define DS_CONTROL 0x0400
#define DS_SHELLFONT 0x48

#define BS_OWNERDRAW 0x000B
#define BS_ICON 0x0040

#define ES_MULTILINE 0x0004
#define ES_AUTOVSCROLL 0x0040
#define ES_AUTOHSCROLL 0x0080
#define ES_WANTRETURN 0x1000
#define ES_NUMBER 0x2000

#define CBS_DROPDOWN 0x0002
#define CBS_DROPDOWNLIST 0x0003
#define CBS_AUTOHSCROLL 0x0040
#define CBS_SORT 0x0100

#define WC_LISTVIEWW "SysListView32"
#define LVS_REPORT 0x0001
#define LVS_SINGLESEL 0x0004
#define LVS_SHOWSELALWAYS 0x0008
#define LVS_NOCOLUMNHEADER 0x4000
#define LVS_NOSORTHEADER 0x8000
#define WC_TABCONTROLW "SysTabControl32"
#define UDS_ARROWKEYS 0x0020

#endif
