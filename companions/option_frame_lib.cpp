#include "module/frame/companions/option_frame_lib.h"

#include <vector>

#include "companions/option_dialog.h"
#include "companions/option_pages.h"
#include "companions/text.h"
#include "module/frame/companions/string_res_lib.h"
#include "platform/mfc/cstring.h"
#include "platform/win/base/interaction.h"
#include "platform/win/resources/loader.h"

namespace {

struct Registered {
  KovraOptionPage* page;
  kovra::win::ModuleUse use;
};

std::vector<Registered>& registry() {
  static std::vector<Registered> pages;
  return pages;
}

}  // namespace

std::vector<KovraOptionPage*> kovra::companions::optionPages() {
  std::vector<KovraOptionPage*> pages;
  for (const Registered& registered : registry()) pages.push_back(registered.page);
  return pages;
}

std::wstring kovra::companions::optionText(UINT id) {
  CString text;
  text.LoadString(GetResourceModule(), id);
  return text.GetString();
}

// The page itself is only being constructed; the text of its path lies in the same library.
KovraOptionPage::KovraOptionPage(const char* path) : path_(path ? path : "") {
  registry().push_back({this, kovra::win::ModuleUse(kovra::win::moduleAt(path), "option page")});
}

KovraOptionPage::~KovraOptionPage() {
  std::erase_if(registry(), [&](const Registered& registered) { return registered.page == this; });
}

std::intptr_t KovraOptionPage::PageInfo(int /*kind*/, int /*controlId*/) {
  return 0;
}

void KovraOptionPage::SetModified() {
  modified_ = true;
  if (const HWND page = PageWindow(); page != nullptr)
    SendMessageW(GetParent(page), kovra::companions::kPageModifiedMessage, 0, 0);
}

void kovraShowOptions() {
  if (!registry().empty()) {
    kovra::companions::OptionDialog().DoModal();
    return;
  }
  constexpr UINT kNoPages = 3922;
  kovra::win::interaction().freshLine();
  kovra::win::interaction().print(
      kovra::companions::narrow(kovra::companions::optionText(kNoPages)) + "\n");
}
