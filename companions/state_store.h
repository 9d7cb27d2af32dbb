#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace kovra::companions {

/// What a key of the store holds: an integer isn't a text.
using StateValue = std::variant<int, std::string>;

/// One connection to the dialog store, an SQLite file that several programs may use at once. All
/// its writes are one transaction, begun at the first and committed by the destructor. A busy store
/// is waited for, 5 s at most. A file that is no database, or a damaged one, is put aside under
/// another name, which the command line tells, and a new one begun.
class StateStore {
 public:
  explicit StateStore(std::filesystem::path file);
  ~StateStore();
  StateStore(const StateStore&) = delete;
  StateStore& operator=(const StateStore&) = delete;

  /// False: nothing can be read or written, which the command line told.
  bool isOpen() const { return connection_ != nullptr; }
  std::optional<StateValue> get(const std::string& section, const std::string& key) const;
  bool set(const std::string& section, const std::string& key, const StateValue& value);

 private:
  struct Close {
    void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
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
  Connection connection_;
  std::string fault_;  // the library's words for the last opening
  Phase phase_ = Phase::reading;
};

}  // namespace kovra::companions
