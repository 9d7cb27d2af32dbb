#include "module/frame/companions/project_tree_lib.h"

#include "companions/project_drawings.h"

int DrawingCount(ProjectDrawings* drawings) {
  return drawings ? static_cast<int>(drawings->count()) : 0;
}

bool IsDrawingValid(ProjectDrawing* drawing) {
  return drawing != nullptr;
}

bool GetDrawingPath(ProjectDrawing* drawing, const wchar_t*& path) {
  if (!drawing) return false;
  path = drawing->widePath().c_str();
  return true;
}
