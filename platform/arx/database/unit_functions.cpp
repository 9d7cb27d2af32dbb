// The platform's number formatting, with the units of the working database.
#include <cwchar>
#include <string>

#include "platform/arx/base/result_codes.h"
#include "platform/arx/database/database.h"
#include "platform/arx/geometry/units.h"
#include "platform/dxf/structure.h"
#include "platform/win/base/wide_text.h"

namespace {

/// The longest text that fits into the callers' buffers, with its terminating zero.
constexpr std::size_t kBuffer = 64;

int variableOr(int given, std::string_view name, int without) {
  if (given >= 0) return given;
  const AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  if (database == nullptr || !database->hasDrawing()) return without;
  return static_cast<int>(database->structure().integerVariable(name).value_or(without));
}

int copyInto(const std::wstring& formatted, ACHAR* text) {
  if (formatted.empty() || text == nullptr) return RTERROR;
  const std::size_t length = formatted.copy(text, kBuffer - 1);
  text[length] = 0;
  return length == formatted.size() ? RTNORM : RTERROR;
}

}  // namespace

int acdbRToS(double value, int unit, int precision, ACHAR* text) {
  return copyInto(kovra::arx::formatLength(value, variableOr(unit, "$LUNITS", 2),
                                           variableOr(precision, "$LUPREC", 4)),
                  text);
}

int acdbAngToS(double angle, int unit, int precision, ACHAR* text) {
  return copyInto(kovra::arx::formatAngle(angle, variableOr(unit, "$AUNITS", 0),
                                          variableOr(precision, "$AUPREC", 0)),
                  text);
}

int acdbDisToF(const ACHAR* text, int /*unit*/, double* value) {
  if (text == nullptr || value == nullptr) return RTERROR;
  wchar_t* end = nullptr;
  const double number = _wcstod(text, &end);
  if (end == text) return RTERROR;
  while (*end == L' ') ++end;
  if (*end != 0) return RTERROR;
  *value = number;
  return RTNORM;
}
