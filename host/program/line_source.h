#pragma once

#include <fstream>
#include <istream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/dxf/result.h"

namespace kovra::host {

/// One line of outside input.
struct InputLine {
  std::string text;   ///< bytes as given, without the line end
  std::string place;  ///< for error messages: "panel.scr:12", "-c 2"
};

/// Where input lines come from, one after another.
class LineSource {
 public:
  virtual ~LineSource() = default;
  /// Nothing at the end.
  virtual std::optional<InputLine> next() = 0;
};

/// The lines of -c, then those of a script. Line ends may be LF or CR LF; a byte order mark is
/// skipped. The script is read as it is needed, so that a program may write it piece by piece.
class BatchLines : public LineSource {
 public:
  /// `script`: a file's name, "-" for standard input, empty for none.
  static Result<std::unique_ptr<BatchLines>> open(std::vector<std::string> commands,
                                                  const std::string& script);

  std::optional<InputLine> next() override;

 private:
  std::vector<std::string> commands_;
  std::size_t nextCommand_ = 0;
  std::ifstream file_;
  std::istream* script_ = nullptr;  // file_, standard input, or none
  std::string scriptName_;
  int lineNumber_ = 0;
};

}  // namespace kovra::host
