#pragma once

#include <memory>

/// A text that DialogStateStore::GetString lends, until DialogStateStore::ReleaseString.
struct StateStringRef {
  const wchar_t* text = nullptr;
  void* storage = nullptr;
};

/// The current user's store of dialog state: sections of keys with integers and texts. Opened by
/// constructing it, closed by destroying it. What one object writes is one transaction: begun at
/// its first write and committed by its destructor, so that others see all of it or nothing. A
/// store that another program is writing is waited for, at most 5 seconds; then the operation
/// fails.
class DialogStateStore {
 public:
  DialogStateStore();
  ~DialogStateStore();
  DialogStateStore(const DialogStateStore&) = delete;
  DialogStateStore& operator=(const DialogStateStore&) = delete;

  /// Selects a section, also one that has no keys yet. A narrow name is UTF-8. False if the store
  /// can't be used or the name is null.
  bool OpenSection(const wchar_t* name);
  bool OpenSection(const char* name);

  /// False, with the argument left alone, for a missing key and for a key that holds the other
  /// type.
  bool GetInt(const wchar_t* key, int& value) const;
  bool GetString(const wchar_t* key, StateStringRef& text) const;
  /// Frees the text and clears the reference; an empty reference is left alone.
  static void ReleaseString(StateStringRef& text);

  /// False without a section, or if the store can't be written. A key takes the type last written.
  bool SetInt(const wchar_t* key, int value);
  bool SetString(const wchar_t* key, const wchar_t* text);

 private:
  struct Session;
  std::unique_ptr<Session> session_;
};
