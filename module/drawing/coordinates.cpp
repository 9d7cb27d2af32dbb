#include "module/drawing/coordinates.h"

namespace kovra {
namespace {

constexpr short kWorld = 0;
constexpr short kUcs = 1;

resbuf systemOf(short number) {
  resbuf system{};
  system.restype = RTSHORT;
  system.resval.rint = number;
  return system;
}

void convert(const ads_point from, const resbuf& source, short toSystem, ads_point to) {
  const resbuf target = systemOf(toSystem);
  ads_point given;
  ads_point_set(from, given);
  acedTrans(given, &source, &target, 0, to);
}

}  // namespace

void WorldToUcs(const ads_point world, ads_point ucs) {
  convert(world, systemOf(kWorld), kUcs, ucs);
}

void UcsToWorld(const ads_point ucs, ads_point world) {
  convert(ucs, systemOf(kUcs), kWorld, world);
}

void EntityToWorld(const ads_name entity, const ads_point inPlane, ads_point world) {
  resbuf plane{};
  plane.restype = RTENAME;
  ads_name_set(entity, plane.resval.rlname);
  convert(inPlane, plane, kWorld, world);
}

void SetTranslation(ads_matrix transform, const ads_point way) {
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) transform[row][column] = row == column ? 1.0 : 0.0;
  }
  for (int axis = X; axis <= Z; ++axis) transform[axis][3] = way[axis];
}

}  // namespace kovra
