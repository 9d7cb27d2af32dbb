#pragma once

class AcDbDatabase;
class ProjectDrawing;
class ProjectDrawings;

/// The drawings of the current project; null without one. Belongs to the project, like its items:
/// valid until another project is made current.
ProjectDrawings* CurrentDrawings();
/// Null for an index outside 0 to DrawingCount - 1.
ProjectDrawing* DrawingAt(ProjectDrawings* drawings, int index);
/// The item of a file, named by any path that leads to it. A file that the project does not list
/// has an item of its own, to be asked whether it may be written. Null for an empty path.
ProjectDrawing* DrawingByPath(ProjectDrawings* drawings, const wchar_t* path);
/// True when the drawing must not be written: the project blocks it, or its file can't be written.
bool IsDrawingBlocked(ProjectDrawing* drawing);

/// A database that is shared by all who ask for the same file; null if it can't be read. Each one
/// is given back with ReleaseSharedDatabase, never deleted.
AcDbDatabase* OpenSharedDatabase(const wchar_t* path);
void ReleaseSharedDatabase(AcDbDatabase* database);
