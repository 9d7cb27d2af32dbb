#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <random>

#include "platform/dxf/record_scan.h"
#include "platform/dxf/structure.h"
#include "tests/dxf/drawings.h"

namespace kovra::dxf::test {
namespace {

TEST(RoundTrip, EveryFormComesBackAsItIs) {
  for (const Form& form : allForms()) {
    const std::string drawing = sampleDrawing(form);
    const auto store = open(drawing);
    EXPECT_EQ(store->toBytes(), drawing) << form.name;
    EXPECT_EQ(store->dialect().release, form.release) << form.name;
    EXPECT_EQ(store->dialect().binary, form.binary) << form.name;
    EXPECT_EQ(store->dialect().codePage, form.codePage) << form.name;
  }
}

using Files = std::vector<std::pair<const char*, std::string>>;

Files oddFiles() {
  return {
      {"text behind EOF", "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\nmore\n0\n"},
      {"no line end at the end", "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF"},
      {"no EOF", "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  8\n0\n  0\nENDSEC\n"},
      {"blank lines and a Ctrl-Z at the end", "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n \n\n\x1a"},
      {"one record", "0\nEOF\n"},
      {"ENDSEC twice", "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nENDSEC\n0\nEOF\n"},
      {"a byte order mark", "\xef\xbb\xbf  0\nSECTION\n  2\nENTITIES\n  0\nENDSEC\n  0\nEOF\n"},
      {"mixed line ends, tabs, blanks",
       " 0\r\nSECTION\n  2\nENTITIES\r\n\t0\n LINE \r\n 8 \n 0 \n0\nENDSEC\n0\nEOF\r\n"},
      {"comments", "999\nfirst\n0\nSECTION\n2\nENTITIES\n999\nx\n0\nENDSEC\n0\nEOF\n"},
      {"OBJECTS before ENTITIES",
       "0\nSECTION\n2\nOBJECTS\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n"},
  };
}

/// Files that aren't drawings behind what is said of them.
Files badFiles() {
  return {
      {"f: the file is empty", ""},
      {"f: a DWG file (AC1032), not a DXF file", std::string("AC1032\0\0\0", 9)},
      {"f: line 1: \"Dear reader\" is no group code", "Dear reader\n\nthis is a letter\n"},
      {"f: line 1: no DXF file: it doesn't begin with a record (group 0)", "\n\n\n"},
      {"f: line 1: no DXF file: it doesn't begin with a record (group 0)", "  8\n0\n"},
      {"f: line 1: no DXF file: it has no section", "0\nHELLO\n1\nx\n"},
      {"f: line 7: the file ends inside a group", "0\nSECTION\n2\nENTITIES\n0\nLINE\n10\n"},
      {"f: line 7: the file ends inside a group", "0\nSECTION\n2\nENTITIES\n0\nLINE\n10"},
      {"f: line 7: the file ends inside a group", "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEO"},
      {"f: line 7: the file ends inside the section ENTITIES",
       "0\nSECTION\n2\nENTITIES\n0\nLINE\n"},
      {"f: line 5: the file ends inside the section BLOCKS", "0\nSECTION\n2\nBLOCKS\n0\nEOF\n"},
      {"f: line 7: \"lost line\" is no group code",
       "0\nSECTION\n2\nENTITIES\n0\nLINE\nlost line\n8\n0\n"},
      {"f: byte 50: the file ends inside a group",
       write("0 SECTION\n2 ENTITIES\n0 LINE\n10 1.5", {"", kR2000, true}).substr(0, 59)},
  };
}

TEST(RoundTrip, OddFilesComeBackAsTheyAre) {
  for (const auto& [name, bytes] : oddFiles()) {
    const auto store = RecordStore::fromBytes(bytes);
    ASSERT_TRUE(store.ok()) << name << ": " << store.error().message;
    EXPECT_EQ(store.value()->toBytes(), bytes) << name;
    Structure(*store.value()).addLayer(L"new", 3);
    const auto grown = RecordStore::fromBytes(store.value()->toBytes());
    EXPECT_TRUE(grown.ok()) << name << ": " << grown.error().message;
  }
}

TEST(RoundTrip, WhatIsNoDrawingIsRefusedWithItsLine) {
  for (const auto& [message, bytes] : badFiles()) {
    const auto store = RecordStore::fromBytes(bytes, "f");
    ASSERT_FALSE(store.ok()) << message;
    EXPECT_EQ(store.error().message, message);
  }
}

/// What a scan finds when so many bytes come at a time.
std::string scanned(const std::string& bytes, std::size_t piece) {
  const auto source = [&](std::size_t seen) {
    return std::string_view(bytes).substr(0, seen + piece);
  };
  const Result<ScannedFile> file = scanRecords(source, "f");
  if (!file) return file.error().message;
  std::string found = std::to_string(file.value().recordsEnd);
  for (std::size_t n = 0; n < file.value().records.size(); ++n) {
    const RecordTable& records = file.value().records;
    found += " " + std::to_string(records[n].begin()) + ":" + formatHandle(records.handle(n)) +
             ":" + formatHandle(records.owner(n)) + ":" + std::to_string(records[n].flags);
  }
  return found;
}

TEST(RoundTrip, AFileThatComesInPiecesIsReadAlike) {
  Files files = oddFiles();
  for (const auto& file : badFiles()) files.push_back(file);
  for (const Form& form : allForms()) files.emplace_back("a sample", sampleDrawing(form));
  for (const auto& [name, bytes] : files) {
    const std::string whole = scanned(bytes, bytes.size() + 1);
    for (const std::size_t piece : {1U, 31U, 200U}) EXPECT_EQ(scanned(bytes, piece), whole) << name;
  }
}

/// Random edits of every kind, each with the state that takes it back.
class RandomEdits {
 public:
  RandomEdits(RecordStore& store, unsigned seed) : store_(store), random_(seed) {}

