#include "module/propcopy/drawing_access.h"

#include "module/frame/companions/command_glue_lib.h"
#include "module/frame/companions/project_data_lib.h"
#include "module/frame/companions/project_tools_lib.h"

namespace kovra {

DrawingAccess::DrawingAccess(const ACHAR* path) : document_(FindOpenDocument(path)) {
  if (document_ != nullptr) {
    database_ = document_->database();
  } else {
    take(path);
  }
}

DrawingAccess::~DrawingAccess() {
  if (shared_) ReleaseSharedDatabase(database_);
}

void DrawingAccess::take(const ACHAR* path) {
  if (IsSharedDatabaseMode()) {
    database_ = OpenSharedDatabase(path);
    shared_ = database_ != nullptr;
  } else {
    database_ = FindLoadedDatabase(path);
  }
  if (database_ == nullptr) read(path);
}

void DrawingAccess::read(const ACHAR* path) {
  constexpr int kReadShareAll = 3;
  read_ = std::make_unique<AcDbDatabase>(false, true);
  if (read_->readDwgFile(path, kReadShareAll, false, nullptr) == Acad::eOk) database_ = read_.get();
}

}  // namespace kovra
