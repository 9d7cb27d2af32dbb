// Enumerations of database classes.
#pragma once

namespace AcDb {
enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };
enum Visibility { kVisible = 0, kInvisible = 1 };
/// Group 72 of texts.
enum TextHorzMode {
  kTextLeft = 0,
  kTextCenter = 1,
  kTextRight = 2,
  kTextAlign = 3,
  kTextMid = 4,
  kTextFit = 5,
};
/// Group 73 of TEXT, group 74 of ATTRIB and ATTDEF.
enum TextVertMode { kTextBase = 0, kTextBottom = 1, kTextVertMid = 2, kTextTop = 3 };
enum LineWeight { kLnWt000 = 0, kLnWtByLayer = -1, kLnWtByBlock = -2, kLnWtByLwDefault = -3 };
}  // namespace AcDb
