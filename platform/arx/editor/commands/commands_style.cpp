#include <cmath>
#include <memory>
#include <numbers>
#include <string>

#include "platform/arx/base/symbol_names.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/record_change.h"
#include "platform/arx/database/symbol_table.h"
#include "platform/arx/editor/commands/builtin_commands.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/prompts/prompts.h"
#include "platform/dxf/record_store.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

struct StyleValues {
  std::wstring font = L"txt";
  double height = 0;
  double width = 1;
  double oblique = 0;  ///< radians
  bool vertical = false;
  bool backwards = false;
  bool upsideDown = false;
};

/// Bits of a style's group 71.
constexpr std::int64_t kBackwards = 2;
constexpr std::int64_t kUpsideDown = 4;
constexpr Property kGeneration{kStylePart, 71};

/// The style's record, open for the mode; null when there is none.
AcDbTextStyleTableRecord* openStyle(AcApDocument& document, const std::wstring& name,
                                    AcDb::OpenMode mode) {
  AcDbTextStyleTable* table = nullptr;
  AcDbTextStyleTableRecord* style = nullptr;
  if (document.database()->getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return nullptr;
  if (table->getAt(name.c_str(), style, mode) != Acad::eOk) style = nullptr;
  table->close();
  return style;
}

StyleValues valuesOf(const AcDbTextStyleTableRecord& style) {
  StyleValues values;
  const ACHAR* font = nullptr;
  if (style.fileName(font) == Acad::eOk && font != nullptr) values.font = font;
  values.height = style.textSize();
  values.width = style.xScale();
  values.oblique = style.obliquingAngle();
  values.vertical = style.isVertical();
  const dxf::RecordStore& store = style.database()->store();
  dxf::RecordDraft draft;
  store.load(style.objectId().index(), draft);
  const std::int64_t generation = readInteger(draft, kGeneration, 0);
  values.backwards = (generation & kBackwards) != 0;
  values.upsideDown = (generation & kUpsideDown) != 0;
  return values;
}

/// What the class of style records has no setter for.
void writeGeneration(AcDbDatabase& database, AcDbObjectId style, const StyleValues& values) {
  changeRecord(database, style.index(), [&](RecordEdit& edit) {
    const std::int64_t others =
        readInteger(edit.draft(), kGeneration, 0) & ~(kBackwards | kUpsideDown);
    edit.setInteger(
        kGeneration,
        others | (values.backwards ? kBackwards : 0) | (values.upsideDown ? kUpsideDown : 0), 0);
  });
}

void write(AcDbTextStyleTableRecord& style, const StyleValues& values) {
  style.setFileName(values.font.c_str());
  style.setTextSize(values.height);
  style.setXScale(values.width);
  style.setObliquingAngle(values.oblique);
  style.setIsVertical(values.vertical);
}

/// A new record in the table, open for write; null when it can't be added.
AcDbTextStyleTableRecord* addStyle(AcApDocument& document, const std::wstring& name) {
  AcDbTextStyleTable* table = nullptr;
  if (document.database()->getSymbolTable(table, AcDb::kForWrite) != Acad::eOk) return nullptr;
  auto style = std::make_unique<AcDbTextStyleTableRecord>();
  style->setName(name.c_str());
  const bool added = table->add(style.get()) == Acad::eOk;
  table->close();
  return added ? style.release() : nullptr;
}

bool hasShapeFont(const std::wstring& font) {
  const size_t point = font.rfind(L'.');
  return point == std::wstring::npos || win::equalNoCase(font.substr(point), L".shx");
}

std::wstring numberText(double value) {
  VariableValue number;
  number.type = RTREAL;
  number.real = value;
  return variableText(number);
}

/// False when cancelled.
bool askValue(const std::wstring& what, int flags, double& value) {
  const Reply reply = askReal(what + L" <" + numberText(value) + L">: ", {flags, {}});
  if (reply) value = reply.real;
  return reply.status != RTCAN;
}

/// False when cancelled. A text that lies flatter would have no end.
bool askOblique(double& radians) {
  constexpr double kFlattest = 85;
  constexpr double kDegree = std::numbers::pi / 180;
  for (;;) {
    const Reply reply =
        askReal(L"Specify obliquing angle <" + numberText(radians / kDegree) + L">: ", {});
    if (!reply) return reply.status != RTCAN;
    if (std::fabs(reply.real) <= kFlattest) {
      radians = reply.real * kDegree;
      return true;
    }
    refuseAnswer(reply.asAnswer(), L"Value must be between -85 and 85.");
  }
}

bool askYes(const std::wstring& question, bool& value) {
  const Reply reply = askKeyword(question + L" [Yes/No] <" + (value ? L"Y" : L"N") + L">: ",
                                 KeywordList(L"Yes No"));
  if (reply) value = reply.text == L"Yes";
  return reply.status != RTCAN;
}

bool askValues(StyleValues& values) {
  const Reply font =
      askText(L"Specify full font name or font filename (TTF or SHX) <" + values.font + L">: ",
              Blanks::kTextInQuotes);
  if (!font) return false;
  if (!font.text.empty()) values.font = font.text;
  return askValue(L"Specify height of text", kNoNegative, values.height) &&
         askValue(L"Specify width factor", kNoNegative | kNoZero, values.width) &&
         askOblique(values.oblique) && askYes(L"Display text backwards?", values.backwards) &&
         askYes(L"Display text upside-down?", values.upsideDown) &&
         (!hasShapeFont(values.font) || askYes(L"Vertical?", values.vertical));
}

std::wstring currentStyle(AcApDocument& document) {
  const Result<VariableValue> style = readVariable(document, L"TEXTSTYLE");
  return style ? style.value().text : std::wstring();
}

void makeCurrent(AcApDocument& document, const std::wstring& name) {
  VariableValue value;
  value.type = RTSTR;
  value.text = name;
  if (writeVariable(document, L"TEXTSTYLE", value))
    showMessage(L"\"" + name + L"\" is now the current text style.");
}

/// The name that was typed, the current style for a plain Enter; empty when cancelled.
std::wstring askStyleName(AcApDocument& document) {
  for (;;) {
    const std::wstring current = currentStyle(document);
    const Reply typed = askText(L"Enter name of text style <" + current + L">: ",
                                Blanks::kTextInQuotes, {host::NameKind::kTextStyle});
    if (!typed) return {};
    const std::wstring name = typed.text.empty() ? current : typed.text;
    if (isSymbolName(name)) return name;
    refuseAnswer(typed.asAnswer(), L"Invalid style name \"" + name + L"\".");
  }
}

}  // namespace

void styleCommand(AcApDocument& document) {
  const std::wstring name = askStyleName(document);
  if (name.empty()) return;
  StyleValues values;
  AcDbTextStyleTableRecord* existing = openStyle(document, name, AcDb::kForRead);
  if (existing != nullptr) {
    values = valuesOf(*existing);
    existing->close();
  }
  showMessage(existing != nullptr ? L"Existing style." : L"New style.");
  if (!askValues(values)) return;
  AcDbTextStyleTableRecord* style =
      existing != nullptr ? openStyle(document, name, AcDb::kForWrite) : addStyle(document, name);
  if (style == nullptr) return;
  write(*style, values);
  const AcDbObjectId id = style->objectId();
  style->close();
  writeGeneration(*document.database(), id, values);
  makeCurrent(document, name);
}

}  // namespace kovra::arx
