// `kovra diff`: what means something is told, what means nothing isn't.
#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {
namespace {

class DiffTest : public ProgramTest {
 protected:
  /// What `kovra diff` prints; empty when it exits with 0, which it must exactly then.
  std::string diff(const std::string& before, const std::string& after,
                   const std::string& form = "text") {
    write("a.dxf", before);
    write("b.dxf", after);
    const ProgramRun result = run({"diff", "a.dxf", "b.dxf", "--format", form});
    EXPECT_EQ(result.status, result.out.empty() ? 0 : 1) << result.out << result.err;
    return result.out;
  }
};

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  const size_t place = text.find(from);
  EXPECT_NE(place, std::string::npos) << from;
  return place == std::string::npos ? text : text.replace(place, from.size(), to);
}

TEST_F(DiffTest, ByHandle) {
  const std::string first = textDrawing();
  const std::string line = "  0\nLINE\n5\n70\n330\n1F\n8\n0\n10\n0\n11\n1\n";
  const std::string withLine =
      replaced(first, "  0\nTEXT\n  5\n60\n", line + "  0\nTEXT\n  5\n60\n");
  EXPECT_EQ(diff(first, first), "");
  EXPECT_EQ(diff(first, replaced(first, "X001", "Y\t1")),
            "changed TEXT 60 in Model\n    1: X001 -> Y 1\n");
  EXPECT_NE(diff(first, withLine).find("added LINE 70 in Model\n  + 0: LINE\n  + 5: 70\n"),
            std::string::npos);
  EXPECT_NE(diff(withLine, first).find("erased LINE 70 in Model\n  - 0: LINE\n"),
            std::string::npos);
  EXPECT_EQ(diff(first, replaced(first, "1\nX001\n", "1\nX\n39\n2\n"), "json"),
            "{\"change\":\"changed\",\"type\":\"TEXT\",\"handle\":\"60\",\"name\":null,\"place\":"
            "\"Model\",\"groups\":[{\"code\":1,\"before\":\"X001\",\"after\":\"X\"},{\"code\":39,"
            "\"before\":null,\"after\":2}]}\n");
  // The line is drawn behind the text instead of before it.
  std::string behind = first;
  behind.insert(first.find("  0\nTEXT\n  5\n61\n"), line);
  EXPECT_EQ(diff(withLine, behind).rfind("moved ", 0), 0U);
}

TEST_F(DiffTest, WithoutHandles) {
  const auto lines = [](std::initializer_list<int> heights) {
    std::string entities;
    for (const int y : heights) entities += lineAt(y, "8\nA\n");
    return drawing(entities);
  };
  EXPECT_EQ(diff(lines({1, 2, 3, 4}), lines({1, 2, 3, 4})), "");
  const std::string erased = diff(lines({1, 2, 3, 4}), lines({1, 2, 4}));
  EXPECT_EQ(erased.rfind("erased LINE in Model\n", 0), 0U) << erased;
  EXPECT_EQ(erased.find("changed"), std::string::npos) << erased;
  const std::string changed = diff(lines({1, 2, 3}), lines({1, 7, 3}));
  EXPECT_EQ(changed, "changed LINE in Model\n    20: 2 -> 7\n    21: 2 -> 7\n");
}

TEST_F(DiffTest, WhatMeansNothing) {
  const std::string first = motorDrawing();
  DrawingForm form;
  form.lineEnd = "\r\n";
  EXPECT_EQ(diff(first, motorDrawing(form)), "");
  EXPECT_EQ(diff(first, replaced(first, "40\n2.5\n", " 40\n2.50\n999\nby hand\n")), "");
  form = {};
  form.codePage = "ANSI_932";
  EXPECT_EQ(
      diff(drawingWith({{"NAME", "\x93\x64"}}, form), drawingWith({{"NAME", "\\U+96FB"}}, form)),
      "");
  EXPECT_EQ(diff(first, replaced(first, "ANSI_1252", "ANSI_1251")),
            "changed $DWGCODEPAGE in HEADER\n    3: ANSI_1252 -> ANSI_1251\n");
}

TEST_F(DiffTest, AFileThatIsntThere) {
  write("a.dxf", motorDrawing());
  const ProgramRun result = run({"diff", "a.dxf", "none.dxf"});
  EXPECT_EQ(result.status, 3);
  EXPECT_NE(result.err.find("none.dxf"), std::string::npos);
  EXPECT_EQ(run({"diff", "a.dxf"}).status, 2);
}

}  // namespace
}  // namespace kovra::test
