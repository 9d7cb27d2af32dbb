#include "platform/arx/editor/documents/sysvars.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <unordered_map>

#include "platform/arx/database/database.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/documents/sysvar_table.h"
#include "platform/arx/editor/documents/view.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/geometry/typed_point.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

using VariableMap = std::map<std::wstring, VariableValue, std::less<>>;

VariableMap& programVariables() {
  static VariableMap variables;
  return variables;
}

const VariableRow* findRow(std::wstring_view name) {
  // Programs ask with the names as they stand in the table, again and again.
  static const std::unordered_map<std::wstring_view, const VariableRow*> rows = [] {
    std::unordered_map<std::wstring_view, const VariableRow*> byName;
    for (const VariableRow& row : variableRows()) byName.try_emplace(row.info.name, &row);
    return byName;
  }();
  if (const auto row = rows.find(name); row != rows.end()) return row->second;
  for (const VariableRow& row : variableRows())
    if (win::equalNoCase(row.info.name, name)) return &row;
  return nullptr;
}

bool isPoint(int type) {
  return type == RTPOINT || type == RT3DPOINT;
}

bool isInteger(int type) {
  return type == RTSHORT || type == RTLONG;
}

VariableValue standardValue(const VariableRow& row) {
  VariableValue value;
  value.type = row.info.type;
  value.real = row.standard;
  value.integer = isInteger(value.type) ? static_cast<int>(row.standard) : 0;
  value.text = row.standardText;
  if (isPoint(value.type)) value.point[0] = value.point[1] = row.standard;
  return value;
}

/// What the header says, in the variable's type; nothing for another kind of value.
std::optional<VariableValue> fromHeader(const HeaderValue& header, int type) {
  VariableValue value;
  value.type = type;
  if (const double* real = std::get_if<double>(&header)) {
    value.real = *real;
    value.integer = static_cast<int>(std::clamp(*real, -32768.0, 32767.0));
    if (isPoint(type) || type == RTSTR) return std::nullopt;
  } else if (const std::int64_t* integer = std::get_if<std::int64_t>(&header)) {
    value.integer = static_cast<int>(std::clamp<std::int64_t>(*integer, -0x8000, 0x7fffffff));
    value.real = static_cast<double>(*integer);
    if (isPoint(type) || type == RTSTR) return std::nullopt;
  } else if (const std::wstring* text = std::get_if<std::wstring>(&header)) {
    value.text = *text;
    if (type != RTSTR) return std::nullopt;
  } else if (const AcGePoint3d* point = std::get_if<AcGePoint3d>(&header)) {
    value.point[0] = point->x;
    value.point[1] = point->y;
    value.point[2] = point->z;
    if (!isPoint(type)) return std::nullopt;
  }
  return value;
}

HeaderValue toHeader(const VariableValue& value) {
  if (isInteger(value.type)) return std::int64_t{value.integer};
  if (value.type == RTREAL) return value.real;
  if (isPoint(value.type)) return AcGePoint3d(value.point[0], value.point[1], value.point[2]);
  return value.text;
}

/// What a variable of the document starts with: the viewport's setting, else the header's.
std::optional<VariableValue> initialValue(AcApDocument& document, const VariableRow& row) {
  if (std::optional<VariableValue> value = viewportSetting(document, row.info.name)) return value;
  if (row.header == nullptr) return std::nullopt;
  const std::optional<HeaderValue> header = document.database()->headerValue(row.header);
  return header ? fromHeader(*header, row.info.type) : std::nullopt;
}

VariableValue readStored(AcApDocument& document, const VariableRow& row) {
  const bool inHeader = row.info.home == VariableHome::kHeader;
  const VariableMap& session =
      row.info.home == VariableHome::kProgram ? programVariables() : document.session().variables;
  std::optional<VariableValue> value;
  if (inHeader) value = initialValue(document, row);
  if (const auto found = session.find(row.info.name); !value && found != session.end())
    value = found->second;
  if (!value && row.info.home == VariableHome::kDocument) value = initialValue(document, row);
  return value.value_or(standardValue(row));
}

void store(AcApDocument& document, const VariableRow& row, const VariableValue& value) {
  if (row.info.home == VariableHome::kProgram) {
    programVariables()[row.info.name] = value;
    return;
  }
  AcDbDatabase& database = *document.database();
  const bool inHeader = row.info.home == VariableHome::kHeader;
  const bool hasIt = inHeader && database.headerValue(row.header).has_value();
  const VariableValue standard = standardValue(row);
  const bool says = variableText(value) != variableText(standard);
  if (hasIt || (inHeader && row.addToHeader && says))
    database.setHeaderValue(row.header, toHeader(value));
  else
    document.session().variables[row.info.name] = value;
}

Error refused(std::string message) {
  return {ErrorKind::kInvalidInput, std::move(message)};
}

/// The value in the variable's type, where nothing is lost.
Result<VariableValue> converted(const VariableValue& value, int type) {
  VariableValue result = value;
  result.type = type;
  const bool same = value.type == type || (isInteger(type) && isInteger(value.type)) ||
                    (isPoint(type) && isPoint(value.type));
  if (same) return result;
  if (type == RTREAL && isInteger(value.type)) {
    result.real = value.integer;
    return result;
  }
  const bool wholeReal =
      value.type == RTREAL && value.real == std::round(value.real) && std::abs(value.real) <= 32767;
  if (isInteger(type) && wholeReal) {
    result.integer = static_cast<int>(value.real);
    return result;
  }
  return refused("Value of the wrong type");
}

std::wstring realText(double value) {
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  return std::wstring(buffer.data(), end);
}

