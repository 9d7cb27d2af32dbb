// What Tab makes of a line, for what waits.
#include "launch/completion.h"

#include <gtest/gtest.h>

#include "platform/win/base/wide_text.h"

namespace kovra::launch {
namespace {

using arx::host::NameKind;
using arx::host::Wait;
using arx::host::WaitKind;

std::vector<Offer> named(std::initializer_list<const wchar_t*> names) {
  std::vector<Offer> offers;
  for (const std::wstring name : names) {
    const size_t note = std::min(name.find(L' '), name.size());
    const bool line = name.starts_with(L'@');
    offers.push_back({line ? name.substr(0, note) : name, {}});
    if (line && note < name.size()) offers.back().note = name.substr(note + 1);
  }
  return offers;
}

std::vector<Offer> files(std::wstring_view folder) {
  if (!folder.empty()) return named({L"a\"b.dxf"});
  std::vector<Offer> offers =
      named({L".hidden.dxf", L"main switch.dxf", L"main supply.dxf", L"Panel.dxf", L"old plans"});
  offers.back().folder = true;
  return offers;
}

std::vector<Offer> offer(OfferKind kind, std::wstring_view context) {
  switch (kind) {
    case OfferKind::kLine:
      return named({L"@check ID on|off", L"@choose ID ITEM", L"@esc", L"@open FILE.dxf",
                    L"@picture FILE [dialog]", L"@files [PROJECT-FILE...]", L"@refused LINE"});
    case OfferKind::kCommand:
      return named({L"-LAYER", L"KOVRA_TEXT", L"KOVRA_TEXT_COUNTUP"});
    case OfferKind::kVariable:
      return named({L"DIMSCALE"});
    case OfferKind::kLayer:
      return named({L"0", L"WIRE NO", L"WIRE TEXT", L"Frame"});
    case OfferKind::kControl:
      return context == L"@choose" ? named({L"1978", L"1985"}) : named({L"1967"});
    case OfferKind::kItem:
      return context == L"1978" ? named({L"Decimal", L"Two words"}) : named({});
    default:
      return files(context);
  }
}

/// The line after Tab, and how many fit.
std::string tab(const std::wstring& line, const Wait& wait) {
  const Completion done = complete(line, wait, offer);
  if (done.candidates.empty()) return "nothing";
  EXPECT_EQ(done.typed, line.substr(done.begin));
  return win::toUtf8(line.substr(0, done.begin) + done.literal) + " " +
         std::to_string(done.candidates.size());
}

Wait waiting(WaitKind kind, NameKind names = NameKind::kNone, bool several = false) {
  Wait wait;
  wait.kind = kind;
  wait.names = {names, several};
  return wait;
}

struct Row {
  const wchar_t* line;
  const char* completed;
};

template <size_t count>
void expectAll(const Wait& wait, const Row (&rows)[count]) {
  for (const Row& row : rows)
    EXPECT_EQ(tab(row.line, wait), row.completed) << win::toUtf8(row.line);
}

TEST(Completion, NamesOfCommandsVariablesAndLines) {
  expectAll(waiting(WaitKind::kIdle), {{L"", " 3"},
                                       {L"kov", "KOVRA_TEXT 2"},
                                       {L"_.KOVRA_TEXT_", "_.KOVRA_TEXT_COUNTUP 1"},
                                       {L"di", "DIMSCALE 1"},
                                       {L"KOVRA_TEXT ", "nothing"},
                                       {L"@c", "@ch 2"},
                                       {L"@che", "@check  1"},  // a blank for what follows
                                       {L"@es", "@esc 1"},
                                       {L"@none x", "nothing"},
                                       {L"@refused @ch", "@refused @ch 2"},
                                       {L"@refused kovra_text_", "@refused KOVRA_TEXT_COUNTUP 1"}});
}

TEST(Completion, WhatADialogTakes) {
  Wait dialog = waiting(WaitKind::kIdle);
  dialog.modalOnTop = true;
  expectAll(dialog, {{L"", "@ 7"},
                     {L"KOV", "nothing"},
                     {L"@check ", "@check 1967  1"},
                     {L"@check 1967 o", "@check 1967 o 2"},
                     {L"@check 1967 of", "@check 1967 off 1"},
                     {L"@choose 19", "@choose 19 2"},
                     {L"@choose 1978 dec", "@choose 1978 Decimal 1"},
                     {L"@choose 1978 Two w", "@choose 1978 Two words 1"},
                     {L"@choose 1978 \"tw", "@choose 1978 \"Two words\" 1"},
                     {L"@choose 1985 ", "nothing"},
                     {L"@esc ", "nothing"}});
}

TEST(Completion, Files) {
  expectAll(waiting(WaitKind::kString),
            {{L"@open ", "@open  4"},
             {L"@open .", "@open .hidden.dxf 1"},
             {L"@open pan", "nothing"},  // case counts
             {L"@open Pan", "@open Panel.dxf 1"},
             {L"@open main su", "@open main supply.dxf 1"},
             {L"@open \"main s", "@open \"main s 2"},
             {L"@open \"main su", "@open \"main supply.dxf\" 1"},
             {L"@open ol", "@open old plans/ 1"},
             {L"@open old plans/", "@open old plans/a\"b.dxf 1"},
             {L"@files Panel.dxf ma", "@files Panel.dxf \"main s 2"},
             {L"@files \"main switch.dxf\" old", "@files \"main switch.dxf\" \"old plans/ 1"},
             {L"@files old/", "@files \"old/a\\\"b.dxf\" 1"},
             {L"@files \"a\"", "nothing"},
             {L"@picture Panel.dxf ", "@picture Panel.dxf dialog 1"},
             {L"@picture Pan", "@picture Panel.dxf  1"}});
}

TEST(Completion, NamesAndKeywordsThatAPromptAsksFor) {
  expectAll(waiting(WaitKind::kString, NameKind::kLayer), {{L"fr", "Frame 1"},
                                                           {L"wi", "\"WIRE  2"},
                                                           {L"\"wire t", "\"WIRE TEXT\" 1"},
                                                           {L"0,fr", "nothing"},
                                                           {L"W*", "nothing"}});
  expectAll(waiting(WaitKind::kString, NameKind::kLayer, true),
            {{L"0,fr", "0,Frame 1"},
             {L"W*,\"WIRE N", "W*,\"WIRE NO\" 1"},
             {L"\"WIRE NO,wire", "\"WIRE NO,WIRE  2"}});
  Wait keywords = waiting(WaitKind::kPoint);
  keywords.keywords = {L"LOck", L"Unlock"};
  expectAll(keywords, {{L"lo", "LOck 1"}, {L"", " 2"}, {L"1,2", "nothing"}});
  expectAll(waiting(WaitKind::kPoint), {{L"", "@ 7"}});
}

}  // namespace
}  // namespace kovra::launch
