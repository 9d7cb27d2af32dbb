#include <charconv>
#include <filesystem>
#include <optional>

#include "companions/ini_file.h"
#include "companions/text.h"
#include "companions/whole_file.h"
#include "module/frame/companions/project_lib.h"

using kovra::companions::IniFile;
using kovra::companions::narrow;
using kovra::companions::wide;

struct ConfigFile::Contents {
  std::filesystem::path file;         // empty: in memory only
  std::optional<std::string> stored;  // what the file held when it was loaded; none: it is new
  IniFile ini;
  std::string section;  // empty: none is selected
};

namespace {

// Other forms of text than UTF-8 and its kin can't be kept line by line.
bool isKeepable(const std::string& bytes) {
  return !bytes.starts_with("\xFF\xFE") && !bytes.starts_with("\xFE\xFF") &&
         bytes.find('\0') == std::string::npos;
}

bool isMissing(std::error_code error) {
  return error == std::errc::no_such_file_or_directory;
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
  const std::filesystem::path path = std::filesystem::path(folder_) / narrow(name);
  std::string bytes;
  if (kovra::companions::readWholeFile(path, bytes) || !isKeepable(bytes)) return false;
  file.contents_->file = path;
  file.contents_->ini = IniFile(bytes);
  file.contents_->stored = std::move(bytes);
  return true;
}

bool ParamFileRef::LoadOrCreate(ConfigFile& file, const wchar_t* name, unsigned /*flags*/,
                                int /*reserved*/) const {
  if (Load(file, name)) return true;
  if (!Exists() || !name || !*name) return false;
  const std::filesystem::path path = std::filesystem::path(folder_) / narrow(name);
  std::string bytes;
  if (!isMissing(kovra::companions::readWholeFile(path, bytes))) return false;
  file.contents_->file = path;
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
  return key && text && contents_->ini.set(contents_->section, narrow(key), narrow(text));
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
  return contents_->ini.removeSection(contents_->section);
}

bool ConfigFile::Save() {
  if (contents_->file.empty()) return false;
  std::string present;
  const std::error_code error = kovra::companions::readWholeFile(contents_->file, present);
  const bool unchangedOnDisk =
      contents_->stored ? !error && present == *contents_->stored : isMissing(error);
  if (!unchangedOnDisk) return false;
  std::string bytes = contents_->ini.bytes();
  if (contents_->stored == bytes) return true;
  if (kovra::companions::replaceWholeFile(contents_->file, bytes)) return false;
  contents_->stored = std::move(bytes);
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
