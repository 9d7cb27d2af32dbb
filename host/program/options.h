#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/arx/geometry/geometry.h"

namespace kovra::host {

/// What the program ends with.
enum ExitStatus {
  kExitDone = 0,
  kExitRefused = 1,  ///< a line could not be carried out; drawings differ
  kExitUsage = 2,
  kExitFile = 3  ///< a file can't be read or written
};

enum class ListFormat { kTable, kCsv, kJson };

/// Options of `kovra [options] [DRAWING...]`.
struct RunOptions {
  std::vector<std::filesystem::path> drawings;
  std::filesystem::path project;      ///< empty: none
  std::string script;                 ///< empty: none, "-": standard input
  std::vector<std::string> commands;  ///< input lines that run before the script
  std::filesystem::path output;       ///< empty: none
  std::filesystem::path stateStore;   ///< empty: the user's own
  std::filesystem::path registry;     ///< empty: an empty registry
  std::string language;               ///< "ja" or "en"; empty: the locale's
  bool saveAll = false;
  bool backup = true;
  bool keepGoing = false;
  bool quiet = false;
};

/// Options of `kovra list`.
struct ListOptions {
  std::vector<std::string> drawings;  ///< drawings, folders, patterns
  ListFormat format = ListFormat::kTable;
  bool raw = false;                       ///< comma separated values: formulas aren't made texts
  bool extents = false;                   ///< with the rectangle that each text takes
  unsigned jobs = 0;                      ///< drawings at once; 0: as many as there are processors
  std::optional<std::string> layer;       ///< a layer's name, case doesn't count
  std::optional<std::string> tagPattern;  ///< wild cards of the command line, case doesn't count
};

/// Options of `kovra check`.
struct CheckOptions {
  std::vector<std::string> drawings;  ///< drawings, folders, patterns
  unsigned jobs = 0;                  ///< drawings at once; 0: as many as there are processors
};

/// Options of `kovra each`.
struct EachOptions {
  std::vector<std::string> names;      ///< drawings, folders, patterns
  std::string listFile;                ///< further names, one a line; "-" is standard input
  RunOptions run;                      ///< the lines and settings; drawings and output stay empty
  unsigned jobs = 0;                   ///< drawings at once; 0: as many as there are processors
  std::filesystem::path outputFolder;  ///< empty: each in its own place
  std::filesystem::path root;          ///< drawings keep their places below it; empty: below the
                                       ///< folders that are named
  std::filesystem::path report;        ///< empty: none
  std::filesystem::path resume;        ///< a report whose finished drawings are left out
  bool dryRun = false;
  bool namesOnly = false;  ///< print which drawings would be run, and run none

  /// Whether what changed is to be found out, and not only if.
  bool tellsChanges() const { return dryRun || !report.empty(); }
};

enum class DiffFormat { kText, kJson };

/// Options of `kovra diff`.
struct DiffOptions {
  std::filesystem::path before;
  std::filesystem::path after;
  DiffFormat format = DiffFormat::kText;
};

/// Colors that a picture is drawn on.
enum class Ground { kWhite, kDark };

/// Options of `kovra plot`.
struct PlotOptions {
  struct Window {
    AcGePoint3d low;
    AcGePoint3d high;
  };
  std::vector<std::string> drawings;  ///< drawings, folders, patterns
  std::filesystem::path output;       ///< a picture, or the folder of several
  std::string extension = ".svg";     ///< of pictures in a folder
  unsigned jobs = 0;                  ///< drawings at once; 0: as many as there are processors
  std::optional<Window> window;       ///< in drawing units; none: all that is drawn
  Ground ground = Ground::kWhite;
  int size = 1600;  ///< pixels of the longer side
};

enum class Mode { kRun, kList, kCheck, kPlot, kDiff, kEach };

struct CommandLine {
  Mode mode = Mode::kRun;
  RunOptions run;
  ListOptions list;
  CheckOptions check;
  PlotOptions plot;
  DiffOptions diff;
  EachOptions each;
  /// Set when there is nothing to run: help was printed, or wrong usage reported.
  std::optional<int> exitStatus;
};

/// Reads the arguments. Prints help and version to standard output, wrong usage to standard error.
CommandLine parseCommandLine(int argc, const char* const* argv);

}  // namespace kovra::host
