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

  static std::size_t countOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
      ++count;
    return count;
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
  write("s/\x90\x7d.dxf", motorDrawing());  // a name that isn't UTF-8
  const ProgramRun first = each({"s", "s/a.dxf", "none.dxf", "--report", "r.jsonl", "--jobs", "2"});
  EXPECT_EQ(first.status, 1);
  EXPECT_EQ(first.out.rfind("3 done, 1 unchanged, 2 failed in ", 0), 0U) << first.out;
  EXPECT_NE(first.out.find("none.dxf"), std::string::npos) << first.out;
  auto entries = report("r.jsonl");
  ASSERT_EQ(entries.size(), 6U);
  const json changes =
      json::parse(R"([{"change":"changed","type":"ATTRIB","records":2,"groups":{"40":2}}])");
  EXPECT_EQ(entries["s/a.dxf"]["status"], "done");
  EXPECT_EQ(entries["s/a.dxf"]["changes"], changes);
  EXPECT_EQ(entries["s/a.dxf"]["path"], canonical(path("s/a.dxf")).string());
  EXPECT_EQ(entries["s/texts.dxf"]["status"], "unchanged");
  EXPECT_EQ(entries["s/cut.dxf"]["status"], "failed");
  EXPECT_EQ(run({"diff", "s/a.dxf", "s/a.dxf.bak"}).status, 1);
  EXPECT_FALSE(exists("s/texts.dxf.bak"));

  // What is done stays done until somebody changes it; another job begins anew.
  write("s/deep/b.DXF", motorDrawing());
  const std::vector<std::string> again = {"s", "--report", "r.jsonl", "--resume", "r.jsonl"};
  EXPECT_EQ(each(again).out.rfind("1 done, 0 unchanged, 1 failed, 3 done before", 0), 0U);
  const ProgramRun other =
      run({"each", "s", "--resume", "r.jsonl", "-c", "ERASE", "-c", "nonsense", "--jobs", "1"});
  EXPECT_EQ(other.out.rfind("0 done, 0 unchanged, 5 failed in", 0), 0U) << other.out;
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
  EXPECT_EQ(countOf(run(list).out, ",7,"), finished);
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
  // The report has them all then, also for the runs after the next.
  for (int i = 0; i < 2; ++i) EXPECT_EQ(run(job).status, 0);
  EXPECT_EQ(report("r.jsonl").size(), static_cast<std::size_t>(kDrawings));
  EXPECT_EQ(countOf(run({"list", "many", "--format", "csv"}).out, ",11,"), 2U * kDrawings);
  EXPECT_FALSE(exists("r.jsonl.begun"));
}

TEST_F(EachTest, OfTwoRunsAtOnceNoneLosesWhatTheOtherDid) {
  constexpr int kDrawings = 30;
  for (int i = 0; i < kDrawings; ++i) write("many/" + std::to_string(i) + ".dxf", textDrawing());
  const auto job = [](const std::string& name, const std::string& to) {
    return std::vector<std::string>{"each", "many", "--jobs",      "2",  "--report", name, "-c",
                                    "MOVE", "-c",   "@select all", "-c", "@enter",   "-c", "0,0",
                                    "-c",   to};
  };
  const pid_t other = start(job("x.jsonl", "1,0"));
  run(job("y.jsonl", "0,100"));
  finish(other);
  auto xs = report("x.jsonl");
  auto ys = report("y.jsonl");
  for (int i = 0; i < kDrawings; ++i) {
    const std::string drawing = "many/" + std::to_string(i) + ".dxf";
    const bool x = xs[drawing]["status"] == "done";
    const bool y = ys[drawing]["status"] == "done";
    EXPECT_TRUE(x || y) << xs[drawing] << ys[drawing];
    const std::string listed = run({"list", drawing, "--format", "csv"}).out;
    EXPECT_EQ(countOf(listed, ",11,"), x ? 2U : 0U) << listed;
    EXPECT_EQ(countOf(listed, ",110,0") + countOf(listed, ",120,0"), y ? 2U : 0U) << listed;
  }
}

}  // namespace
}  // namespace kovra::test
