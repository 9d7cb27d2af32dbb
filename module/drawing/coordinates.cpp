#include "module/drawing/coordinates.h"

namespace kovra {
namespace {

constexpr short kWorld = 0;
constexpr short kUcs = 1;

void convert(const ads_point from, short fromSystem, short toSystem, ads_point to) {
  resbuf source{};
  resbuf target{};
  source.restype = target.restype = RTSHORT;
  source.resval.rint = fromSystem;
  target.resval.rint = toSystem;
  ads_point given;
  ads_point_set(from, given);
  acedTrans(given, &source, &target, 0, to);
}

}  // namespace

void WorldToUcs(const ads_point world, ads_point ucs) {
  convert(world, kWorld, kUcs, ucs);
}

void UcsToWorld(const ads_point ucs, ads_point world) {
  convert(ucs, kUcs, kWorld, world);
}

}  // namespace kovra
