#include "module/propedit/text_property_set_store.h"

#include <algorithm>
#include <cwchar>
#include <string>
#include <string_view>

#include "module/frame/gates.h"
#include "module/params/param_file.h"

namespace kovra {
namespace {

constexpr ACHAR kSetFile[] = L"EditTextProperty.ini";
constexpr std::wstring_view kSectionStart = L"Settings\\";
constexpr std::size_t kLongestSection = 256;

bool isSetSection(const ACHAR* section) {
  return _wcsnicmp(section, kSectionStart.data(), kSectionStart.size()) == 0;
}

/// Section of a set; empty for a name that none can have.
std::wstring sectionOf(const ACHAR* name) {
  if (name == nullptr || *name == ACHAR{}) return {};
  std::wstring section(kSectionStart);
  section += name;
  return section.size() <= kLongestSection ? section : std::wstring();
}

bool hasSection(const ConfigFile& file, const std::wstring& section) {
  ConfigSectionIterator sections(file);
  for (sections.First(); !sections.AtEnd(); sections.Next()) {
    if (_wcsicmp(sections.Name(), section.c_str()) == 0) return true;
  }
  return false;
}

/// Loads the project's file.
/// @param section null: none is selected
bool openFile(ConfigFile& file, const ACHAR* section, bool create) {
  ProjectHandle project;
  return FetchCurrentProject(project, true) &&
         OpenParamFileForEdit(file, project, kSetFile, section, create, false);
}

/// Opens the file on a set that it has.
bool openSet(ConfigFile& file, const ACHAR* name) {
  const std::wstring section = sectionOf(name);
  return !section.empty() && openFile(file, section.c_str(), false) && hasSection(file, section);
}

bool readText(const ConfigFile& file, const ACHAR* key, CString& text) {
  ConfigValueRef value;
  if (!file.ReadString(key, value)) return false;
  text = value.text;
  ConfigFile::ReleaseValue(value);
  return true;
}

void readNumber(const ConfigFile& file, const ACHAR* key, NumberText& number) {
  CString text;
  if (readText(file, key, text)) number.set(text.GetString());
}

void readSet(const ConfigFile& file, TextPropertySet& set) {
  readText(file, L"Layer", set.Layer);
  readText(file, L"TextStyle", set.TextStyle);
  readNumber(file, L"Height", set.Height);
  readNumber(file, L"WidthFactor", set.WidthFactor);
  readNumber(file, L"Rotation", set.Rotation);
  int number = 0;
  if (file.ReadInt(L"HorizontalMode", number)) set.takeHorizontalMode(number);
  if (file.ReadInt(L"VerticalMode", number)) set.takeVerticalMode(number);
  if (file.ReadInt(L"RefScale", number)) set.RefScale = number != 0;
  if (file.ReadInt(L"Mask", number)) set.Mask = static_cast<unsigned>(number);
}

bool writeSet(ConfigFile& file, const TextPropertySet& set) {
  return file.WriteString(L"Layer", set.Layer.GetString()) &&
         file.WriteString(L"TextStyle", set.TextStyle.GetString()) &&
         file.WriteString(L"Height", set.Height.text().GetString()) &&
         file.WriteString(L"WidthFactor", set.WidthFactor.text().GetString()) &&
         file.WriteString(L"Rotation", set.Rotation.text().GetString()) &&
         file.WriteInt(L"HorizontalMode", set.HorizontalMode) &&
         file.WriteInt(L"VerticalMode", set.VerticalMode) &&
         file.WriteInt(L"RefScale", set.RefScale ? 1 : 0) &&
         file.WriteInt(L"Mask", static_cast<int>(set.Mask));
}

}  // namespace

bool LoadTextPropertySet(TextPropertySet& set, const ACHAR* name) {
  ConfigFile file;
  if (!openSet(file, name)) return false;
  readSet(file, set);
  return true;
}

bool SaveTextPropertySet(const TextPropertySet& set, const ACHAR* name) {
  const std::wstring section = sectionOf(name);
  ConfigFile file;
  return !section.empty() && openFile(file, section.c_str(), true) && writeSet(file, set) &&
         file.Save();
}

bool DeleteTextPropertySet(const ACHAR* name) {
  ConfigFile file;
  return openSet(file, name) && file.RemoveSection() && file.Save();
}

bool ListTextPropertySets(TextList& names) {
  ConfigFile file;
  if (!openFile(file, nullptr, false)) return false;
  ConfigSectionIterator sections(file);
  for (sections.First(); !sections.AtEnd(); sections.Next()) {
    const ACHAR* section = sections.Name();
    // A set without a name couldn't be loaded.
    if (isSetSection(section) && section[kSectionStart.size()] != ACHAR{}) {
      TextListAdd(names, section + kSectionStart.size());
    }
  }
  return true;
}

}  // namespace kovra
