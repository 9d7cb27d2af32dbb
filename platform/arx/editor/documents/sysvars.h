#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/arx/base/ads.h"
#include "platform/dxf/result.h"

class AcApDocument;

namespace kovra::arx {

/// What a system variable holds, by its type.
struct VariableValue {
  int type = RTNONE;  ///< RTSHORT, RTLONG, RTREAL, RTSTR, RTPOINT or RT3DPOINT
  int integer = 0;
  double real = 0;
  double point[3] = {0, 0, 0};
  std::wstring text;
};

/// Where a variable lives: in the drawing's header (and so in its journal and its file), with the
/// open document, or with the program's run.
enum class VariableHome { kHeader, kDocument, kProgram };

struct VariableInfo {
  const wchar_t* name;
  int type;
  VariableHome home;
  bool readOnly;
};

/// Null for an unknown name; names are compared without regard to case.
const VariableInfo* findVariable(std::wstring_view name);
Result<VariableValue> readVariable(AcApDocument& document, std::wstring_view name);
/// The error is what the command line shows.
Result<void> writeVariable(AcApDocument& document, std::wstring_view name,
                           const VariableValue& value);
/// As SETVAR and `@show` print it: texts in quotes, points with commas.
std::wstring variableText(const VariableValue& value);
/// Reads what a user typed for a variable of this type.
Result<VariableValue> parseVariable(int type, std::wstring_view typed);

/// The document's ERRNO, as the last prompt left it.
void setErrno(int value);

}  // namespace kovra::arx
