#pragma once

class ProjectDrawing;
class ProjectDrawings;

/// Number of drawings; 0 for null.
int DrawingCount(ProjectDrawings* drawings);
/// True when the item stands for a drawing, whether its file exists or not.
bool IsDrawingValid(ProjectDrawing* drawing);
/// The absolute path of the file; the text is the item's.
bool GetDrawingPath(ProjectDrawing* drawing, const wchar_t*& path);
