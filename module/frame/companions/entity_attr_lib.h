#pragma once

class AcDbDatabase;
class AcDbText;

/// To be called on a text that is open for write, or outside any database, after its height,
/// position, alignment point or modes changed: brings its alignment up to date. `database` may be
/// null.
void NotifyEntityEdited(AcDbText* text, AcDbDatabase* database);
