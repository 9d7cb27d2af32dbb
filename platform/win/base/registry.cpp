#include "platform/win/base/registry.h"

#include <cstring>
#include <map>
#include <memory>
#include <string>

#include "platform/win/base/file_bytes.h"
#include "platform/win/base/registry_file.h"
#include "platform/win/base/run_settings.h"

namespace {

using kovra::win::RegistryFile;

/// What an open key refers to.
struct OpenKey {
  std::shared_ptr<const RegistryFile> file;
  std::wstring path;
};

std::map<HKEY, OpenKey>& openKeys() {
  static std::map<HKEY, OpenKey> keys;
  return keys;
}

/// The roots that stand in a registry file; null for a key that isn't a root.
const wchar_t* rootName(HKEY key) {
  if (key == HKEY_LOCAL_MACHINE) return L"HKEY_LOCAL_MACHINE";
  if (key == HKEY_CURRENT_USER) return L"HKEY_CURRENT_USER";
  if (key == HKEY_CLASSES_ROOT) return L"HKEY_CLASSES_ROOT";
  return nullptr;
}

std::shared_ptr<const RegistryFile> readFile() {
  const auto bytes = kovra::win::readFileBytes(kovra::win::runSettings().registry);
  return std::make_shared<const RegistryFile>(RegistryFile::parse(bytes.value_or("")));
}

bool locate(HKEY parent, OpenKey& key) {
  if (const wchar_t* root = rootName(parent)) {
    key = {readFile(), root};
    return true;
  }
  const auto found = openKeys().find(parent);
  if (found == openKeys().end()) return false;
  key = found->second;
  return true;
}

HKEY newHandle() {
  static std::uintptr_t last = 0;
  last += 4;
  return reinterpret_cast<HKEY>(last);
}

}  // namespace

LSTATUS RegOpenKeyExW(HKEY parent, LPCWSTR name, DWORD /*options*/, REGSAM /*rights*/, HKEY* key) {
  if (key == nullptr) return ERROR_INVALID_PARAMETER;
  OpenKey opened;
  if (!locate(parent, opened)) return ERROR_INVALID_HANDLE;
  if (name != nullptr && *name != 0) opened.path += std::wstring(L"\\") + name;
  if (!opened.file->hasKey(opened.path)) return ERROR_FILE_NOT_FOUND;
  *key = newHandle();
  openKeys()[*key] = std::move(opened);
  return ERROR_SUCCESS;
}

LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, DWORD* /*reserved*/, DWORD* type, BYTE* data,
                         DWORD* size) {
  OpenKey opened;
  if (!locate(key, opened)) return ERROR_INVALID_HANDLE;
  if (data != nullptr && size == nullptr) return ERROR_INVALID_PARAMETER;
  const auto* value = opened.file->value(opened.path, name != nullptr ? name : L"");
  if (value == nullptr) return ERROR_FILE_NOT_FOUND;
  if (type != nullptr) *type = value->type;
  if (size == nullptr) return ERROR_SUCCESS;
  const DWORD capacity = *size;
  *size = static_cast<DWORD>(value->data.size());
  if (data == nullptr) return ERROR_SUCCESS;
  if (capacity < *size) return ERROR_MORE_DATA;
  if (*size > 0) std::memcpy(data, value->data.data(), *size);
  return ERROR_SUCCESS;
}

LSTATUS RegCloseKey(HKEY key) {
  if (rootName(key) != nullptr) return ERROR_SUCCESS;
  return openKeys().erase(key) == 1 ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}
