#pragma once

#include <filesystem>

class AcDbDatabase;

namespace kovra::companions {

/// The database of a drawing file, one for all who ask for the same file; null if it can't be read.
/// Every call wants its releaseShared; the last one deletes the database.
AcDbDatabase* openShared(const std::filesystem::path& file);
void releaseShared(AcDbDatabase* database);

/// The database that openShared gave for this file and that isn't released yet, or null.
AcDbDatabase* findShared(const std::filesystem::path& file);
/// Whether openShared gave this database and it isn't released yet.
bool isShared(const AcDbDatabase& database);

}  // namespace kovra::companions
