// Points, names and result buffers of the platform's C functions.
#pragma once
#include "platform/arx/base/adesk.h"
#include "platform/arx/base/error_status.h"
#include "platform/arx/base/result_codes.h"

using ads_real = double;
using ads_point = ads_real[3];
/// Names an entity or a selection set; both words 0 name nothing. An entity's second word is 0, a
/// selection set's is not.
using ads_name = Adesk::IntPtr[2];
using ads_matrix = ads_real[4][4];

struct ads_binary {
  short clen;
  char* buf;
};

union ads_u_val {
  ads_real rreal;
  ads_real rpoint[3];
  short rint;
  ACHAR* rstring;
  Adesk::IntPtr rlname[2];
  Adesk::Int32 rlong;
  Adesk::Int64 mnInt64;
  ads_binary rbinary;
};

/// One element of a list. The list owns its strings; acutRelRb releases both.
struct resbuf {
  resbuf* rbnext;
  short restype;
  ads_u_val resval;
};

inline constexpr int X = 0;
inline constexpr int Y = 1;
inline constexpr int Z = 2;

inline void ads_point_set(const ads_point from, ads_point to) {
  to[0] = from[0];
  to[1] = from[1];
  to[2] = from[2];
}
inline void ads_name_set(const ads_name from, ads_name to) {
  to[0] = from[0];
  to[1] = from[1];
}
inline void ads_name_clear(ads_name name) {
  name[0] = name[1] = 0;
}
inline bool ads_name_equal(const ads_name a, const ads_name b) {
  return a[0] == b[0] && a[1] == b[1];
}
inline bool ads_name_nil(const ads_name name) {
  return name[0] == 0 && name[1] == 0;
}

/// A new element of this type with a zero value and no successor, or null without memory.
resbuf* acutNewRb(int type);
/// Releases a list with its strings. Null is allowed. Returns RTNORM.
int acutRelRb(resbuf* list);
/// Builds a list from pairs of type and value, ended by 0 or RTNONE. Values by type: reals as
/// double, points as const ads_real*, 16- and 32-bit integers as int, texts as const ACHAR*
/// (copied), names as const ads_name. A type that is a group code takes the kind of value of that
/// code. Null without memory or on an unknown type; the caller releases the list with acutRelRb.
resbuf* acutBuildList(int type, ...);
/// Length of the list.
int acutCountRb(const resbuf* list);

/// A copy of the text, released with acutDelString; null without memory or for a null text.
int acutNewString(const ACHAR* text, ACHAR*& copy);
/// Releases a text that the platform gave, and clears the pointer. Null is allowed.
void acutDelString(ACHAR*& text);
/// Releases a buffer that the platform gave, and clears the pointer.
void acutDelBuffer(void*& buffer);
