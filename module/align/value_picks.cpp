#include "module/align/value_picks.h"

#include <cmath>

#include "module/align/apply_values.h"
#include "module/drawing/number_text.h"
#include "module/drawing/system_variables.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kDistancePrompt = 7725;
constexpr int kEmptyAnswer = 52;

enum class Pick { text, other, ended };

bool answeredWithNothing() {
  int reason = 0;
  GetVar(L"ERRNO", reason);
  return reason == kEmptyAnswer;
}

/// Reads the values if the entity is a text.
Pick readText(const ads_name entity, TextValues& values) {
  AcDbObjectId id;
  AcDbObject* object = nullptr;
  if (acdbGetObjectId(id, entity) != Acad::eOk ||
      acdbOpenObject(object, id, AcDb::kForRead) != Acad::eOk) {
    return Pick::ended;
  }
  const AcDbText* const text = AcDbText::cast(object);
  if (text != nullptr) values = TextValuesOf(*text);
  object->close();
  return text != nullptr ? Pick::text : Pick::other;
}

Pick pickOnce(TextValues& values, const ACHAR* prompt) {
  ads_name entity = {};
  ads_point point = {};
  switch (acedEntSel(prompt, entity, point)) {
    case RTNORM:
      return readText(entity, values);
    case RTERROR:
      return answeredWithNothing() ? Pick::ended : Pick::other;
    default:
      return Pick::ended;
  }
}

}  // namespace

bool PickTextValues(TextValues& values, const ACHAR* prompt) {
  values = {};
  Pick pick = Pick::other;
  while (pick == Pick::other) pick = pickOnce(values, prompt);
  return pick == Pick::text;
}

bool MeasureDistance(CString& distance) {
  const CString prompt = ResourceText(kDistancePrompt);
  ads_point first = {};
  ads_point second = {};
  if (acedGetPoint(nullptr, prompt.GetString(), first) != RTNORM ||
      acedGetCorner(first, prompt.GetString(), second) != RTNORM) {
    return false;
  }
  distance =
      DecimalText(std::hypot(second[X] - first[X], second[Y] - first[Y], second[Z] - first[Z]));
  return true;
}

}  // namespace kovra
