#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kovra::companions {

/// A text file of sections "[name]" with lines "key=value", in memory, byte for byte: whatever
/// isn't changed through set() or removeSection() comes back as it was read - comments, blank and
/// unknown lines, order, line ends, a UTF-8 mark, bytes that aren't UTF-8.
///
/// Section names and keys are found without regard to case; of several equal ones the first counts.
/// Names, keys and values lose blanks and tabs at both ends; quotes are content. Lines that begin
/// with ";" or "#" are comments. Lines end with CR LF, LF or CR.
class IniFile {
 public:
  IniFile() = default;
  explicit IniFile(std::string_view bytes);

  std::string bytes() const;

  /// In file order, each name once, spelled as where it first stands.
  std::vector<std::string> sectionNames() const;
  bool hasSection(std::string_view section) const;
  std::optional<std::string> get(std::string_view section, std::string_view key) const;
  /// The keys of a section with their values in file order, each key once.
  std::vector<std::pair<std::string, std::string>> entries(std::string_view section) const;

  /// Sets a value; a missing section or key is added, the key behind the last one of its section.
  /// An equal value leaves the bytes alone. False, with nothing changed, for what a line can't
  /// keep.
  bool set(std::string_view section, std::string_view key, std::string_view value);

  /// Removes the section with all its lines, and further ones of the same name. Comments that stand
  /// directly above the next section belong to that and stay. False if there is none.
  bool removeSection(std::string_view section);

  /// False for UTF-16 and for bytes with a NUL: such a text can't be read or kept line by line.
  static bool isReadable(std::string_view bytes);

  /// Not empty, without line breaks, without blanks at its ends, and a section's line can hold it:
  /// of names with "]" those can't that have ";" or "#" right behind the first "]".
  static bool isSectionName(std::string_view name);

 private:
  enum class Kind { other, comment, section, entry };
  struct Line {
    std::string text;
    std::string end;  // its line end; empty at most in the last line
    Kind kind = Kind::other;
    std::string folded;  // the section's name or the key, in folded case
    std::size_t valueBegin = 0;
    std::size_t valueLength = 0;

    std::string_view name() const;
    std::string_view value() const;
  };
  /// A section's own line with those below it; the lines above all sections are one without a name.
  struct Section {
    std::string folded;
    std::vector<Line> lines;
    std::unordered_map<std::string, std::size_t> entries;  // the first line of each key
    std::size_t end = 0;                                   // behind the last key, else the own line

    void add(Line line);
    /// The line of a key; 0 without one.
    std::size_t find(std::string_view key) const;
  };

  static Line parseLine(std::string_view text, std::string_view end);
  /// The first one of this name; 0 without one.
  std::size_t findSection(std::string_view section) const;
  void appendSection(std::string_view section);
  void addKey(Section& section, std::string_view text);
  std::string_view lineEndNear(const Section& section, std::size_t at) const;

  std::string mark_;  // the UTF-8 mark, or nothing
  std::vector<Section> sections_ = std::vector<Section>(1);
};

}  // namespace kovra::companions
