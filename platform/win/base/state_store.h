#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "platform/win/base/state_value.h"

struct sqlite3;

namespace kovra::win {

/// The tables of the dialog store: of the product's dialogs, and of the platform's own functions.
inline constexpr const char* kProductTable = "dialog_state";
inline constexpr const char* kPlatformTable = "dialog_data";

/// One connection to a table of the dialog store, an SQLite file that several programs may use at
/// once. All its writes are one transaction, begun at the first and committed by the destructor. A
/// busy store is waited for, 5 s at most. A file that is no database, or a damaged one, is put
/// aside under another name, which the command line tells, and a new one begun.
class StateStore {
 public:
  explicit StateStore(std::filesystem::path file, const char* table = kProductTable);
  ~StateStore();
  StateStore(const StateStore&) = delete;
  StateStore& operator=(const StateStore&) = delete;

  /// False: nothing can be read or written, which the command line told.
  bool isOpen() const { return connection_ != nullptr; }
  std::optional<StateValue> get(const std::string& section, const std::string& key) const;
  bool set(const std::string& section, const std::string& key, const StateValue& value);

 private:
  struct Close {
    void operator()(sqlite3* connection) const;
  };
  using Connection = std::unique_ptr<sqlite3, Close>;
  enum class Health { good, damaged, unusable };
  enum class Phase { reading, writing, failed };  // failed: not tried, and waited for, again

  Health connect();
  Health connectUndisturbed();
  void replaceDamaged();
  void tellUnusable() const;
  bool beginWriting();
  void abandonWriting();

  std::filesystem::path file_;
  std::string table_;
  Connection connection_;
  std::string fault_;  // the library's words for the last opening
  Phase phase_ = Phase::reading;
};

}  // namespace kovra::win
