#include <charconv>
#include <filesystem>
#include <optional>

#include "companions/ini_file.h"
#include "companions/text.h"
#include "module/frame/companions/project_lib.h"
#include "platform/dxf/atomic_file.h"
#include "platform/dxf/file_bytes.h"

namespace dxf = kovra::dxf;
using kovra::companions::IniFile;
using kovra::companions::narrow;
using kovra::companions::wide;

struct ConfigFile::Contents {
  std::string file;                      // empty: in memory only
  std::optional<dxf::FileStamp> onDisk;  // of the file as it was loaded; none: it is new
  bool changed = false;
  IniFile ini;
  std::string section;  // empty: none is selected
};

namespace {

std::string pathIn(const std::string& folder, const wchar_t* name) {
  return (std::filesystem::path(folder) / narrow(name)).native();
}

bool isMissing(const std::string& file) {
  const auto stamp = dxf::stampOf(file);
  return !stamp && stamp.error().kind == kovra::ErrorKind::kNotFound;
}

}  // namespace

ParamFileRef::ParamFileRef() = default;
ParamFileRef::~ParamFileRef() = default;

bool ParamFileRef::Exists() const {
  std::error_code error;
  return !folder_.empty() && std::filesystem::is_directory(folder_, error);
}

bool ParamFileRef::Load(ConfigFile& file, const wchar_t* name) const {
  *file.contents_ = {};
  if (folder_.empty() || !name || !*name) return false;
  std::string path = pathIn(folder_, name);
  dxf::FileStamp stamp;
  const auto bytes = dxf::FileBytes::read(path, stamp);
  if (!bytes || !IniFile::isReadable(bytes.value().view())) return false;
  file.contents_->file = std::move(path);
  file.contents_->ini = IniFile(bytes.value().view());
  file.contents_->onDisk = stamp;
  return true;
}

bool ParamFileRef::LoadOrCreate(ConfigFile& file, const wchar_t* name, unsigned /*flags*/,
                                int /*reserved*/) const {
  if (Load(file, name)) return true;
  if (!Exists() || !name || !*name) return false;
  std::string path = pathIn(folder_, name);
  if (!isMissing(path)) return false;
  file.contents_->file = std::move(path);
  file.contents_->changed = true;
  return true;
}

ConfigFile::ConfigFile() : contents_(std::make_unique<Contents>()) {}
ConfigFile::~ConfigFile() = default;

bool ConfigFile::SelectSection(const wchar_t* name) {
  std::string section = narrow(name ? name : L"");
  if (!IniFile::isSectionName(section)) return false;
  contents_->section = std::move(section);
  return true;
}

bool ConfigFile::ReadString(const wchar_t* key, ConfigValueRef& value) const {
  value = {};
  if (!key) return false;
  const std::optional<std::string> text = contents_->ini.get(contents_->section, narrow(key));
  if (!text) return false;
  auto* storage = new std::wstring(wide(*text));
  value = {storage->c_str(), storage};
  return true;
}

void ConfigFile::ReleaseValue(ConfigValueRef& value) {
  delete static_cast<std::wstring*>(value.storage);
  value = {};
}

bool ConfigFile::WriteString(const wchar_t* key, const wchar_t* text) {
  if (!key || !text || !contents_->ini.set(contents_->section, narrow(key), narrow(text)))
    return false;
  contents_->changed = true;
  return true;
}

bool ConfigFile::ReadInt(const wchar_t* key, int& value) const {
  if (!key) return false;
  const std::optional<std::string> text = contents_->ini.get(contents_->section, narrow(key));
  if (!text) return false;
  const std::string_view digits = std::string_view(*text).substr(text->starts_with('+') ? 1 : 0);
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size()) return false;
  value = number;
  return true;
}

bool ConfigFile::WriteInt(const wchar_t* key, int value) {
  return WriteString(key, std::to_wstring(value).c_str());
}

bool ConfigFile::RemoveSection() {
  if (!contents_->ini.removeSection(contents_->section)) return false;
  contents_->changed = true;
  return true;
}

bool ConfigFile::Save() {
  if (contents_->file.empty()) return false;
  if (!contents_->changed) return true;
  if (contents_->onDisk) {
    const auto stamp = dxf::stampOf(contents_->file);
    if (!stamp || stamp.value() != *contents_->onDisk) return false;
  } else if (!isMissing(contents_->file)) {
    return false;
  }
  dxf::AtomicFile file;
  if (!file.open(contents_->file)) return false;
  file.append(contents_->ini.bytes());
  const auto written = file.commit(false);
  if (!written) return false;
  contents_->onDisk = written.value();
  contents_->changed = false;
  return true;
}

ConfigSectionIterator::ConfigSectionIterator(const ConfigFile& file) {
  for (const std::string& name : file.contents_->ini.sectionNames()) names_.push_back(wide(name));
}

ConfigSectionIterator::~ConfigSectionIterator() = default;

void ConfigSectionIterator::First() {
  position_ = 0;
}

void ConfigSectionIterator::Next() {
  if (!AtEnd()) ++position_;
}

bool ConfigSectionIterator::AtEnd() const {
  return position_ >= names_.size();
}

const wchar_t* ConfigSectionIterator::Name() const {
  return AtEnd() ? nullptr : names_[position_].c_str();
}
