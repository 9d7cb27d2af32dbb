// `kovra each`: many drawings, each in a process of its own.
#include <csignal>
#include <nlohmann/json.hpp>
#include <sstream>
#include <thread>

#include "tests/host/drawings.h"
#include "tests/host/program.h"

namespace kovra::test {
namespace {

using nlohmann::json;

class EachTest : public ProgramTest {
 protected:
  EachTest() {
    write("s/a.dxf", motorDrawing());
    write("s/deep/b.DXF", motorDrawing());
    write("s/texts.dxf", textDrawing());
    write("s/notes.txt", "no drawing");
  }

  /// Runs the batch with lines that make all attributes 7 high.
  ProgramRun each(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "each");
    for (const char* line : {"-KOVRA_ATTR_COPY", "* /H 7"})
      arguments.insert(arguments.end(), {"-c", line});
    return run(arguments);
  }

  std::map<std::string, json> report(const std::string& name) {
    std::map<std::string, json> entries;
    std::istringstream lines(read(name));
    for (std::string line; std::getline(lines, line);) {
      const json entry = json::parse(line);
      entries[entry.at("file")] = entry;
    }
    return entries;
  }
};

TEST_F(EachTest, TellsOfEachDrawingAndGoesOnPastFaults) {
  write("s/cut.dxf", motorDrawing().substr(0, 700));
  const ProgramRun first = each({"s", "s/a.dxf", "none.dxf", "--report", "r.jsonl", "--jobs", "2"});
  EXPECT_EQ(first.status, 1);
  EXPECT_EQ(first.out.rfind("2 done, 1 unchanged, 2 failed in ", 0), 0U) << first.out;
  EXPECT_NE(first.out.find("none.dxf"), std::string::npos) << first.out;
  auto entries = report("r.jsonl");
  ASSERT_EQ(entries.size(), 5U);
  const json changes =
      json::parse(R"([{"change":"changed","type":"ATTRIB","records":2,"groups":{"40":2}}])");
  EXPECT_EQ(entries["s/a.dxf"]["status"], "done");
  EXPECT_EQ(entries["s/a.dxf"]["changes"], changes);
  EXPECT_EQ(entries["s/texts.dxf"]["status"], "unchanged");
  EXPECT_EQ(entries["s/cut.dxf"]["status"], "failed");
  EXPECT_EQ(run({"diff", "s/a.dxf", "s/a.dxf.bak"}).status, 1);
  EXPECT_FALSE(exists("s/texts.dxf.bak"));

  // What is done stays done until somebody changes it; another job begins anew.
  write("s/deep/b.DXF", motorDrawing());
  const std::vector<std::string> again = {"s", "--report", "r.jsonl", "--resume", "r.jsonl"};
  EXPECT_EQ(each(again).out.rfind("1 done, 0 unchanged, 1 failed, 2 done before", 0), 0U);
  const ProgramRun other =
      run({"each", "s", "--resume", "r.jsonl", "-c", "ERASE", "-c", "nonsense", "--jobs", "1"});
  EXPECT_EQ(other.out.rfind("0 done, 0 unchanged, 4 failed in", 0), 0U) << other.out;
  EXPECT_NE(other.out.find("s/a.dxf: -c 2: "), std::string::npos) << other.out;
}

TEST_F(EachTest, WritesNothingOrElsewhere) {
  const ProgramRun dry = each({"s", "--dry-run", "--report", "dry.jsonl"});
  EXPECT_EQ(dry.status, 0) << dry.err;
  EXPECT_EQ(dry.out.rfind("2 done, 1 unchanged", 0), 0U) << dry.out;
  EXPECT_EQ(read("s/a.dxf"), motorDrawing());
  EXPECT_EQ(report("dry.jsonl")["s/a.dxf"]["changes"][0]["records"], 2);

  write("list.txt", "s/a.dxf\r\ns/d*/*.DXF\n");
  EXPECT_EQ(each({"--list", "list.txt", "--output-dir", "out"}).status, 0);
  EXPECT_TRUE(exists("out/a.dxf") && exists("out/b.DXF"));
  EXPECT_EQ(each({"s", "--output-dir", "whole"}).status, 0);
  EXPECT_TRUE(exists("whole/deep/b.DXF") && exists("whole/texts.dxf"));
  EXPECT_EQ(run({"diff", "out/b.DXF", "whole/deep/b.DXF"}).status, 0);
  EXPECT_EQ(read("s/a.dxf"), motorDrawing());
  write("t/a.dxf", motorDrawing());
  EXPECT_EQ(each({"s", "t", "--output-dir", "out"}).status, 2);
  EXPECT_EQ(each({"empty*"}).status, 3);
}

TEST_F(EachTest, CtrlCFinishesWhatRunsAndTheNextRunGoesOn) {
  constexpr int kDrawings = 60;
  for (int i = 0; i < kDrawings; ++i) write("many/" + std::to_string(i) + ".dxf", motorDrawing());
  const std::vector<std::string> job = {"each",    "many",     "--jobs",  "2",  "--report",
                                        "r.jsonl", "--resume", "r.jsonl", "-c", "-KOVRA_ATTR_COPY",
                                        "-c",      "* /H 7"};
  const pid_t batch = start(job);
  // Not before it counts interruptions: the first drawing is done then.
  while (!exists("r.jsonl") || read("r.jsonl").empty())
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  kill(batch, SIGINT);
  const ProgramRun stopped = finish(batch);
  const std::size_t finished = report("r.jsonl").size();
  EXPECT_EQ(stopped.status, finished < kDrawings ? 1 : 0) << stopped.out << stopped.err;
  std::vector<std::string> list = {"list", "--format", "csv", "--tag", "NAME"};
  for (int i = 0; i < kDrawings; ++i) list.push_back("many/" + std::to_string(i) + ".dxf");
  const std::string heights = run(list).out;
  std::size_t changed = 0;
  for (size_t at = heights.find(",7,"); at != std::string::npos; at = heights.find(",7,", at + 1))
    ++changed;
  EXPECT_EQ(changed, finished);
  EXPECT_EQ(run(job).status, 0);
  EXPECT_EQ(report("r.jsonl").size(), static_cast<std::size_t>(kDrawings));
}

TEST_F(EachTest, AKilledBatchChangesNoDrawingTwice) {
  constexpr int kDrawings = 40;
  for (int i = 0; i < kDrawings; ++i) write("many/" + std::to_string(i) + ".dxf", textDrawing());
  const std::vector<std::string> job = {
      "each", "many", "--jobs",      "2",  "--report", "r.jsonl", "--resume", "r.jsonl", "-c",
      "MOVE", "-c",   "@select all", "-c", "@enter",   "-c",      "0,0",      "-c",      "1,0"};
  for (const int milliseconds : {60, 110, 170}) {
    const pid_t batch = start(job);
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    kill(batch, SIGKILL);
    finish(batch);
  }
  EXPECT_EQ(run(job).status, 0);
  std::vector<std::string> list = {"list", "many", "--format", "csv"};
  const std::string places = run(list).out;
  std::size_t moved = 0;
  for (size_t at = places.find(",11,"); at != std::string::npos; at = places.find(",11,", at + 1))
    ++moved;
  EXPECT_EQ(moved, 2U * kDrawings) << places;
  EXPECT_FALSE(exists("r.jsonl.begun"));
}

}  // namespace
}  // namespace kovra::test
