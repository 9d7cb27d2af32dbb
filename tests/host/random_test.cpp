// Reproducible random users: whatever they type and click, the program neither crashes nor hangs,
// comes back to the idle host, and the drawing saves and loads. A new dialog joins as a scene.
#include <random>

#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {
namespace {

constexpr int kRuns = 60;
constexpr int kPiecesPerRun = 26;

using Pieces = std::vector<const char*>;

// Lines that are legal somewhere, and some that never are; repeated ones come more often.
const Pieces kAnywhere = {
    // typed
    "-KOVRA_ATTR_COPY", "-KOVRA_ATTR_COPY\nNAME+ /H 3 /J MC",
    "-KOVRA_ATTR_COPY\nNAME /L WIRENO /A 30 /W 0.7", "/?", "U", "U", "UNDO", "Mark", "Back", "2",
    "REDO", "-LAYER", "LO", "U", "0", "New", "L9", "MOVE", "MOVE\n@select all\n@enter\n0,0\n3,4",
    "ERASE", "REGEN", "UCS", "W", "Z", "90", "SETVAR", "SNAPMODE", "1", "1,1", "@5<45", "nonsense",
    "",
    // keyboard, pointer, selections
    "@enter", "@enter", "@esc", "@esc", "@keys \"x\\b\\e\"", "@point 3,4", "@point 30,-4",
    "@move 10,10", "@pick 100", "@pick 10,20", "@select all", "@select 100 60",
    "@select -5,-5 500,500", "@select 500,500 -5,-5", "@preselect all", "@preselect 60",
    // any dialog
    "@click 1", "@click 2", "@close", "@dialog", "@place 5 5", "@place min",
    // documents
    "@open b.dxf", "@activate a.dxf", "@activate b.dxf", "@closedrawing", "@open a.dxf",
    "@project p", "@project", "@reload", "@list", "@answer yes", "@save other.dxf"};

/// A dialog: how it is opened, what its users do, how they leave it.
struct Scene {
  Pieces starts;
  Pieces work;
  Pieces ends;
};

const Scene kCountUpCopy = {
    {"KOVRA_TEXT_COUNTUP\n@select all\n@enter", "KOVRA_TEXT_COUNTUP\n@select 60\n@enter",
     "@preselect all\nKOVRA_TEXT_COUNTUP", "KOVRA_TEXT_COUNTUP"},
    {"@click 1953", "@click 1954", "@click 1955", "@click 1956", "@click 1974", "@click 1975",
     "@click 1975", "@click 1976", "@click 1977", "@check 1967 on", "@check 1967 off",
     "@choose 1978 #0", "@choose 1978 #2", "@choose 1978 #6", "@type 1931 -2", "@type 1931 0",
     "@type 1931 99999999999", "@type 1936 FF", "@type 1932 3", "@type 1932 0", "@type 1934 2",
     "@type 1934 0", "@type 1933 2.5", "@type 1935 -1e3", "@type 1935 \"\"", "@key 1931 Tab",
     "@focus 1934", "@caret 1931 0 1", "@dialog", "@click 1",
     // picks, ended, cancelled and left waiting
     "@click 1957\n@point 0,0\n@point 4,3", "@click 1958\n@point 0,0\n@esc",
     "@click 1975\n@click 1954\n@click 1959\n@enter", "@click 1957\n@point 1,1"},
    {"@click 1", "@click 1", "@enter", "@click 2", "@esc", "@close",
     // drags: copies placed, cancelled at each prompt, and left waiting
     "@click 1974\n@click 1\n@point 0,0\n@move 5,5\n@point 9,0\n@point 20,5\n@esc",
     "@click 1974\n@click 1\n@point 0,0\n@move 5,5\n@esc", "@click 1974\n@click 1\n@esc",
     "@click 1974\n@click 1\n@point 0,0\n@move 5,5\n@open b.dxf",
     // entries that OK refuses
     "@check 1967 off\n@click 1975\n@click 1953\n@type 1932 0\n@click 1\n@esc",
     "@check 1967 off\n@click 1975\n@click 1954\n@type 1934 0\n@click 1\n@close",
     "@check 1967 off\n@click 1975\n@click 1955\n@type 1932 0\n@click 1\n@esc",
     // below the first number
     "@check 1967 on\n@choose 1978 #1\n@type 1931 -99999\n@click 1974\n@click 1\n@point "
     "0,0\n@point "
     "9,0\n@esc"},
};

const Scene kTextDialog = {
    {"KOVRA_TEXT", "KOVRA_TEXT", "KOVRA_TEXT\n@type 1937 \"A\\nB\"",
     "@project p15\nKOVRA_TEXT\n@type 1937 X", "@project p7\nKOVRA_TEXT\n@type 1931 X",
     "KOVRA_TEXT\n@click 1975\n@check 1967 on\n@type 1933 7",
     "KOVRA_TEXT\n@click 1976\n@click 1962\n@type 1931 W\n@type 1938 2"},
    {"@click 1974", "@click 1975", "@click 1976", "@check 1967 on", "@check 1967 off",
     "@click 1960", "@click 1961", "@click 1963", "@check 4514 on", "@click 2003",
     "@choose 1978 #0", "@choose 1978 #2", "@choose 1978 #6", "@choose 1985 #0",
     "@choose 1985 TALL", "@choose 1987 #1", "@choose 1993 #4", "@choose 1998 #0",
     "@choose 1998 #7", "@type 1998 LOCKED", "@type 1937 \"\"", "@type 1937 \"X\\n\\nY\"",
     "@type 1931 W", "@type 1933 9", "@type 1935 -3", "@type 1936 1F", "@type 1987 0",
     "@type 1987 3", "@type 1991 30", "@type 2002 0", "@type 1939 -1e3", "@type 1940 0",
     "@type 1938 3", "@place 5 5 427 600", "@keys \"7\"", "@key 1937 Enter", "@dialog",
     // placements and picks, ended, cancelled and left waiting
     "@click 1\n@point 3,4", "@click 1\n@move 1,1\n@esc", "@click 1\n@point 0,0\n@point 5,5\n@esc",
     "@click 1999\n@pick 60", "@click 1995\n@pick 61", "@click 1988\n@esc",
     "@click 1990\n@pick 1,1", "@click 1964\n@point 0,0\n@point 4,-3",
     "@click 1965\n@point 0,0\n@esc", "@click 1966", "@click 1", "KOVRA_TEXT", "@activate a.dxf",
     "@activate b.dxf", "@project p15", "-STYLE\nTALL\ntxt\n4\n0.5\n0\nN\nN\nN", "CLAYER\nWIRENO",
     "-LAYER\nLO\nWIRENO\n"},
    {"@click 1\n@point 1,2\n@esc", "@click 1\n@point 1,2\n@esc\n@close", "@click 2", "@close",
     "@click 1\n@move 2,2\n@open b.dxf", "@click 1\n@closedrawing", "@reload"},
};

/// The Text command below data version 7.00, whose prompts the dialog's buttons answer.
const Scene kTextsOneByOne = {
    {"@project p6\nKOVRA_TEXT", "@project p6\nKOVRA_TEXT\nK1"},
    {"K1", "K2\n3,4", "K3", "@move 5,5", "@point 7,7", "@pick 60", "@enter", "@esc", "_. .2",
     "_. .0", "_. .9", "_. x",
     // picks
     "@click 1986", "@click 1988", "@click 1990\n@pick 61", "@click 1992\n@esc",
     "@click 1994\n@pick 60", "@click 1995\n@pick 61", "@click 1995\n@move 2,2", "@click 2000",
     // properties
     "@type 1987 3", "@type 1987 0", "@type 1989 0.9", "@type 1991 -45", "@type 1996 2\n@move 1,1",
     "@type 1996 x", "@choose 1985 #0", "@choose 1987 #2", "@choose 1993 #7", "@choose 1998 #1",
     "@choose 1998 #7", "@focus 1987", "@key 1989 Tab", "@keys \"7\"", "@click 1", "@click 2",
     "@use 523", "@activate a.dxf\nKOVRA_TEXT", "@activate b.dxf"},
    {"@esc\n@esc\n@esc", "@close", "_. .-1", "@click 2000\n@click 2000\n@click 2000",
     "@closedrawing", "@project p\n@activate a.dxf\nKOVRA_TEXT"},
};

const Scene kTextAlign = {
    {"KOVRA_TEXT_ALIGN\n@select all\n@enter", "@preselect all\nKOVRA_TEXT_ALIGN",
     "KOVRA_TEXT_ALIGN\n@select 60 61\n@enter", "KOVRA_TEXT_ALIGN"},
    {"@check 4635 on", "@check 4635 off", "@check 4636 on", "@check 4637 on", "@check 4638 on",
     "@check 4639 on", "@check 4640 on", "@check 4640 off", "@choose 4648 WIRENO",
     "@choose 4648 LOCKED", "@choose 4649 #0", "@choose 4650 #3", "@type 4650 0", "@type 4650 x",
     "@choose 4651 #2", "@type 4652 123.4", "@choose 4652 #3", "@choose 4653 #4", "@choose 4653 #0",
     "@click 4656", "@click 4657", "@type 4654 -3", "@type 4654 1e99", "@type 4655 x", "@dialog",
     "@focus 4654", "@key 4655 Tab", "@place 30 40",
     // picks and measures, ended, cancelled and left waiting
     "@click 4647\n@pick 61", "@click 4641\n@pick 60", "@click 4645\n@pick 100\n@esc",
     "@click 4643\n@enter", "@click 4646\n@point 900,900", "@click 4663\n@point 0,0\n@point 3,4",
     "@click 4664\n@point 0,0\n@esc", "@click 4664\n@point 1,1", "@click 4642"},
    {"@click 2", "@esc", "@close",
     // drags: placed, cancelled, answered with nothing, and left waiting
     "@click 4658\n@click 1\n@move 5,5\n@point 40,40", "@click 4658\n@click 1\n@move 5,5\n@esc",
     "@click 4662\n@click 1\n@move 5,5\n@point 60,30", "@click 4662\n@click 1\n@enter",
     "@click 4662\n@click 1\n@move 5,5\n@closedrawing", "@click 4658\n@click 1\n@closedrawing",
     "@click 4662\n@click 1\n@move 5,5\n@open b.dxf", "@click 4658\n@click 1\n@move 1,1\nU",
     "@click 4659\n@click 1\n@pick 61", "@click 4659\n@click 1\n@point 900,900\n@esc",
     "@click 4659\n@click 1"},
};

const Scene kChangeProperties = {
    {"@preselect all\nKOVRA_TEXT_PROPERTIES", "KOVRA_TEXT_PROPERTIES\n@select all\n@enter",
     "KOVRA_TEXT_PROPERTIES\n@select 60 61\n@enter", "KOVRA_TEXT_PROPERTIES"},
    {"@check 1967 on", "@check 1967 off", "@check 1968 on", "@check 1969 on", "@check 1970 on",
     "@check 1971 on", "@check 1972 on", "@check 1972 off", "@choose 1978 WIRENO",
     "@choose 1978 LOCKED", "@type 1978 NEW", "@type 1978 \"a<b\"", "@choose 1979 #0",
     "@type 1979 NOSUCH", "@type 1980 3", "@type 1980 0", "@type 1980 x", "@type 1980 \"\"",
     "@choose 1981 #2", "@type 1982 -1e9", "@choose 1982 #1", "@choose 1983 #0", "@choose 1983 #8",
     "@focus 1980", "@key 1981 Tab", "@place 30 40", "@dialog",
     // picks, ended, cancelled and left waiting
     "@click 1959\n@pick 61", "@click 1953\n@pick 60", "@click 1955\n@pick 100\n@esc",
     "@click 1957\n@enter", "@click 1959\n@point 900,900", "@click 1959\n@closedrawing",
     "@click 1958"},
    {"@click 1", "@click 1", "@click 1\nU", "@click 2", "@esc", "@close",
     "@check 1969 on\n@type 1980 4\n@check 1972 on\n@choose 1983 #5\n@click 1",
     "@check 1969 on\n@type 1980 -4\n@click 1"},
};

const Scene kEditProperty = {
    {"KOVRA_TEXT_EDITPROP", "KOVRA_TEXT_EDITPROP", "@project p\nKOVRA_TEXT_EDITPROP",
     "KOVRA_TEXT_EDITPROP\n@check 1968 on\n@type 1932 4"},
    {"@check 1967 on", "@check 1968 on", "@check 1968 off", "@check 1969 on", "@check 1970 on",
     "@check 1971 on", "@check 2014 off", "@choose 1978 WIRENO", "@choose 1978 LOCKED",
     "@choose 1982 #3", "@choose 1982 #8", "@type 1932 0", "@type 1932 -1e3", "@type 1933 x",
     "@type 1934 123.4", "@place 30 40 800 90", "@dialog", "@focus 1934", "@key 1932 Tab",
     // named sets
     "@type 4440 \"set [1\"", "@type 4440 \"a];b\"\n@click 1961", "@choose 4440 #0", "@click 1960",
     "@click 1961", "@answer yes\n@click 1961", "@answer yes\n@click 1962",
     "@answer no\n@click 1962",
     // picks, ended, cancelled and left waiting
     "@click 1958\n@pick 61", "@click 1953\n@pick 60", "@click 1957\n@pick 100\n@esc",
     "@click 1954\n@enter", "@click 1955\n@point 900,900", "@click 1958\n@activate b.dxf"},
    {"@click 2", "@esc", "@close", "@check 1967 on\n@click 1\n@select all\n@enter\n@enter",
     "@check 1968 on\n@click 1\n@select 60 61\n@enter\n@select 60\n@enter\n@esc",
     "@check 1971 on\n@click 1\n@select all\n@enter\n@closedrawing",
     "@check 1970 on\n@click 1\n@select 61\n@enter\n@open b.dxf",
     "@check 1969 on\n@click 1\n@select 60", "@click 1958\n@closedrawing"},
};

/// Its drawings are chosen from those that the run has; what it writes itself are further files.
const Scene kPropertyCopy = {
    {"KOVRA_ATTR_COPY", "KOVRA_ATTR_COPY\n@check 1968 on", "KOVRA_ATTR_COPY_ALL",
     "@project p7\nKOVRA_ATTR_COPY_ALL", "KOVRA_ATTR_COPY\n@check 1973 on\n@check 1967 on"},
    {"@check 1984 0 on", "@check 1984 1 on", "@check 1984 1 off", "@check 1973 on",
     "@check 1973 off", "@type 1931 \"\"", "@type 1931 NAME,S*", "@type 1931 ,,", "@check 1967 on",
     "@check 1967 off", "@check 1968 on", "@check 1969 on", "@check 1970 on", "@check 1971 on",
     "@choose 1978 #0", "@type 1978 LOCKED", "@type 1979 3", "@type 1979 \"\"", "@type 1980 x",
     "@type 1981 -720.5", "@choose 1982 #8", "@check 2014 on", "@choose 2013 #0", "@choose 2013 #1",
     "@choose 2013 #2", "@choose 2013 #3", "@key 1984 Tab", "@dialog", "@place 7 7",
     // picks, ended, cancelled and left waiting
     "@click 1960\n@pick 100", "@click 1960\n@pick 60\n@esc", "@click 1960\n@enter",
     "@click 1958\n@pick 61", "@click 1953\n@pick 60", "@click 1954\n@esc",
     "@click 1957\n@pick 900,900", "@click 1958"},
    {"@click 1", "@click 2", "@esc", "@close", "@click 1\n@select all\n@enter",
     "@choose 2013 #0\n@click 1\n@esc", "@choose 2013 #1\n@click 1\nU",
     "@files ../b.dxf ../other.dxf\n@choose 2013 #2\n@click 1", "@files\n@choose 2013 #2\n@click 1",
     "@choose 2013 #3\n@click 1\n@activate b.dxf\nU", "@click 1\n@closedrawing"},
};

const Scene kResizeText = {
    {"KOVRA_TEXT_RESIZEH\n@pick 60", "@preselect 61\nKOVRA_TEXT_RESIZEH",
     "KOVRA_TEXT_RESIZEH\n@pick 100", "@preselect all\nKOVRA_TEXT_RESIZEH", "KOVRA_TEXT_RESIZEH"},
    {"@spin 1930 1",
     "@spin 1930 -3",
     "@spin 1930 40",
     "@key 1931 Up",
     "@type 1932 0.25",
     "@type 1932 0\n@spin 1930 1",
     "@type 1932 5000",
     "@type 1931 7",
     "@type 1931 1.2.3\n@click 1",
     "@type 1931 \"\"",
     "@click 1953\n@pick 61",
     "@click 1953\n@pick 100",
     "@click 1953\n@esc",
     "@click 1953",
     "@click 1954\n@move 3,3\n@point 9,9",
     "@click 1954\n@move 1,1\n@esc",
     "@click 1954",
     "@click 1954\n@enter",
     "ORTHOMODE\n1",
     "KOVRA_TEXT_RESIZEH",
     "U",
     "REDO",
     "ERASE\n@select 60\n@enter",
     "-LAYER\nLO\n0\n",
     "-LAYER\nU\n0\n",
     "@activate a.dxf",
     "@activate b.dxf",
     "@dialog"},
    {"@click 1", "@click 2", "@esc", "@close", "@click 1954\n@move 2,2\n@closedrawing",
     "@closedrawing", "@reload", "@click 1953\n@open b.dxf"},
};

/// Its OK stores the tables in a project of its own: the others keep what their scenes choose from.
const Scene kOptions = {
    {"@project po\nKOVRA_OPTIONS", "@project po\nKOVRA_OPTIONS\n@choose 1925 #1",
     "@project\nKOVRA_OPTIONS"},
    {"@choose 1925 #0",
     "@choose 1925 #1",
     "@choose 1925 #3",
     "@choose 1925 #4",
     "@cell 1926 8 1 NEW",
     "@cell 1926 2 1 \"\"",
     "@cell 1926 501 1 X",
     "@cell 1927 1 1 7.125",
     "@cell 1927 1 1 -",
     "@cell 3978 2 1 1.75",
     "@cells 1926 1 1 3 1",
     "@cells 1926 -1 1 -1 1",
     "@cells 1927 2 -1 4 -1",
     "@click 1953",
     "@click 1954",
     "@click 1955",
     "@key 1926 Ctrl+X",
     "@key 1926 Ctrl+C",
     "@key 1926 Delete",
     "@key 1926 F2\n@keys \"ab\"",
     "@key 1927 F2\n@menu 1927 Cut",
     "@menu 1926 Paste",
     "@menu 1927 Clear",
     "@clipboard \"a\\tb\\r\\n1\\n\"\n@key 1926 Ctrl+V",
     "@clipboard \"2\\n3\\n\"\n@key 1927 Shift+Insert",
     "@clipboard \"\"\n@menu 1926 Paste",
     "@keys \"1\"",
     "@key 1926 Ctrl+Down",
     "@key 1926 PageDown",
     "@key 1926 Enter",
     "@key 1926 Tab",
     "@key 1925 Right",
     "@place 30 30 700 420",
     "@dialog",
     "@click 3933",
     "@click 3934"},
    {"@click 1\n@click 2\n@project p", "@click 2\n@project p", "@esc\n@esc\n@project p",
     "@close\n@project p", "@enter\n@close\n@project p",
     "@click 3933\n@click 2\nKOVRA_TEXT\n@close\n@project p", "@reload\n@close\n@project p"},
};

const Scene* const kScenes[] = {&kCountUpCopy,  &kTextDialog,       &kTextsOneByOne,
                                &kTextAlign,    &kChangeProperties, &kEditProperty,
                                &kPropertyCopy, &kResizeText,       &kOptions};

/// What must have been seen, so that the random users aren't kept out by a closed door.
const Pieces kSeen = {"The number of rows must be",
                      "The number of columns must be",
                      "The numbers of rows and",
                      "Specify opposite corner",
                      "second point of row distance",
                      "first point of column distance",
                      "Specify point for the copies:",
                      "can't be counted down",
                      "Specify insertion point:",
                      "Select text:",
                      "first point of row distance",
                      "already open",
                      "Enter text:",
                      "take the height from",
                      "already running",
                      "Select texts to align:",
                      "take all properties from",
                      "distance by two points",
                      "Select base text:",
                      "Select texts:",
                      "take the rotation from",
                      "couldn't be changed",
                      "Regenerating",
                      "Select texts, multi-line texts or attributes:",
                      "attribute to take the justification from",
                      "Replace them?",
                      "couldn't be saved",
                      "Specify point for the texts:",
                      "attribute to take the tag",
                      "text or attribute to take all",
                      "Select block references or",
                      "/b.dxf]",
                      "Attributes changed in 1 ",
                      "The text height must be",
                      "The step must be",
                      "Specify new position:",
                      "The tables couldn't be saved"};

class RandomTest : public ProgramTest {
 protected:
  std::string pick(const Pieces& pieces) { return pieces[random() % pieces.size()]; }

