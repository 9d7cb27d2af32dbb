#include "platform/win/base/state_store.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/file.h>
#include <unistd.h>

#include <system_error>
#include <utility>

#include "platform/win/base/interaction.h"

namespace kovra::win {
namespace {

constexpr int kBusyMilliseconds = 5000;

std::string createTable(const std::string& table) {
  return "CREATE TABLE IF NOT EXISTS " + table +
         " (section TEXT NOT NULL, key TEXT NOT NULL,"
         " value NOT NULL CHECK (typeof(value) IN ('integer', 'text')),"
         " PRIMARY KEY (section, key)) WITHOUT ROWID";
}

bool isDamage(int code) {
  return (code & 0xFF) == SQLITE_NOTADB || (code & 0xFF) == SQLITE_CORRUPT;
}

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

Statement prepare(sqlite3* connection, const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(connection, sql.c_str(), -1, &statement, nullptr);
  return Statement(statement);
}

void bindText(sqlite3_stmt* statement, int position, const std::string& text) {
  sqlite3_bind_text64(statement, position, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

bool run(sqlite3* connection, const std::string& sql) {
  return sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

void tell(std::string_view text) {
  interaction().freshLine();
  interaction().print(text);
  interaction().freshLine();
}

// Keeps two programs from putting a store aside at the same time: the second one would move the new
// store of the first. Shared by those who connect: a file that is moved between its opening and its
// check would get the journal of the new store played back. Held on the folder, so that no file is
// left behind.
class FolderLock {
 public:
  FolderLock(const std::filesystem::path& folder, int operation)
      : descriptor_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    held_ = descriptor_ >= 0 && ::flock(descriptor_, operation) == 0;
  }
  ~FolderLock() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

  explicit operator bool() const { return held_; }

 private:
  int descriptor_;
  bool held_;
};

// The first of NAME.damaged, NAME.damaged-2 ... that doesn't exist.
std::filesystem::path freeName(const std::filesystem::path& file) {
  std::error_code error;
  std::filesystem::path name = file;
  name += ".damaged";
  for (int number = 2; std::filesystem::exists(name, error); ++number) {
    name = file;
    name += ".damaged-" + std::to_string(number);
  }
  return name;
}

// The files that SQLite keeps beside a database belong to it: a journal that stayed behind would be
// played back into the new one.
bool moveDatabase(const std::filesystem::path& from, const std::filesystem::path& to) {
  std::error_code error;
  for (const char* suffix : {"-journal", "-wal", "-shm"})
    std::filesystem::rename(from.native() + suffix, to.native() + suffix, error);
  std::filesystem::rename(from, to, error);
  return !error;
}

}  // namespace

void StateStore::Close::operator()(sqlite3* connection) const {
  sqlite3_close_v2(connection);
}

StateStore::StateStore(std::filesystem::path file, const char* table)
    : file_(std::move(file)), table_(table) {
  if (file_.empty()) return;
  std::error_code error;
  file_ = std::filesystem::absolute(file_, error);
  std::filesystem::create_directories(file_.parent_path(), error);
  const Health health = connectUndisturbed();
  if (health == Health::damaged) replaceDamaged();
  if (health == Health::unusable) tellUnusable();
}

StateStore::~StateStore() {
  if (phase_ == Phase::writing && !run(connection_.get(), "COMMIT")) abandonWriting();
}

StateStore::Health StateStore::connectUndisturbed() {
  const FolderLock lock(file_.parent_path(), LOCK_SH);
  return connect();
}

StateStore::Health StateStore::connect() {
  connection_.reset();
  sqlite3* opened = nullptr;
  const int code =
      sqlite3_open_v2(file_.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  Connection connection(opened);
  fault_ = sqlite3_errmsg(opened);
  if (code != SQLITE_OK) return isDamage(code) ? Health::damaged : Health::unusable;
  sqlite3_busy_timeout(opened, kBusyMilliseconds);
  const Statement check = prepare(opened, "PRAGMA quick_check(1)");
  const int result = check ? sqlite3_step(check.get()) : sqlite3_errcode(opened);
  fault_ = sqlite3_errmsg(opened);
  if (isDamage(result)) return Health::damaged;
  if (result != SQLITE_ROW) return Health::unusable;
  const auto* verdict = reinterpret_cast<const char*>(sqlite3_column_text(check.get(), 0));
  if (!verdict || std::string_view(verdict) != "ok") return Health::damaged;
  connection_ = std::move(connection);
  return Health::good;
}

void StateStore::replaceDamaged() {
  const FolderLock lock(file_.parent_path(), LOCK_EX);
  // Another program may have replaced it while this one waited for the lock.
  if (!lock || connect() != Health::damaged) return;
  const std::filesystem::path aside = freeName(file_);
  if (!moveDatabase(file_, aside)) return;
  tell("The dialog settings in " + file_.native() + " are damaged. The file was put aside as " +
       aside.native() + " and a new one begun.");
  connect();
}

// A command asks for the store several times.
void StateStore::tellUnusable() const {
  static std::filesystem::path told;
  if (told == file_) return;
  told = file_;
  tell("The dialog settings in " + file_.native() + " can't be used: " + fault_);
}

std::optional<StateValue> StateStore::get(const std::string& section,
                                          const std::string& key) const {
  const Statement query =
      prepare(connection_.get(), "SELECT value FROM " + table_ + " WHERE section = ? AND key = ?");
  if (!query) return std::nullopt;
  bindText(query.get(), 1, section);
  bindText(query.get(), 2, key);
  if (sqlite3_step(query.get()) != SQLITE_ROW) return std::nullopt;
  if (sqlite3_column_type(query.get(), 0) == SQLITE_INTEGER)
    return StateValue(sqlite3_column_int(query.get(), 0));
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(query.get(), 0));
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(query.get(), 0));
  return StateValue(std::string(text ? text : "", text ? size : 0));
}

bool StateStore::set(const std::string& section, const std::string& key, const StateValue& value) {
  if (!isOpen() || !beginWriting()) return false;
  const Statement statement =
      prepare(connection_.get(), "INSERT OR REPLACE INTO " + table_ + " VALUES (?, ?, ?)");
  if (!statement) return false;
  bindText(statement.get(), 1, section);
  bindText(statement.get(), 2, key);
  if (const int* number = std::get_if<int>(&value))
    sqlite3_bind_int(statement.get(), 3, *number);
  else
    bindText(statement.get(), 3, std::get<std::string>(value));
  return sqlite3_step(statement.get()) == SQLITE_DONE;
}

bool StateStore::beginWriting() {
  if (phase_ == Phase::reading) {
    const bool begun =
        run(connection_.get(), "BEGIN IMMEDIATE") && run(connection_.get(), createTable(table_));
    if (!begun) abandonWriting();
    phase_ = begun ? Phase::writing : Phase::failed;
  }
  // Some errors, a full disk among them, end the transaction by themselves.
  return phase_ == Phase::writing && sqlite3_get_autocommit(connection_.get()) == 0;
}

void StateStore::abandonWriting() {
  tell("The dialog settings could not be stored: " +
       std::string(sqlite3_errmsg(connection_.get())));
  run(connection_.get(), "ROLLBACK");
}

}  // namespace kovra::win
