#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Overrides a system variable with a 16-bit value and gives the former value back at the end of
/// its scope. Does nothing until Set.
class CAutoVar : public CObject {
 public:
  CAutoVar() = default;
  ~CAutoVar() override;
  CAutoVar(const CAutoVar&) = delete;
  CAutoVar& operator=(const CAutoVar&) = delete;

  /// @param name up to 63 characters
  void Set(const ACHAR* name, short value);

 private:
  void restore();

  ACHAR name_[64] = {};  // empty: nothing was saved
  resbuf saved_ = {};
};

}  // namespace kovra
