#include "module/drawing/system_variables.h"

#include <algorithm>

#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr int kByBlock = 0;
constexpr int kByLayer = 256;

/// A variable as it was read, with the text that the platform allocated for it.
class ReadVariable {
 public:
  explicit ReadVariable(const ACHAR* name) : read_(acedGetVar(name, &value_) == RTNORM) {
    if (!read_) TraceError(L"GetVar error acedGetVar [%s]", name);
  }
  ~ReadVariable() {
    if (read_ && value_.restype == RTSTR) acutDelString(value_.resval.rstring);
  }
  ReadVariable(const ReadVariable&) = delete;
  ReadVariable& operator=(const ReadVariable&) = delete;

  int result() const { return read_ ? 0 : -1; }
  const ACHAR* text() const {
    const bool has = read_ && value_.restype == RTSTR && value_.resval.rstring != nullptr;
    return has ? value_.resval.rstring : L"";
  }
  short integer() const {
    return read_ && value_.restype == RTSHORT ? value_.resval.rint : short{};
  }
  double real() const { return read_ && value_.restype == RTREAL ? value_.resval.rreal : 0.0; }

 private:
  resbuf value_ = {};
  bool read_;
};

int set(const ACHAR* name, resbuf& value) {
  if (acedSetVar(name, &value) == RTNORM) return 0;
  TraceError(L"GetVar error acedSetVar [%s]", name);
  return -1;
}

bool isColor(const ACHAR* name) {
  return _wcsicmp(name, L"CECOLOR") == 0;
}

int colorNumber(const ACHAR* text) {
  if (_wcsicmp(text, L"ByBlock") == 0) return kByBlock;
  if (_wcsicmp(text, L"ByLayer") == 0) return kByLayer;
  return _wtoi(text);
}

CString colorText(int number) {
  if (number == kByBlock) return CString(L"ByBlock");
  if (number == kByLayer) return CString(L"ByLayer");
  CString text;
  text.Format(L"%d", number);
  return text;
}

}  // namespace

int GetVar(const ACHAR* name, CString& text) {
  const ReadVariable variable(name);
  text = variable.text();
  return variable.result();
}

int GetVar(const ACHAR* name, int& value) {
  const ReadVariable variable(name);
  value = 0;
  if (variable.result() == 0) {
    value = isColor(name) ? colorNumber(variable.text()) : variable.integer();
  }
  return variable.result();
}

int GetVar(const ACHAR* name, double& value) {
  const ReadVariable variable(name);
  value = variable.real();
  return variable.result();
}

int GetVar(const ACHAR* name, ACHAR* buffer) {
  const ReadVariable variable(name);
  const std::wstring_view text = variable.text();
  *std::copy(text.begin(), text.end(), buffer) = ACHAR{};
  return variable.result();
}

int SetVar(const ACHAR* name, const ACHAR* text) {
  CString copy(text);
  resbuf value = {};
  value.restype = RTSTR;
  value.resval.rstring = copy.GetBuffer();
  return set(name, value);
}

int SetVar(const ACHAR* name, int value) {
  if (isColor(name)) return SetVar(name, colorText(value).GetString());
  resbuf number = {};
  number.restype = RTSHORT;
  number.resval.rint = static_cast<short>(value);
  return set(name, number);
}

int SetVar(const ACHAR* name, double value) {
  resbuf number = {};
  number.restype = RTREAL;
  number.resval.rreal = value;
  return set(name, number);
}

}  // namespace kovra
