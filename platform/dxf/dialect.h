#pragma once

#include <string>

namespace kovra::dxf {

/// Release numbers as they stand behind "AC" in $ACADVER.
inline constexpr int kR12 = 1009;
inline constexpr int kR13 = 1012;
inline constexpr int kR14 = 1014;
inline constexpr int kR2000 = 1015;
inline constexpr int kR2004 = 1018;
inline constexpr int kR2007 = 1021;
inline constexpr int kR2010 = 1024;
inline constexpr int kR2013 = 1027;
inline constexpr int kR2018 = 1032;

/// How one drawing file is written; new groups and records follow it.
struct Dialect {
  int release = kR12;            ///< number of $ACADVER; kR12 when the file names none
  bool binary = false;           ///< binary DXF
  bool wideCodes = false;        ///< binary: group codes have two bytes (after R12)
  bool crlf = false;             ///< ASCII: the first line ends with CR LF
  bool paddedCodes = true;       ///< ASCII: the first code is right-aligned in three columns
  bool handles = false;          ///< records carry handles, so new ones get one
  bool owners = false;           ///< entities name their owner in group 330
  bool subclassMarkers = false;  ///< records are divided by groups 100
  std::string codePage;          ///< $DWGCODEPAGE as written; empty when missing

  /// Texts are UTF-8, whatever $DWGCODEPAGE says.
  bool utf8() const { return release >= kR2007; }
};

/// The number of a $ACADVER value: "AC1015" is 1015. Names older than R12 (such as "AC2.10") and
/// what is no release name give kR12.
int releaseNumber(const std::string& acadver);

}  // namespace kovra::dxf
