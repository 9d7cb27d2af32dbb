#include "companions/shared_databases.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "companions/project_drawings.h"
#include "platform/arx/database/database.h"

namespace kovra::companions {
namespace {

struct SharedDatabase {
  std::filesystem::path identity;
  std::unique_ptr<AcDbDatabase> database;
  int uses = 0;
};

std::vector<SharedDatabase>& sharedDatabases() {
  static std::vector<SharedDatabase> databases;
  return databases;
}

SharedDatabase* find(const std::filesystem::path& file) {
  const std::filesystem::path identity = fileIdentity(file);
  const auto found = std::ranges::find(sharedDatabases(), identity, &SharedDatabase::identity);
  return found == sharedDatabases().end() ? nullptr : &*found;
}

auto find(const AcDbDatabase* database) {
  return std::ranges::find_if(sharedDatabases(), [database](const SharedDatabase& shared) {
    return shared.database.get() == database;
  });
}

}  // namespace

AcDbDatabase* openShared(const std::filesystem::path& file) {
  if (SharedDatabase* known = find(file)) {
    ++known->uses;
    return known->database.get();
  }
  auto database = std::make_unique<AcDbDatabase>(false, true);
  if (!database->open(file.native()).ok()) return nullptr;
  sharedDatabases().push_back({fileIdentity(file), std::move(database), 1});
  return sharedDatabases().back().database.get();
}

void releaseShared(AcDbDatabase* database) {
  const auto found = find(database);
  if (found != sharedDatabases().end() && --found->uses == 0) sharedDatabases().erase(found);
}

bool isShared(const AcDbDatabase& database) {
  return find(&database) != sharedDatabases().end();
}

AcDbDatabase* findShared(const std::filesystem::path& file) {
  const SharedDatabase* known = find(file);
  return known ? known->database.get() : nullptr;
}

}  // namespace kovra::companions
