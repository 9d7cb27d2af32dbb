#include "module/frame/companions/dialog_state_lib.h"

#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "platform/win/base/run_settings.h"
#include "platform/win/base/state_store.h"
#include "platform/win/base/wide_text.h"

using kovra::win::fromUtf8;
using kovra::win::StateStore;
using kovra::win::StateValue;
using kovra::win::toUtf8;

struct DialogStateStore::Session {
  StateStore store{kovra::win::stateStoreFile()};
  std::optional<std::string> section;

  bool select(std::string name) {
    if (!store.isOpen()) return false;
    section = std::move(name);
    return true;
  }

  template <typename T>
  std::optional<T> get(const wchar_t* key) const {
    if (!section || !key) return std::nullopt;
    const std::optional<StateValue> value = store.get(*section, toUtf8(key));
    if (!value || !std::holds_alternative<T>(*value)) return std::nullopt;
    return std::get<T>(*value);
  }

  bool set(const wchar_t* key, const StateValue& value) {
    return section && key && store.set(*section, toUtf8(key), value);
  }
};

DialogStateStore::DialogStateStore() : session_(std::make_unique<Session>()) {}
DialogStateStore::~DialogStateStore() = default;

bool DialogStateStore::OpenSection(const wchar_t* name) {
  return name && session_->select(toUtf8(name));
}

bool DialogStateStore::OpenSection(const char* name) {
  return name && session_->select(name);
}

bool DialogStateStore::GetInt(const wchar_t* key, int& value) const {
  const std::optional<int> stored = session_->get<int>(key);
  if (stored) value = *stored;
  return stored.has_value();
}

bool DialogStateStore::GetString(const wchar_t* key, StateStringRef& text) const {
  text = {};
  const std::optional<std::string> stored = session_->get<std::string>(key);
  if (!stored) return false;
  auto* storage = new std::wstring(fromUtf8(*stored));
  text = {storage->c_str(), storage};
  return true;
}

void DialogStateStore::ReleaseString(StateStringRef& text) {
  delete static_cast<std::wstring*>(text.storage);
  text = {};
}

bool DialogStateStore::SetInt(const wchar_t* key, int value) {
  return session_->set(key, value);
}

bool DialogStateStore::SetString(const wchar_t* key, const wchar_t* text) {
  return text && session_->set(key, toUtf8(text));
}