Result<void> checkRange(const VariableRow& row, const VariableValue& value) {
  if (row.info.type != RTREAL && !isInteger(row.info.type)) return {};
  const double number = row.info.type == RTREAL ? value.real : value.integer;
  if (!std::isfinite(number)) return refused("Requires numeric value");
  if (row.above && number <= row.low) return refused("Value must be positive and nonzero");
  if (number >= row.low && number <= row.high) return {};
  if (row.high >= 1e300)
    return refused("Value must not be below " + win::toUtf8(realText(row.low)));
  return refused("Requires a number between " + win::toUtf8(realText(row.low)) + " and " +
                 win::toUtf8(realText(row.high)));
}

}  // namespace

const VariableInfo* findVariable(std::wstring_view name) {
  const VariableRow* row = findRow(name);
  return row != nullptr ? &row->info : nullptr;
}

Result<VariableValue> readVariable(AcApDocument& document, std::wstring_view name) {
  const VariableRow* row = findRow(name);
  if (row == nullptr)
    return Error{ErrorKind::kNotFound, "Unknown variable \"" + win::toUtf8(name) + "\""};
  return row->read != nullptr ? row->read(document) : readStored(document, *row);
}

Result<void> writeVariable(AcApDocument& document, std::wstring_view name,
                           const VariableValue& value) {
  const VariableRow* row = findRow(name);
  if (row == nullptr)
    return Error{ErrorKind::kNotFound, "Unknown variable \"" + win::toUtf8(name) + "\""};
  if (row->info.readOnly) return refused(win::toUtf8(row->info.name) + " is read-only");
  Result<VariableValue> fitting = converted(value, row->info.type);
  if (!fitting) return fitting.error();
  if (Result<void> inRange = checkRange(*row, fitting.value()); !inRange) return inRange;
  if (row->accept != nullptr)
    if (Result<void> accepted = row->accept(document, fitting.value()); !accepted) return accepted;
  store(document, *row, fitting.value());
  return {};
}

std::wstring variableText(const VariableValue& value) {
  if (value.type == RTSTR) return L"\"" + value.text + L"\"";
  if (value.type == RTREAL) return realText(value.real);
  if (isInteger(value.type)) return std::to_wstring(value.integer);
  std::wstring text = realText(value.point[0]) + L"," + realText(value.point[1]);
  if (value.type == RT3DPOINT) text += L"," + realText(value.point[2]);
  return text;
}

Result<VariableValue> parseVariable(int type, std::wstring_view typed) {
  VariableValue value;
  value.type = type;
  if (type == RTSTR) {
    if (typed.size() >= 2 && typed.front() == L'"' && typed.back() == L'"')
      typed = typed.substr(1, typed.size() - 2);
    value.text = typed;
    return value;
  }
  if (isPoint(type)) {
    const std::optional<TypedPoint> point = parsePoint(typed, AcGePoint3d());
    if (!point) return refused("Requires a point");
    for (unsigned i = 0; i < 3; ++i) value.point[i] = point->point[i];
    return value;
  }
  if (isInteger(type)) {
    const std::optional<int> integer = parseInteger(typed);
    if (!integer) return refused("Requires an integer value");
    value.integer = *integer;
    return value;
  }
  const std::optional<double> real = parseReal(typed);
  if (!real) return refused("Requires numeric value");
  value.real = *real;
  return value;
}

void setErrno(int value) {
  AcApDocument* document = DocumentList::instance().current();
  if (document == nullptr) return;
  VariableValue number;
  number.type = RTSHORT;
  number.integer = value;
  document->session().variables[L"ERRNO"] = number;
}

namespace {

/// False when there is no memory for a text.
bool fillBuffer(const VariableValue& value, resbuf& result) {
  result.restype = static_cast<short>(value.type);
  if (value.type == RTREAL) {
    result.resval.rreal = value.real;
  } else if (value.type == RTSHORT) {
    result.resval.rint = static_cast<short>(value.integer);
  } else if (value.type == RTLONG) {
    result.resval.rlong = value.integer;
  } else if (value.type == RTSTR) {
    return acutNewString(value.text.c_str(), result.resval.rstring) == RTNORM;
  } else {
    std::copy(value.point, value.point + 3, result.resval.rpoint);
  }
  return true;
}

std::optional<VariableValue> fromBuffer(const resbuf& buffer) {
  VariableValue value;
  value.type = buffer.restype;
  if (value.type == RTREAL) {
    value.real = buffer.resval.rreal;
  } else if (value.type == RTSHORT) {
    value.integer = buffer.resval.rint;
  } else if (value.type == RTLONG) {
    value.integer = buffer.resval.rlong;
  } else if (isPoint(value.type)) {
    std::copy(buffer.resval.rpoint, buffer.resval.rpoint + 3, value.point);
  } else if (value.type == RTSTR && buffer.resval.rstring != nullptr) {
    value.text = buffer.resval.rstring;
  } else {
    return std::nullopt;
  }
  return value;
}

}  // namespace
}  // namespace kovra::arx

int acedGetVar(const ACHAR* name, resbuf* result) {
  AcApDocument* document = kovra::arx::DocumentList::instance().current();
  if (document == nullptr || name == nullptr || result == nullptr) return RTERROR;
  const auto value = kovra::arx::readVariable(*document, name);
  if (!value) return RTERROR;
  result->rbnext = nullptr;
  return kovra::arx::fillBuffer(value.value(), *result) ? RTNORM : RTERROR;
}

int acedSetVar(const ACHAR* name, const resbuf* value) {
  AcApDocument* document = kovra::arx::DocumentList::instance().current();
  if (document == nullptr || name == nullptr || value == nullptr) return RTERROR;
  const auto given = kovra::arx::fromBuffer(*value);
  return given && kovra::arx::writeVariable(*document, name, *given) ? RTNORM : RTERROR;
}