  std::string scene(const Scene& scene) {
    std::string lines = pick(scene.starts) + '\n';
    for (auto left = random() % 10; left > 0; --left) lines += pick(scene.work) + '\n';
    if (random() % 8 == 0) lines += pick(kAnywhere) + '\n';
    return lines + pick(scene.ends) + '\n';
  }

  /// Visits of a scene go through all its ways in and out in turn, and through all that is done
  /// there, so that a new scene keeps nobody out of another.
  std::string visit(const Scene& scene, std::size_t number) {
    constexpr std::size_t kWorkPieces = 5;
    const auto inTurn = [](const Pieces& pieces, std::size_t n) {
      return std::string(pieces[n % pieces.size()]) + '\n';
    };
    std::string lines = inTurn(scene.starts, number);
    for (std::size_t i = 0; i < kWorkPieces; ++i)
      lines += inTurn(scene.work, number * kWorkPieces + i);
    return lines + inTurn(scene.ends, number);
  }

  std::string script(unsigned run) {
    std::string lines;
    for (const unsigned number : {2 * run, 2 * run + 1})
      lines += visit(*kScenes[number % std::size(kScenes)], number / std::size(kScenes));
    for (int i = 0; i < kPiecesPerRun; ++i) {
      lines += random() % 2 == 0 ? scene(*kScenes[random() % std::size(kScenes)])
                                 : pick(kAnywhere) + '\n';
    }
    return lines;
  }

