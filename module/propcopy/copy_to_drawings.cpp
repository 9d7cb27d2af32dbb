#include "module/propcopy/copy_to_drawings.h"

#include "module/drawing/regenerate.h"
#include "module/frame/companions/reactor_tools_lib.h"
#include "module/frame/companions/ui_tools_lib.h"
#include "module/frame/reporting.h"
#include "module/propcopy/copy_result.h"
#include "module/propcopy/drawing_access.h"
#include "module/propcopy/property_writer.h"

namespace kovra {
namespace {

constexpr UINT kDrawingLeftOut = 2827;

/// Lets an open document be changed from outside its own command.
class DocumentEdit {
 public:
  explicit DocumentEdit(AcApDocument* document)
      : lock_(document->database(), AcAxDocLock::kMinimum), document_(document) {
    BeginDocumentEdit(document_);
  }
  ~DocumentEdit() { EndDocumentEdit(document_); }
  DocumentEdit(const DocumentEdit&) = delete;
  DocumentEdit& operator=(const DocumentEdit&) = delete;

 private:
  AcAxDocLock lock_;
  AcApDocument* document_;
};

int write(AcDbDatabase* database, const CopyJob& job) {
  return WriteDatabaseProperties(database, job.patterns, job.settingsAt(database->dimscale()));
}

int writeOpenDrawing(AcApDocument* document, const CopyJob& job) {
  const DocumentEdit edit(document);
  return write(document->database(), job);
}

int writeClosedDrawing(AcDbDatabase* database, const ACHAR* path, const CopyJob& job) {
  database->setRetainOriginalThumbnailBitmap(true);
  const int count = write(database, job);
  if (count > 0) SaveDatabase(database, path);
  return count;
}

/// @return number of changed objects; 0 or less for none
int writeDrawing(const ACHAR* path, const CopyJob& job, bool& currentIsWritten) {
  const DrawingAccess drawing(path);
  if (drawing.database() == nullptr) return 0;
  if (drawing.document() == nullptr) return writeClosedDrawing(drawing.database(), path, job);
  if (drawing.document() == acDocManagerPtr()->curDocument()) currentIsWritten = true;
  return writeOpenDrawing(drawing.document(), job);
}

}  // namespace

void CopyToDrawings(const CopyJob& job, const DrawingLists& lists) {
  for (const std::wstring& path : lists.skipped) {
    acutPrintf(L"%s", PrintfResourceText(kDrawingLeftOut, path.c_str()).GetString());
  }
  if (lists.drawings.empty()) return;
  int total = 0;
  bool currentIsWritten = false;
  for (const std::wstring& path : lists.drawings) {
    acutPrintf(L"\n[%s]", path.c_str());
    const int count = writeDrawing(path.c_str(), job, currentIsWritten);
    if (count > 0) total += count;
  }
  if (currentIsWritten) RegenerateDrawing();
  PrintObjectsChanged(total);
}

}  // namespace kovra
