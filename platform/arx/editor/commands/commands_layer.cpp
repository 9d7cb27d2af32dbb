#include <functional>
#include <string>
#include <vector>

#include "platform/arx/base/symbol_names.h"
#include "platform/arx/base/wildcard.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/symbol_table.h"
#include "platform/arx/editor/commands/builtin_commands.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/prompts/prompts.h"
#include "platform/win/base/wide_text.h"

namespace kovra::arx {
namespace {

constexpr host::NamesAsked kOneLayer{host::NameKind::kLayer};
constexpr host::NamesAsked kLayers{host::NameKind::kLayer, true};

std::wstring currentLayer(AcApDocument& document) {
  const Result<VariableValue> layer = readVariable(document, L"CLAYER");
  return layer ? layer.value().text : std::wstring();
}

/// Runs over the layer table; the callback gets the table's name and the record, open for write.
void forEachLayer(AcApDocument& document,
                  const std::function<void(const std::wstring&, AcDbLayerTableRecord&)>& work) {
  AcDbLayerTable* table = nullptr;
  if (document.database()->getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return;
  AcDbLayerTableIterator* iterator = nullptr;
  table->newIterator(iterator);
  for (; !iterator->done(); iterator->step()) {
    AcDbLayerTableRecord* layer = nullptr;
    if (iterator->getRecord(layer, AcDb::kForWrite) != Acad::eOk) continue;
    const ACHAR* name = nullptr;
    if (layer->getName(name) == Acad::eOk) work(std::wstring(name), *layer);
    layer->close();
  }
  delete iterator;
  table->close();
}

bool layerExists(AcApDocument& document, const std::wstring& name) {
  AcDbLayerTable* table = nullptr;
  if (document.database()->getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return false;
  const bool found = table->has(name.c_str());
  table->close();
  return found;
}

bool addLayer(AcApDocument& document, const std::wstring& name) {
  AcDbLayerTable* table = nullptr;
  if (document.database()->getSymbolTable(table, AcDb::kForWrite) != Acad::eOk) return false;
  auto* layer = new AcDbLayerTableRecord();
  layer->setName(name.c_str());
  const bool added = table->add(layer) == Acad::eOk;
  if (added)
    layer->close();
  else
    delete layer;
  table->close();
  return added;
}

/// Makes the layer if it is missing. False after telling why not.
bool ensureLayer(AcApDocument& document, const Reply& typed, const std::wstring& name,
                 bool mayExist) {
  if (!isSymbolName(name)) {
    refuseAnswer(typed.asAnswer(), L"Invalid layer name \"" + name + L"\".");
    return false;
  }
  if (layerExists(document, name)) {
    if (!mayExist) showMessage(L"Layer \"" + name + L"\" already exists.");
    return mayExist;
  }
  return addLayer(document, name);
}

/// False after telling why not.
bool makeCurrent(AcApDocument& document, const Reply& typed, const std::wstring& name) {
  VariableValue value;
  value.type = RTSTR;
  value.text = name;
  const Result<void> written = writeVariable(document, L"CLAYER", value);
  if (!written) refuseAnswer(typed.asAnswer(), win::fromUtf8(written.error().message) + L".");
  return written.ok();
}

void newLayers(AcApDocument& document) {
  const Reply typed = askText(L"Enter name list for new layer(s): ", Blanks::kTextInQuotes);
  if (!typed) return;
  for (const std::wstring& name : splitNames(typed.text)) ensureLayer(document, typed, name, false);
}

/// Asks for the layer to make current until one fits; an empty answer leaves it.
void chooseCurrent(AcApDocument& document, const wchar_t* prompt, bool create) {
  for (;;) {
    const Reply typed = askText(prompt + (L" <" + currentLayer(document)) + L">: ",
                                Blanks::kTextInQuotes, kOneLayer);
    if (!typed || typed.text.empty()) return;
    if (create && !ensureLayer(document, typed, typed.text, true)) continue;
    if (makeCurrent(document, typed, typed.text)) return;
  }
}

using LayerChange = void (*)(AcApDocument&, const Reply&, const std::wstring&,
                             AcDbLayerTableRecord&);

/// Asks for a list of names with wild cards and changes the layers that match.
void changeLayers(AcApDocument& document, const wchar_t* prompt, LayerChange change) {
  const Reply typed = askText(prompt, Blanks::kTextInQuotes, kLayers);
  if (!typed || typed.text.empty()) return;
  bool any = false;
  forEachLayer(document, [&](const std::wstring& name, AcDbLayerTableRecord& layer) {
    if (!wildcardMatch(name, typed.text, true)) return;
    any = true;
    change(document, typed, name, layer);
  });
  if (!any) refuseAnswer(typed.asAnswer(), L"No matching layer names found.");
}

void turnOn(AcApDocument&, const Reply&, const std::wstring&, AcDbLayerTableRecord& layer) {
  layer.setIsOff(false);
}

void turnOff(AcApDocument& document, const Reply&, const std::wstring& name,
             AcDbLayerTableRecord& layer) {
  if (win::equalNoCase(name, currentLayer(document))) {
    const Reply sure =
        askKeyword(L"Really want layer \"" + name + L"\" (the CURRENT layer) off? [Yes/No] <N>: ",
                   KeywordList(L"Yes No"));
    if (!sure || sure.text != L"Yes") return;
  }
  layer.setIsOff(true);
}

void freeze(AcApDocument&, const Reply& typed, const std::wstring& name,
            AcDbLayerTableRecord& layer) {
  if (layer.setIsFrozen(true) != Acad::eOk)
    refuseAnswer(typed.asAnswer(),
                 L"Cannot freeze layer \"" + name + L"\". It is the CURRENT layer.");
}

void thaw(AcApDocument&, const Reply&, const std::wstring&, AcDbLayerTableRecord& layer) {
  layer.setIsFrozen(false);
}

void lock(AcApDocument&, const Reply&, const std::wstring&, AcDbLayerTableRecord& layer) {
  layer.setIsLocked(true);
}

void unlock(AcApDocument&, const Reply&, const std::wstring&, AcDbLayerTableRecord& layer) {
  layer.setIsLocked(false);
}

void listLayers(AcApDocument& document) {
  const Reply typed = askText(L"Enter layer name(s) to list <*>: ", Blanks::kTextInQuotes, kLayers);
  if (!typed) return;
  const std::wstring wanted = typed.text.empty() ? L"*" : typed.text;
  forEachLayer(document, [&](const std::wstring& name, AcDbLayerTableRecord& layer) {
    if (!wildcardMatch(name, wanted, true)) return;
    std::wstring line = L"\"" + name + L"\"  " + (layer.isOff() ? L"Off" : L"On");
    if (layer.isFrozen()) line += L" Frozen";
    if (layer.isLocked()) line += L" Locked";
    showMessage(line + L"  " + std::to_wstring(layer.colorIndex()));
  });
}

void carryOut(AcApDocument& document, const std::wstring& option) {
  if (option == L"?") return listLayers(document);
  if (option == L"New") return newLayers(document);
  if (option == L"Make")
    return chooseCurrent(document, L"Enter name for new layer (becomes the current layer)", true);
  if (option == L"Set") return chooseCurrent(document, L"Enter layer name to make current", false);
  struct Row {
    const wchar_t* option;
    const wchar_t* prompt;
    LayerChange change;
  };
  static constexpr Row kRows[] = {
      {L"ON", L"Enter name list of layer(s) to turn on: ", turnOn},
      {L"OFF", L"Enter name list of layer(s) to turn off: ", turnOff},
      {L"Freeze", L"Enter name list of layer(s) to freeze: ", freeze},
      {L"Thaw", L"Enter name list of layer(s) to thaw: ", thaw},
      {L"LOck", L"Enter name list of layer(s) to lock: ", lock},
      {L"Unlock", L"Enter name list of layer(s) to unlock: ", unlock},
  };
  for (const Row& row : kRows)
    if (option == row.option) return changeLayers(document, row.prompt, row.change);
}

}  // namespace

void layerCommand(AcApDocument& document) {
  showMessage(L"Current layer:  \"" + currentLayer(document) + L"\"");
  const KeywordList options(L"? Make Set New ON OFF Freeze Thaw LOck Unlock");
  for (;;) {
    const Reply option =
        askKeyword(L"Enter an option [?/Make/Set/New/ON/OFF/Freeze/Thaw/LOck/Unlock]: ", options);
    if (!option) return;
    carryOut(document, option.text);
  }
}

}  // namespace kovra::arx