  std::mt19937 random;
};

TEST_F(RandomTest, NoCrashNoHangAndADrawingThatLoads) {
  for (const auto& [name, version] :
       {std::pair{"p", "12.0"}, {"p6", "6.0"}, {"p7", "7.00"}, {"p15", "15.0"}, {"po", "12.0"}}) {
    write(std::string(name) + "/project.ini", "[Project]\nDataVersion=" + std::string(version) +
                                                  "\n[Drawings]\n1=../a.dxf\n2=../b.dxf\n");
  }
  const std::string drawing = textDrawing({{"NAME", "M1", "0", "2.5", "40.0"}});
  std::string transcripts;
  for (unsigned seed = 1; seed <= kRuns; ++seed) {
    random.seed(seed);
    const std::string lines = script(seed - 1);
    for (const char* name : {"a.dxf", "b.dxf"}) write(name, drawing);
    const ProgramRun result =
        runScript(lines, {"a.dxf", "b.dxf", "-p", "p", "--keep-going", "--save"});
    transcripts += result.out;
    ASSERT_LE(result.status, 1) << "seed " << seed << '\n' << lines << result.err;
    for (const char* name : {"a.dxf", "b.dxf"}) {
      ASSERT_EQ(run({"check", name}).status, 0) << "seed " << seed << '\n' << lines;
      ASSERT_EQ(run({"list", name}).status, 0) << "seed " << seed << '\n' << lines;
    }
  }
  for (const char* seen : kSeen) {
    EXPECT_NE(transcripts.find(seen), std::string::npos) << seen << " was never reached";
  }
}

}  // namespace
}  // namespace kovra::test
