#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "tests/host/program.h"

namespace kovra::test {

/// A command as a user drives it, on in.dxf, with what it leaves in out.dxf.
class CommandTest : public ProgramTest {
 protected:
  /// Runs lines on a drawing; `arguments` are further ones of the program.
  void runOn(const std::string& drawing, const std::string& lines,
             std::vector<std::string> arguments = {});

  /// "VALUE@X,Y" of every text in the order of the drawing, or other columns of the list.
  std::string texts(const std::vector<std::size_t>& columns = {}) const;
  bool isUnchanged() const { return read("in.dxf") == read("out.dxf"); }

  /// The line of the last @dialog about a control.
  std::string control(int id) const;
  bool shows(int id, const std::string& part) const {
    return control(id).find(part) != std::string::npos;
  }

  /// The texts of the controls of these numbers there, in quotes.
  std::string shownTexts(int first, int last) const;
  bool said(const std::string& text) const { return result.out.find(text) != std::string::npos; }

  ProgramRun result;
};

}  // namespace kovra::test
