#include "module/align/value_picks.h"

#include <cmath>

#include "module/align/apply_values.h"
#include "module/drawing/entity_pick.h"
#include "module/drawing/number_text.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kDistancePrompt = 7725;

/// Reads the values if the entity is a text.
PickAnswer readText(const ads_name entity, TextValues& values) {
  AcDbObjectId id;
  AcDbObject* object = nullptr;
  if (acdbGetObjectId(id, entity) != Acad::eOk ||
      acdbOpenObject(object, id, AcDb::kForRead) != Acad::eOk) {
    return PickAnswer::ended;
  }
  const AcDbText* const text = AcDbText::cast(object);
  if (text != nullptr) values = TextValuesOf(*text);
  object->close();
  return text != nullptr ? PickAnswer::picked : PickAnswer::missed;
}

PickAnswer pickOnce(TextValues& values, const ACHAR* prompt) {
  ads_name entity = {};
  ads_point point = {};
  const PickAnswer answer = PickAnswerOf(acedEntSel(prompt, entity, point));
  return answer == PickAnswer::picked ? readText(entity, values) : answer;
}

}  // namespace

bool PickTextValues(TextValues& values, const ACHAR* prompt) {
  values = {};
  PickAnswer pick = PickAnswer::missed;
  while (pick == PickAnswer::missed) pick = pickOnce(values, prompt);
  return pick == PickAnswer::picked;
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
