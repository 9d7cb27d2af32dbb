#pragma once

#include <memory>
#include <string>
#include <vector>

/// A version such as "7.00" or "10.0": whole numbers between dots, compared number by number.
/// Missing numbers count as 0, so "7", "7.0" and "7.00" are equal. An empty version, or one made
/// from a text that is no version, is below every other.
class DataVersion {
 public:
  DataVersion();
  explicit DataVersion(const char* text);
  explicit DataVersion(const wchar_t* text);
  DataVersion(const DataVersion&);
  DataVersion& operator=(const DataVersion&);
  ~DataVersion();

  bool operator>=(const DataVersion& other) const;
  bool operator<(const DataVersion& other) const;

 private:
  std::vector<unsigned long long> parts_;
};

/// What is known of one project. Belongs to its ProjectHandle.
class ProjectInfo {
 public:
  /// Reads the project's data version. False if the handle isn't open or the project states none
  /// that can be read; `version` is then left alone.
  bool GetDataVersion(DataVersion& version) const;

 private:
  friend class ProjectHandle;
  friend class ProjectManager;
  struct Binding;
  std::shared_ptr<const Binding> binding_;
};

class ParamFileRef;

/// A value that refers to one project, or to none. It is open from the moment it is bound until
/// that project is closed or another one becomes current; then it stays closed until it is bound
/// anew.
class ProjectHandle {
 public:
  ProjectHandle();
  ProjectHandle(const ProjectHandle&);
  ProjectHandle& operator=(const ProjectHandle&);
  ~ProjectHandle();

  bool IsOpen() const;
  const ProjectInfo& Info() const { return info_; }

  /// Finds where the project keeps its parameter files. False if the handle isn't open.
  bool ResolveParamFile(ParamFileRef& file) const;

 private:
  friend class ProjectManager;
  ProjectInfo info_;
};

/// The process's one manager of projects.
class ProjectManager {
 public:
  static ProjectManager& Instance();
  ProjectManager(const ProjectManager&) = delete;
  ProjectManager& operator=(const ProjectManager&) = delete;

  bool HasCurrentProject() const;
  /// Binds the handle to the current project. False without one, or if the project can't be
  /// reached; the handle is then not open.
  bool GetCurrentProject(ProjectHandle& handle);

 private:
  ProjectManager();
};

class ConfigFile;

/// The place where a project keeps its parameter files, once ProjectHandle::ResolveParamFile has
/// filled it.
class ParamFileRef {
 public:
  ParamFileRef();
  ~ParamFileRef();

  /// The resolved place exists.
  bool Exists() const;
  /// Loads the named file. False if it is missing, unreadable or no text file; `file` is then
  /// empty.
  bool Load(ConfigFile& file, const wchar_t* name) const;
  /// Like Load, but a missing file gives an empty one that ConfigFile::Save creates. A file that is
  /// there and can't be loaded is never replaced: false. The numbers are reserved.
  bool LoadOrCreate(ConfigFile& file, const wchar_t* name, unsigned flags, int reserved) const;

 private:
  friend class ProjectHandle;
  std::string folder_;
};

/// A value that ConfigFile::ReadString lends, until ConfigFile::ReleaseValue.
struct ConfigValueRef {
  const wchar_t* text = nullptr;
  void* storage = nullptr;
};

/// A file of sections with lines "key=value", held in memory; one section is selected at a time.
/// Sections and keys are found without regard to case; of several equal ones the first counts.
/// Values lose the blanks at their ends; quotes are content. What isn't changed keeps its very
/// bytes.
class ConfigFile {
 public:
  ConfigFile();
  ~ConfigFile();
  ConfigFile(const ConfigFile&) = delete;
  ConfigFile& operator=(const ConfigFile&) = delete;

  /// Makes a section current, also one that the file doesn't have yet: the first write creates it.
  /// False for a name that a file can't keep (empty, with "]" or a line break, with blanks at an
  /// end).
  bool SelectSection(const wchar_t* name);

  /// False for a missing key. The value is the caller's until it calls ReleaseValue.
  bool ReadString(const wchar_t* key, ConfigValueRef& value) const;
  /// Frees the value and clears the reference; an empty reference is left alone.
  static void ReleaseValue(ConfigValueRef& value);
  /// False without a selected section, and for a key or text that a line can't keep.
  bool WriteString(const wchar_t* key, const wchar_t* text);

  /// False for a missing key and for a text that isn't a decimal number of 32 bits.
  bool ReadInt(const wchar_t* key, int& value) const;
  bool WriteInt(const wchar_t* key, int value);

  /// Removes the selected section. False if the file has none of this name.
  bool RemoveSection();

  /// Writes the file as a whole or not at all. False, with the file on disk left as it is, if it
  /// can't be written or was changed by someone else since it was loaded.
  bool Save();

 private:
  friend class ParamFileRef;
  friend class ConfigSectionIterator;
  struct Contents;
  std::unique_ptr<Contents> contents_;
};

/// Walks the sections of a ConfigFile in file order, each name once. The file must outlive it and
/// mustn't lose sections meanwhile.
class ConfigSectionIterator {
 public:
  explicit ConfigSectionIterator(const ConfigFile& file);
  ~ConfigSectionIterator();
  ConfigSectionIterator(const ConfigSectionIterator&) = delete;
  ConfigSectionIterator& operator=(const ConfigSectionIterator&) = delete;

  void First();
  void Next();
  /// No section is at hand.
  bool AtEnd() const;
  /// The full name, the iterator's own; null at the end.
  const wchar_t* Name() const;

 private:
  std::vector<std::wstring> names_;
  std::size_t position_ = 0;
};
