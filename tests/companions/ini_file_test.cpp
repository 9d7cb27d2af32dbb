#include <gtest/gtest.h>

#include <string>

#include "companions/ini_file.h"

namespace {

using kovra::companions::IniFile;

TEST(IniFile, GivesBackEveryByteOfUnchangedFiles) {
  const std::string cases[] = {
      "",
      "\n",
      "[A]\nx=1\n",
      "\xEF\xBB\xBF[A]\r\nx = 1 \r\n",
      "; comment\n\n  [ A ] tail\n\tkey\t=\t\"quoted\"  \n???\n=no key\n[open\nlast=no line end",
      "[A]\nx=1\r\ny=2\rz=3\n\r\n\n",
      "[A]\nname=\x83\x65\x83\x58\x83\x67\nbad=\xC3\x28\xFF\n",
      std::string("[A]\nnul=\0x\n", 11),
  };
  for (const std::string& bytes : cases) EXPECT_EQ(IniFile(bytes).bytes(), bytes);
}

TEST(IniFile, FindsWhatALineHolds) {
  const IniFile file(
      "stray=0\n; x=comment\n[Main]\n  Key = \"quoted value\" \nKEY=second\nempty=\n"
      "#y=comment\nlayer=Ёж\na==b\n[other]\nkey=o\n[MAIN]\nonly=hidden\n");
  const auto get = [&](const char* section, const char* key) {
    return file.get(section, key).value_or("(none)");
  };
  EXPECT_EQ(get("main", "kEy"), "\"quoted value\"");
  EXPECT_EQ(get("Main", "EMPTY"), "");
  EXPECT_EQ(get("Main", "LAYER"), "Ёж");
  EXPECT_EQ(get("Main", "a"), "=b");
  for (const char* key : {"x", "; x", "y", "#y", "stray", "only", ""})
    EXPECT_EQ(get("Main", key), "(none)") << key;
  EXPECT_EQ(get("OTHER", "key"), "o");
  EXPECT_EQ(get("", "stray"), "(none)");
  EXPECT_EQ(file.sectionNames(), (std::vector<std::string>{"Main", "other"}));
  EXPECT_EQ(file.entries("main").size(), 4U);
}

struct SetCase {
  const char* before;
  const char* section;
  const char* key;
  const char* value;
  const char* after;  // null: refused, nothing changes
};

TEST(IniFile, ChangesOnlyTheLineOfTheKey) {
  const SetCase cases[] = {
      {"[A]\r\n  Key =\told \r\nx=1", "a", "KEY", "new", "[A]\r\n  Key =\tnew \r\nx=1"},
      {"[A]\nkey= old \n", "A", "key", "old", "[A]\nkey= old \n"},
      {"[A]\nkey=  \n", "A", "key", "v", "[A]\nkey=  v\n"},
      {"[A]\nkey=1\nkey=2\n", "A", "key", "3", "[A]\nkey=3\nkey=2\n"},
      {"[A]\nx=1\n\n; about B\n[B]\n", "A", "y", "2", "[A]\nx=1\ny=2\n\n; about B\n[B]\n"},
      {"[A]\r\n; nothing yet\r\n", "A", "y", "2", "[A]\r\ny=2\r\n; nothing yet\r\n"},
      {"[A]\nx=1", "A", "y", "2", "[A]\nx=1\ny=2\n"},
      {"", "A", "x", "1", "[A]\nx=1\n"},
      {"[A]\nx=1\n", "B", "y", " 2 ", "[A]\nx=1\n\n[B]\ny=2\n"},
      {"\xEF\xBB\xBF; \r\n", "B", "y", "", "\xEF\xBB\xBF; \r\n\r\n[B]\r\ny=\r\n"},
      {"[A]\nx=\xFF\n", "A", "y", "\"q\"", "[A]\nx=\xFF\ny=\"q\"\n"},
      {"[A]\n", "S\\K[1]", "x", "1", "[A]\n\n[S\\K[1]]\nx=1\n"},
      {"[a] b]\nx=1 \n", "a] b", "x", "2", "[a] b]\nx=2 \n"},
      {"[A] ; [1]\n", "A", "x", "1", "[A] ; [1]\nx=1\n"},
      {"[A]\n", "a];b", "x", "1", nullptr},
      {"[A]\n", " A", "x", "1", nullptr},
      {"[A]\n", "A\nB", "x", "1", nullptr},
      {"[A]\n", "", "x", "1", nullptr},
      {"[A]\n", "A", "x", "1\n[B]", nullptr},
      {"[A]\n", "A", "x", "1\r", nullptr},
      {"[A]\n", "A", "x=y", "1", nullptr},
      {"[A]\n", "A", ";x", "1", nullptr},
      {"[A]\n", "A", "[x", "1", nullptr},
      {"[A]\n", "A", "", "1", nullptr},
      {"[A]\n", "A", "x ", "1", nullptr},
  };
  for (const SetCase& c : cases) {
    IniFile file(c.before);
    EXPECT_EQ(file.set(c.section, c.key, c.value), c.after != nullptr) << c.section << c.key;
    EXPECT_EQ(file.bytes(), c.after ? c.after : c.before);
    const bool readBack = IniFile(file.bytes()).get(c.section, c.key).has_value();
    EXPECT_TRUE(readBack || !c.after);
  }
}

struct RemoveCase {
  const char* before;
  const char* after;  // null: nothing to remove
};

TEST(IniFile, RemovesASectionAndLeavesTheNeighboursTheirComments) {
  const RemoveCase cases[] = {
      {"[A]\nx=1\n\n[S\\1]\ny=1\n; in it\ny=2\n\n; about C\n[C]\n", "[A]\nx=1\n\n; about C\n[C]\n"},
      {"[s\\1]\nx=1\n; at the end\n", ""},
      {"[S\\1]\nx=1\n[B]\nb=1\n[S\\1]\ny=1\n", "[B]\nb=1\n"},
      {"[S\\10]\nx=1\n", nullptr},
  };
  for (const RemoveCase& c : cases) {
    IniFile file(c.before);
    EXPECT_EQ(file.removeSection("S\\1"), c.after != nullptr);
    EXPECT_EQ(file.bytes(), c.after ? c.after : c.before);
    EXPECT_FALSE(file.hasSection("S\\1"));
  }
}

}  // namespace
