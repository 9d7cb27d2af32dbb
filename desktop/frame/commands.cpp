#include "desktop/frame/commands.h"

#include "desktop/frame/captions.h"
#include "desktop/loop/texts.h"

namespace kovra::desktop {
namespace {

/// The letter A of most icons here, in its usual place.
constexpr const char* kLetter = "M3 19 L8 5 L13 19 M5 14 L11 14";

constexpr Command kTextCommands[] = {
    {L"KOVRA_TEXT", {"&Text", "文字入力(&T)"}, {"M6 20 L12 4 L18 20 M8 15 L16 15", ""}},
    {L"KOVRA_TEXT_COUNTUP",
     {"Count-&up copy", "カウントアップ複写(&U)"},
     {"M4 9 L7 6 L7 18 M4 18 L10 18", "M13 8 L16 6 L19 8 L19 11 L13 18 L20 18"}},
    {L"KOVRA_TEXT_ALIGN",
     {"Ali&gn texts", "文字整列(&G)"},
     {"M4 2 L4 22", "M8 6 L21 6 M8 12 L17 12 M8 18 L21 18"}},
    {L"KOVRA_TEXT_RESIZEH",
     {"Text &height", "文字の高さ変更(&H)"},
     {kLetter, "M18 4 L18 20 M15 7 L18 4 L21 7 M15 17 L18 20 L21 17"}},
    {L"KOVRA_TEXT_PROPERTIES",
     {"Change text &properties", "文字のプロパティ変更(&P)"},
     {kLetter, "M15 7 L22 7 M15 12 L22 12 M15 17 L22 17"}},
    {L"KOVRA_TEXT_EDITPROP",
     {"&Edit text properties (sets)", "文字プロパティ編集(&E)"},
     {kLetter, "M14 20 L15 16 L20 8 L23 10 L18 18 Z"}},
    {L"KOVRA_ATTR_COPY",
     {"&Copy attribute properties", "属性のプロパティ複写(&C)"},
     {"M2 5 L11 5 L11 19 L2 19 Z M4 9 L9 9 M4 13 L9 13", "M13 12 L21 12 M18 8 L22 12 L18 16"}},
    {L"KOVRA_ATTR_COPY_ALL",
     {"Copy &attribute properties (data version 12)",
      "属性のプロパティ複写 (データバージョン12)(&A)"},
     {"M2 8 L9 8 L9 20 L2 20 Z M5 8 L5 4 L12 4 L12 16 L9 16", "M14 12 L21 12 M18 8 L22 12 L18 16"}},
    {L"-KOVRA_ATTR_COPY",
     {"Set attributes in the command &line", "コマンドラインで属性を設定(&L)"},
     {"M2 4 L22 4 L22 20 L2 20 Z", "M5 9 L9 12 L5 15 M11 16 L18 16"}},
    {L"KOVRA_OPTIONS",
     {"&Options...", "オプション(&O)..."},
     {"M3 7 L21 7 M3 17 L21 17", "C9 7 3 C15 17 3"}},
};

constexpr Command kEditorCommands[] = {
    {L"ERASE",
     {"&Erase", "削除(&E)"},
     {"M9 20 L3 14 L14 3 L21 10 L11 20 L9 20 L21 20", "M8 9 L15 16"}},
    {L"MOVE", {"&Move", "移動(&M)"}, {}},
    {L"REGEN", {"&Regenerate", "再作図(&R)"}, {}},
};

}  // namespace

std::span<const Command> textCommands() {
  return kTextCommands;
}

std::span<const Command> editorCommands() {
  return kEditorCommands;
}

const Command* findCommand(std::wstring_view name) {
  for (const auto commands : {textCommands(), editorCommands()})
    for (const Command& command : commands)
      if (name == command.name) return &command;
  return nullptr;
}

QString commandTitle(std::wstring_view name) {
  if (const Command* command = findCommand(name)) return withoutKey(command->title.text());
  return name == L"CLAYER" ? sayPlain(Caption::kLayer) : toQt(name);
}

}  // namespace kovra::desktop
