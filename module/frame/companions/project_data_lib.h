#pragma once

class AcApDocument;
class AcDbDatabase;

/// Non-zero when drawings of a project can be addressed.
int HasProjectContext();

/// The drawings that the project has chosen beforehand for this command.
int PresetDrawingCount();
/// Fills `buffer` of `size` characters with the absolute path. False for an index outside 0 to
/// PresetDrawingCount - 1, and for a path that is too long.
bool GetPresetDrawing(int index, wchar_t* buffer, int size);

/// The document that shows this file, or null.
AcApDocument* FindOpenDocument(const wchar_t* path);
/// A database already held for this file, or null; the caller doesn't own it.
AcDbDatabase* FindLoadedDatabase(const wchar_t* path);

/// Asks the user for drawing files. Null when nothing was chosen, else `count` absolute paths that
/// FreeFileList releases. The kinds in use are 16 and 3: existing drawing files, any number of
/// them.
wchar_t** ChooseDrawingFiles(int fileKind, int choiceKind, int& count);
/// Frees the list and sets it to null; null is left alone.
void FreeFileList(wchar_t*** files);
