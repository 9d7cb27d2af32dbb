#include "module/drawing/entity_pick.h"

#include "module/drawing/group_list.h"
#include "module/drawing/system_variables.h"

namespace kovra {
namespace {

constexpr int kEmptyAnswer = 52;

bool answeredWithNothing() {
  int reason = 0;
  GetVar(L"ERRNO", reason);
  return reason == kEmptyAnswer;
}

}  // namespace

PickAnswer PickAnswerOf(int result) {
  if (result == RTNORM) return PickAnswer::picked;
  if (result == RTCAN) return PickAnswer::ended;
  return result == RTERROR && answeredWithNothing() ? PickAnswer::ended : PickAnswer::missed;
}

PickAnswer PickNestedEntity(const ACHAR* prompt, ads_name entity) {
  ads_point point = {};
  ads_matrix matrix = {};
  resbuf* containers = nullptr;
  const int result = acedNEntSelP(prompt, entity, point, 0, matrix, &containers);
  const GroupList released(containers);
  return PickAnswerOf(result);
}

}  // namespace kovra
