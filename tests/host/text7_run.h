#pragma once

#include <sstream>

#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {

/// Runs the Text command of a project on a new drawing, or on a.dxf once it is written, and reads
/// what it placed into b.dxf.
class Text7Run : public ProgramTest {
 protected:
  Text7Run() { project("12.0"); }

  /// Further lines go behind those of section [Project].
  void project(const std::string& dataVersion, const std::string& further = {}) const {
    write("p/project.ini", "[Project]\nDataVersion=" + dataVersion + "\n" + further);
  }
  /// The user's store, as on the first day.
  void forget() const { std::filesystem::remove(path(".state")); }

  /// Carries lines out with the dialog open; the transcript. It must go well.
  std::string text(const std::string& lines, const std::string& before = {},
                   const std::vector<std::string>& further = {}) const {
    std::vector<std::string> arguments = {"-p", "p", "-o", "b.dxf"};
    arguments.insert(arguments.end(), further.begin(), further.end());
    if (exists("a.dxf")) arguments.insert(arguments.begin(), "a.dxf");
    std::error_code ignored;
    std::filesystem::remove(path("b.dxf"), ignored);
    const ProgramRun result = runScript(before + "KOVRA_TEXT\n" + lines, arguments);
    EXPECT_EQ(result.status, 0) << lines << result.err;
    return result.out;
  }

  /// Texts that b.dxf has beyond those of a.dxf: "VALUE@X,Y", or other columns of the list with
  /// commas between them.
  std::string placed(const std::vector<int>& columns = {}) const {
    const std::string before =
        exists("a.dxf") ? run({"list", "--format", "csv", "a.dxf"}).out : "handle,";
    std::istringstream rows(run({"list", "--format", "csv", "b.dxf"}).out);
    std::string found;
    for (std::string row; std::getline(rows, row);) {
      if (row.starts_with("handle,") || before.find(row) != std::string::npos) continue;
      const std::vector<std::string> fields = split(row);
      if (!found.empty()) found += ' ';
      if (columns.empty()) found += fields[4] + '@' + fields[11] + ',' + fields[12];
      for (const int column : columns) {
        if (column != columns.front()) found += ',';
        found += fields[static_cast<std::size_t>(column)];
      }
    }
    return found;
  }

  /// What the last @dialog says of a control: its text, or with `whole` everything.
  static std::string shown(const std::string& out, int id, bool whole = false) {
    const std::string name = "\n  " + std::to_string(id) + ' ';
    const std::size_t start = out.rfind(name);
    if (start == std::string::npos) return "none";
    const std::string line =
        out.substr(start + name.size(), out.find('\n', start + 1) - start - name.size());
    if (whole) return line;
    const std::size_t text = line.find('"');
    return text == std::string::npos ? "" : line.substr(text, line.find('"', text + 1) - text + 1);
  }
  /// The texts of several controls, quoted, with blanks between them.
  static std::string texts(const std::string& out, const std::vector<int>& ids) {
    std::string all;
    for (const int id : ids) {
      if (!all.empty()) all += ' ';
      all += shown(out, id);
    }
    return all;
  }
  /// "on" or "off" for each control, with a '-' before hidden ones; "none" without the control.
  static std::string states(const std::string& out, const std::vector<int>& ids) {
    std::string all;
    for (const int id : ids) {
      const std::string line = shown(out, id, true);
      if (!all.empty()) all += ' ';
      if (line == "none") {
        all += line;
        continue;
      }
      if (line.find(" hidden") != std::string::npos) all += '-';
      all += line.find(" enabled ") != std::string::npos ? "on" : "off";
    }
    return all;
  }
  static std::string quoted(const std::string& text) { return '"' + text + '"'; }

 private:
  static std::vector<std::string> split(const std::string& row) {
    std::vector<std::string> fields;
    std::istringstream stream(row);
    for (std::string field; std::getline(stream, field, ',');) fields.push_back(field);
    return fields;
  }
};

}  // namespace kovra::test
