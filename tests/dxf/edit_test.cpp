#include <gtest/gtest.h>

#include <functional>

#include "platform/dxf/structure.h"
#include "tests/dxf/drawings.h"

namespace kovra::dxf::test {
namespace {

/// Changes one record of the sample and tells which lines of the file that changed.
std::vector<std::string> linesChangedBy(const Form& form, std::uint64_t handle,
                                        const std::function<void(RecordDraft&)>& change) {
  const std::string before = sampleDrawing(form);
  const auto store = open(before);
  RecordDraft draft;
  const RecordIndex record = at(*store, handle);
  store->load(record, draft);
  change(draft);
  store->replace(record, draft);
  return changedLines(before, store->toBytes());
}

using Lines = std::vector<std::string>;

TEST(Edit, ChangesNothingButTheValue) {
  const Form form{"", kR2000, false, true};
  const TextCodec codec(open(sampleDrawing(form))->dialect());
  struct Case {
    const char* name;
    std::function<void(RecordDraft&)> change;
    Lines lines;
  };
  const Case cases[] = {
      {"a real",
       [](RecordDraft& d) { d.setReal(d.find("AcDbText", 40), 0.1); },
       {"2.50\r -> 0.1\r"}},
      {"a whole real",
       [](RecordDraft& d) { d.setReal(d.find("AcDbText", 40), 3); },
       {"2.50\r -> 3.0\r"}},
      {"an integer keeps its columns",
       [](RecordDraft& d) { d.setInteger(d.find("AcDbAttribute", 74), 3); },
       {"    2\r -> "
        "    3\r"}},
      {"the second 280",
       [](RecordDraft& d) { d.setInteger(d.find("AcDbAttribute", 280, 1), 0); },
       {"    1\r ->     0\r"}},
      {"an equal real", [](RecordDraft& d) { d.setReal(d.find("AcDbText", 40), 2.5); }, {}},
      {"an equal integer", [](RecordDraft& d) { d.setInteger(d.find(62), 3); }, {}},
      {"an equal handle", [](RecordDraft& d) { d.setHandle(d.find(330), 0x50); }, {}},
      {"set and set back",
       [](RecordDraft& d) {
         const std::size_t height = d.find("AcDbText", 40);
         d.setReal(height, 7);
         d.setReal(height, 2.5);
       },
       {}},
      {"set several times, beside another",
       [](RecordDraft& d) {
         const std::size_t height = d.find("AcDbText", 40);
         d.setReal(height, 7);
         d.setText(d.find("AcDbText", 1), "C7");
         d.setReal(height, 8);
         d.setReal(height, 12);
       },
       {"2.50\r -> 12.0\r", "M1\r -> C7\r"}},
      {"inserted and taken out",
       [](RecordDraft& d) {
         const std::size_t end = d.endOf("AcDbText");
         d.insertReal(end, 41, 0.8);
         d.erase(end);
       },
       {}},
      {"taken out and inserted again",
       [](RecordDraft& d) {
         const std::size_t height = d.find("AcDbText", 40);
         d.erase(height);
         d.insertReal(height, 40, 2.5);
       },
       {}},
      {"extended data",
       [](RecordDraft& d) { d.setReal(d.findIn(d.xdata("KOVRA"), 1040), 4); },
       {"2.5\r -> 4.0\r"}},
      {"text of two lines keeps the first",
       [](RecordDraft& d) { d.setText(d.find("AcDbText", 1), "a\nb"); },
       {"M1\r -> a\r"}},
      {"wide text",
       [&](RecordDraft& d) { d.setText(d.find("AcDbText", 1), L"\u00e4\u4e2d", codec); },
       {"M1\r -> \xe4\\U+4E2D\r"}},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(linesChangedBy(form, 0x51, test.change), test.lines) << test.name;
  }
}

TEST(Edit, AValueOfAnotherTypeKeepsTheRecordWhole) {
  const std::function<void(RecordDraft&, std::size_t)> setters[] = {
      [](RecordDraft& draft, std::size_t group) { draft.setReal(group, 2.75); },
      [](RecordDraft& draft, std::size_t group) { draft.setInteger(group, 77); },
      [](RecordDraft& draft, std::size_t group) { draft.setHandle(group, 0x1F2); },
      [](RecordDraft& draft, std::size_t group) { draft.setText(group, "some text"); },
  };
  for (const bool binary : {false, true}) {
    const auto store = open(sampleDrawing({"", kR2000, binary, false}));
    const RecordIndex record = at(*store, 0x51);
    const RecordState before = store->state(record);
    RecordDraft draft;
    RecordDraft again;
    std::string scratch;
    store->load(record, draft);
    for (std::size_t group = 1; group < draft.size(); ++group) {
      for (const auto& set : setters) {
        store->load(record, draft);
        set(draft, group);
        store->replace(record, draft);
        again.decode(store->bytes(record, scratch), store->dialect());
        ASSERT_EQ(again.size(), draft.size()) << binary << " " << draft.code(group);
        EXPECT_EQ(again.asciiText(group), draft.asciiText(group)) << draft.code(group);
        store->restore(record, before);
      }
    }
  }
}

TEST(Edit, AnEmptyValueOnALastLineWithoutEndIsALine) {
  const std::string drawing = "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nTEXT\n1\nabc";
  const auto store = open(drawing);
  const RecordIndex text = store->previous(kNoRecord);
  RecordDraft draft;
  for (const char* value : {"x", "", "abc"}) {
    store->load(text, draft);
    draft.setText(draft.find(1), value);
    store->replace(text, draft);
    const auto saved = open(store->toBytes());
    saved->load(saved->previous(kNoRecord), draft);
    ASSERT_EQ(draft.size(), 2U) << value;
    EXPECT_EQ(draft.text(1), value);
  }
  EXPECT_EQ(store->toBytes(), drawing);
}

TEST(Edit, AnInsertedGroupFollowsTheRecord) {
  for (const bool padded : {true, false}) {
    for (const bool crlf : {true, false}) {
      const auto store = open(sampleDrawing({"", kR2000, false, crlf, padded}));
      const RecordIndex text = at(*store, 0x54);
      RecordDraft draft;
      store->load(text, draft);
      draft.insertReal(draft.find("AcDbText", 1), 41, 0.8);
      draft.insertInteger(draft.find("AcDbText", 1), 72, 4);
      store->replace(text, draft);
      std::string scratch;
      const std::string end = crlf ? "\r\n" : "\n";
      const std::string pad = padded ? " " : "";
      const std::string expected = "2.5" + end + pad + "41" + end + "0.8" + end + pad + "72" + end +
                                   "    4" + end + (padded ? "  1" : "1") + end;
      EXPECT_NE(store->bytes(text, scratch).find(expected), std::string::npos) << scratch;
    }
  }
}

TEST(Edit, ValuesSetBackInLaterEditsGetTheirBytes) {
  for (const Form& form : allForms()) {
    const std::string before = sampleDrawing(form);
    const auto store = open(before);
    const RecordIndex record = at(*store, 0x51);
    const auto edit = [&](const std::function<void(RecordDraft&)>& change) {
      RecordDraft draft;
      store->load(record, draft);
      change(draft);
      return store->replace(record, draft);
    };
    // The steps meet in one overlay, grow it and shrink it again.
    EXPECT_TRUE(edit([](RecordDraft& d) { d.setReal(d.find("AcDbText", 40), 9); }));
    EXPECT_TRUE(edit([&](RecordDraft& d) { d.setText(d.find(8), L"0", store->codec()); }));
    EXPECT_TRUE(edit([](RecordDraft& d) { d.insertReal(d.find("AcDbText", 1), 41, 0.5); }));
    EXPECT_TRUE(edit([](RecordDraft& d) { d.setReal(d.findIn(d.xdata(), 1040), 3); }) ||
                form.release == kR12);
    EXPECT_TRUE(store->changed());
    EXPECT_TRUE(edit([](RecordDraft& d) { d.erase(d.find("AcDbText", 41)); }));
    EXPECT_TRUE(edit([](RecordDraft& d) { d.setReal(d.find("AcDbText", 40), 2.5); }));
    EXPECT_FALSE(edit([](RecordDraft& d) { d.setReal(d.find("AcDbText", 40), 2.5); }));
    EXPECT_TRUE(edit([&](RecordDraft& d) { d.setText(d.find(8), "Wires"); }));
    edit([](RecordDraft& d) { d.setReal(d.findIn(d.xdata(), 1040), 2.5); });
    EXPECT_FALSE(store->changed()) << form.name;
    EXPECT_EQ(store->toBytes(), before) << form.name;
  }
}

TEST(Edit, AnEscapeSetBackAsALetterKeepsItsBytes) {
  const std::string before = sampleDrawing({"", kR2000});
  const auto store = open(before);
  const RecordIndex text = at(*store, 0x54);
  RecordDraft draft;
  store->load(text, draft);
  const std::size_t value = draft.find("AcDbText", 1);
  const std::wstring old = store->codec().decode(draft.text(value));
  EXPECT_EQ(old, L"\u00e4 text with  blanks");
  draft.setText(value, L"other", store->codec());
  store->replace(text, draft);
  store->load(text, draft);
  draft.setText(value, old, store->codec());
  store->replace(text, draft);
  EXPECT_EQ(store->toBytes(), before);
}

TEST(Edit, RepeatedGroupsKeepTheirPlaces) {
  const std::string before = write(
      "0 SECTION\n2 ENTITIES\n0 LWPOLYLINE\n10 1.00\n20 2.00\n10 3.00\n"
      "20 4.00\n10 5.00\n20 6.00\n0 ENDSEC\n0 EOF");
  const auto store = open(before);
  const RecordIndex record = firstOf(*store, "LWPOLYLINE");
  RecordDraft draft;
  store->load(record, draft);
  draft.erase({3, 5});  // the second vertex
  store->replace(record, draft);
  store->load(record, draft);
  draft.insertReal(3, 10, 3);
  draft.insertReal(4, 20, 4);
  draft.setReal(1, 1.5);
  store->replace(record, draft);
  EXPECT_EQ(changedLines(before, store->toBytes()), Lines{"1.00 -> 1.5"});
}

TEST(Edit, LookupKeepsToTheTypesOwnGroups) {
  const auto store = open(sampleDrawing({"", kR2018}));
  RecordDraft draft;
  store->load(at(*store, 0x51), draft);
  EXPECT_EQ(draft.handle(draft.find(330)), 0x50U) << "not the reactor";
  EXPECT_EQ(draft.find("AcDbText", 73), kNoGroup) << "73 of an attribute is below AcDbAttribute";
  EXPECT_EQ(draft.integer(draft.find("AcDbAttribute", 73)), 6);
  EXPECT_EQ(draft.find(1070), kNoGroup) << "extended data is no group of the type";
  EXPECT_FALSE(draft.appGroup("{ACAD_REACTORS").empty());
  store->load(at(*store, 0x52), draft);
  EXPECT_EQ(draft.real(draft.find(10)), 10.0) << "an exponent reads";
  EXPECT_EQ(draft.real(draft.find(40)), 3.0) << "a whole number reads as a real";
  EXPECT_EQ(draft.find("AcDbAttribute", 1), kNoGroup) << "the embedded object isn't searched";
  EXPECT_EQ(draft.real(draft.findIn(draft.embedded(), 40)), 3.0);
  EXPECT_EQ(draft.real(draft.findIn(draft.xdata("KOVRA"), 1040)), 3.0);
  store->load(at(*store, 0x60), draft);
  EXPECT_EQ(draft.text(draft.find("AcDbXrecord", 102, 1)), "plain") << "102 of an XRECORD is data";
  EXPECT_EQ(draft.handle(draft.find("AcDbXrecord", 330)), 7U);
  EXPECT_EQ(store->owner(at(*store, 0x60)), 0xCU);
}

TEST(Edit, ValuesReadTheSameInBothForms) {
  for (const bool binary : {false, true}) {
    const auto store = open(sampleDrawing({"", kR2000, binary}));
    RecordDraft draft;
    store->load(at(*store, 0x5A), draft);
    EXPECT_EQ(draft.binary(draft.find(310)), std::string("\x00\xff\xa0", 3));
    EXPECT_EQ(draft.asciiText(draft.find(310)), "00FFA0");
    EXPECT_EQ(draft.integer(draft.find(290)), 1);
    EXPECT_EQ(draft.integer(draft.find(90)), 123456);
    EXPECT_EQ(draft.integer(draft.find(160)), 9000000000);
    draft.setInteger(draft.find(90), -2);
    draft.setBinary(draft.find(310), "k");
    draft.insertReal(draft.size(), 40, 1.5);
    ASSERT_TRUE(store->replace(at(*store, 0x5A), draft));
    const auto again = open(store->toBytes());
    again->load(at(*again, 0x5A), draft);
    EXPECT_EQ(draft.integer(draft.find(90)), -2);
    EXPECT_EQ(draft.asciiText(draft.find(310)), "6B");
    EXPECT_EQ(draft.real(draft.find(40)), 1.5);
  }
}

TEST(Edit, RealsAreWrittenShortAndReadBackTheSame) {
  const std::pair<double, const char*> cases[] = {{0.1, "0.1"},
                                                  {3, "3.0"},
                                                  {-0.5, "-0.5"},
                                                  {1e20, "1.0e+20"},
                                                  {1e-7, "1.0e-07"},
                                                  {1.0 / 3, "0.3333333333333333"},
                                                  {123456.75, "123456.75"}};
  for (const auto& [value, text] : cases) {
    EXPECT_EQ(formatReal(value), text);
    double back = 0;
    EXPECT_TRUE(parseReal(text, back));
    EXPECT_EQ(back, value);
  }
  double value = 7;
  for (const char* text : {"", "x", "1.5x", "nan", "inf", "0x10", "1 2"}) {
    EXPECT_FALSE(parseReal(text, value)) << text;
  }
  EXPECT_EQ(value, 7);
}

}  // namespace
}  // namespace kovra::dxf::test
