// What script lines do as clicks and keys on native widgets is what they do without a screen:
// drawings, stores and transcripts are the same byte for byte, and each widget shows its window.
#include <array>
#include <map>

#include "tests/host/program.h"
#include "tests/host/random_scenes.h"

namespace kovra::test {
namespace {

namespace fs = std::filesystem;

/// Several of them found faults: focus taken by a dialog that is shown, acts on hidden dialogs.
constexpr unsigned kRandomUsers[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 23, 67, 94, 117};

struct Outcome {
  ProgramRun run;
  std::map<std::string, std::string> files;
};

class PlayTest : public ProgramTest {
 protected:
  /// Runs the program in a fresh world and keeps all that it leaves.
  template <class World>
  Outcome outcomeOf(const char* program, const World& makeWorld,
                    const std::vector<std::string>& arguments) {
    useProgram(program);
    for (const auto& entry : fs::directory_iterator(path(""))) fs::remove_all(entry.path());
    makeWorld();
    Outcome outcome;
    outcome.run = run(arguments, {}, {"KOVRA_PLAY_REPORT=" + path(".report").string()});
    report_ = exists(".report") ? read(".report") : "no report";
    fs::remove(path(".report"));
    for (const auto& entry : fs::recursive_directory_iterator(path("")))
      if (entry.is_regular_file())
        outcome.files[fs::relative(entry.path(), path("")).string()] =
            read(fs::relative(entry.path(), path("")).string());
    return outcome;
  }

  template <class World>
  void expectTheSame(const World& makeWorld, const std::vector<std::string>& arguments) {
    const Outcome told = outcomeOf(KOVRA_PROGRAM, makeWorld, arguments);
    const Outcome played = outcomeOf(KOVRA_PLAY, makeWorld, arguments);
    EXPECT_EQ(told.run.status, played.run.status) << played.run.err;
    EXPECT_EQ(report_.find("fault"), std::string::npos) << report_;
    ASSERT_EQ(changedLines(told.run.out, played.run.out), std::vector<std::string>());
    EXPECT_EQ(changedLines(told.run.err, played.run.err), std::vector<std::string>());
    for (const auto& [name, bytes] : told.files) {
      const auto same = played.files.find(name);
      ASSERT_NE(same, played.files.end()) << name;
      EXPECT_TRUE(same->second == bytes) << name << " differs";
    }
    // The main window keeps its places and what was opened beside the store.
    EXPECT_EQ(told.files.size(), played.files.size() - played.files.count(".state.desktop.ini"));
  }

  std::string report_;
};

struct Example {
  const char* script;
  const char* dataVersion = "12.0";
};

TEST_F(PlayTest, Examples) {
  constexpr std::array kExamples = {Example{"place_texts"},
                                    Example{"count_up"},
                                    Example{"align_texts"},
                                    Example{"change_properties"},
                                    Example{"edit_properties"},
                                    Example{"resize_text"},
                                    Example{"attr_copy"},
                                    Example{"property_copy"},
                                    Example{"place_texts_one_by_one", "6.0"}};
  const fs::path examples = KOVRA_EXAMPLES;
  for (const char* language : {"en", "ja"})
    for (const Example& example : kExamples) {
      SCOPED_TRACE(std::string(example.script) + ' ' + language);
      const auto makeWorld = [&] {
        fs::copy(examples / "panel", path("panel"), fs::copy_options::recursive);
        std::string project = read("panel/project.ini");
        constexpr std::string_view kVersion = "DataVersion=12.0";
        project.replace(project.find(kVersion), kVersion.size(),
                        std::string("DataVersion=") + example.dataVersion);
        write("panel/project.ini", project);
      };
      expectTheSame(makeWorld,
                    {"--project", "panel", "--language", language, "--script",
                     (examples / (std::string(example.script) + ".kovra")).string(), "--save",
                     "panel/motor-1.dxf", "panel/motor-2.dxf", "panel/terminals.dxf"});
      if (HasFatalFailure()) return;
    }
}

TEST_F(PlayTest, RandomUsers) {
  for (const unsigned seed : kRandomUsers) {
    SCOPED_TRACE(seed);
    const auto makeWorld = [&] {
      for (const NamedFile& file : randomFiles()) write(file.name, file.bytes);
      write("test.scr", randomScript(seed));
    };
    expectTheSame(makeWorld,
                  {"a.dxf", "b.dxf", "-p", "p", "--keep-going", "--save", "-s", "test.scr"});
    if (HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace kovra::test