  void change() {
    const auto record = static_cast<RecordIndex>(random_() % store_.count());
    if (store_.erased(record)) return;
    undo_.push_back({record, store_.state(record)});
    store_.load(record, draft_);
    const std::size_t group = random_() % draft_.size();
    switch (random_() % 5) {
      case 0:
        if (group != 0) draft_.erase(group);
        break;
      case 1:
        draft_.insertInteger(group + 1, 70, 5);
        break;
      case 2:
        draft_.insertText(draft_.size(), 1000, "new");
        break;
      case 3:
        if (group != 0) store_.setErased(record, true);
        break;
      default:
        if (group != 0) draft_.setText(group, "17");
        break;
    }
    store_.replace(record, draft_);
  }

  void undoAll() {
    for (; !undo_.empty(); undo_.pop_back())
      store_.restore(undo_.back().first, undo_.back().second);
  }

 private:
  RecordStore& store_;
  std::mt19937 random_;
  std::vector<std::pair<RecordIndex, RecordState>> undo_;
  RecordDraft draft_;
};

TEST(RoundTrip, UndoneEditsLeaveNoTrace) {
  for (const Form& form : allForms()) {
    const std::string drawing = sampleDrawing(form);
    for (unsigned seed = 1; seed <= 20; ++seed) {
      const auto store = open(drawing);
      RandomEdits edits(*store, seed);
      for (int n = 0; n < 60; ++n) edits.change();
      EXPECT_TRUE(store->changed());
      EXPECT_NE(store->toBytes(), drawing);
      edits.undoAll();
      EXPECT_EQ(store->toBytes(), drawing) << form.name << " seed " << seed;
      EXPECT_FALSE(store->changed());
    }
  }
}

TEST(RoundTrip, FilesOnDisk) {
  const std::string path =
      ::testing::TempDir() + "round_trip" + std::to_string(::getpid()) + ".dxf";
  for (const Form& form : allForms()) {
    std::ofstream(path, std::ios::binary) << sampleDrawing(form);
    const Result<void> checked = checkRoundTrip(path);
    EXPECT_TRUE(checked.ok()) << checked.error().message;
  }
  std::ofstream(path, std::ios::binary) << "no drawing";
  EXPECT_EQ(checkRoundTrip(path).error().message,
            path + ": line 1: \"no drawing\" is no group code");
  ::unlink(path.c_str());
  EXPECT_EQ(checkRoundTrip(path).error().kind, ErrorKind::kNotFound);
  EXPECT_EQ(checkRoundTrip(::testing::TempDir()).error().kind, ErrorKind::kNotReadable);
}

}  // namespace
}  // namespace kovra::dxf::test
