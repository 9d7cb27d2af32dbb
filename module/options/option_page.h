#pragma once

#include <memory>

#include "module/frame/companions/option_frame_lib.h"
#include "module/options/option_page_dialog.h"

namespace kovra {

/// The page of the tables that the text dialogs offer, as the option dialog sees it.
class OptionBase1 : public KovraOptionPage {
 public:
  explicit OptionBase1(const char* path) : KovraOptionPage(path) {}
  ~OptionBase1() override;

  bool CreatePage(CWnd* parent) override;
  bool IsPageCreated() override { return PageDialog != nullptr; }
  bool DestroyPage() override;
  HWND PageWindow() override;
  int ShowPage(int flag) override;
  void ApplyPage() override;
  void ReloadPage() override;
  bool ValidatePage() override;
  std::intptr_t PageInfo(int kind, int controlId) override;

 private:
  std::unique_ptr<COptionPage1> PageDialog;  // null until the frame asks for the page
};

}  // namespace kovra
