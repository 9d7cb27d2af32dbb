#pragma once

#include <cstdint>
#include <string>

#include "module/frame/seam.h"

class CWnd;

namespace kovra::companions {
class OptionDialog;
}

/// How a control of a page follows the page's size: by how many percent of the change these edges
/// of it move.
struct OptionPageSizing {
  int control;
  int edges;  ///< sum of 1 left, 2 top, 4 right, 8 bottom
  int percent;
};

/// A page of the product's option dialog. The constructor makes it known to the dialog, the
/// destructor takes it out again. The frame calls the operations; the page belongs to its library.
class KovraOptionPage {
 public:
  /// `path`: the page's place in the dialog's tree, parts between backslashes, in UTF-8;
  /// a text of the page's own library, which can't be unloaded while the page lives.
  explicit KovraOptionPage(const char* path);
  virtual ~KovraOptionPage();
  KovraOptionPage(const KovraOptionPage&) = delete;
  KovraOptionPage& operator=(const KovraOptionPage&) = delete;

  /// Makes the page's window inside the parent, unless it exists. True when it exists.
  virtual bool CreatePage(CWnd* parent) = 0;
  virtual bool IsPageCreated() = 0;
  virtual bool DestroyPage() = 0;
  virtual HWND PageWindow() = 0;
  /// Shows the page for a flag above 0, else hides it. Non-zero when it was visible before.
  virtual int ShowPage(int flag) = 0;
  /// Stores what the page holds.
  virtual void ApplyPage() = 0;
  /// Fills the page from what is stored.
  virtual void ReloadPage() = 0;
  /// False keeps the dialog open.
  virtual bool ValidatePage() = 0;
  /// Answers the frame's questions by kind: 3 the address of an OptionPageSizing, 4 the window of
  /// one of the page's controls. The base answers 0.
  virtual std::intptr_t PageInfo(int kind, int controlId);

  /// Tells the frame that the page holds changes. They are there until the frame applies or reloads
  /// the page; a page that can't store them says so again in ApplyPage, and the dialog stays open.
  void SetModified();
  bool IsModified() const { return modified_; }
  const std::string& Path() const { return path_; }

 private:
  friend class kovra::companions::OptionDialog;

  std::string path_;
  bool modified_ = false;
};
