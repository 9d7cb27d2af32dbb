#include "module/drawing/auto_var.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace kovra {

CAutoVar::~CAutoVar() {
  restore();
}

void CAutoVar::Set(const ACHAR* name, short value) {
  restore();
  const std::wstring_view source = name;
  *std::copy_n(source.data(), std::min(source.size(), std::size(name_) - 1), name_) = ACHAR{};
  acedGetVar(name_, &saved_);
  resbuf override = {};
  override.restype = RTSHORT;
  override.resval.rint = value;
  acedSetVar(name_, &override);
}

void CAutoVar::restore() {
  if (name_[0] == ACHAR{}) return;
  acedSetVar(name_, &saved_);
  if (saved_.restype == RTSTR) acutDelString(saved_.resval.rstring);
  saved_ = {};
  name_[0] = ACHAR{};
}

}  // namespace kovra
