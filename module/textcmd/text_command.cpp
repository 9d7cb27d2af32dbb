#include "module/frame/commands.h"
#include "module/frame/gates.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kCommandNotBuilt = 3900;

}  // namespace

void TextCommand() {
  if (CurrentProjectAtLeast(L"7.00")) {
    RunText7Command();
    return;
  }
  ProjectMessage(kCommandNotBuilt);
}

}  // namespace kovra
