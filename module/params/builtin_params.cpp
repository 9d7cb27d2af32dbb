#include "module/params/builtin_params.h"

#include "module/frame/seam.h"

namespace kovra {
namespace {

struct Row {
  const wchar_t* key;
  const wchar_t* value;
};

constexpr Row kRows[] = {
    {L"LAYER_CNT", L"7"},      {L"LAYER1", L"CMNT"},        {L"LAYER2", L"JCMNT"},
    {L"LAYER3", L"ECMNT"},     {L"LAYER4", L"NEWJIS"},      {L"LAYER5", L"OLDJIS"},
    {L"LAYER6", L"SYMBOL"},    {L"LAYER7", L"AUX"},         {L"TEXT_H_CNT", L"8"},
    {L"TEXT_H1", L"1.5"},      {L"TEXT_H2", L"2.0"},        {L"TEXT_H3", L"2.5"},
    {L"TEXT_H4", L"3.0"},      {L"TEXT_H5", L"3.5"},        {L"TEXT_H6", L"4.0"},
    {L"TEXT_H7", L"4.5"},      {L"TEXT_H8", L"5.0"},        {L"TEXT_WF_CNT", L"4"},
    {L"TEXT_WF1", L"1.0"},     {L"TEXT_WF2", L"0.9"},       {L"TEXT_WF3", L"0.8"},
    {L"TEXT_WF4", L"0.7"},     {L"TEXT_ROT_CNT", L"4"},     {L"TEXT_ROT1", L"0.0"},
    {L"TEXT_ROT2", L"90.0"},   {L"TEXT_ROT3", L"-90.0"},    {L"TEXT_ROT4", L"180.0"},
    {L"TEXT_ROW_R_CNT", L"5"}, {L"TEXT_ROW_R1", L"1.0"},    {L"TEXT_ROW_R2", L"1.2"},
    {L"TEXT_ROW_R3", L"1.5"},  {L"TEXT_ROW_R4", L"1.6666"}, {L"TEXT_ROW_R5", L"2.0"},
};
static_assert(sizeof(kRows) / sizeof(Row) == 33);

}  // namespace

const wchar_t* BuiltinParam(const wchar_t* key) {
  for (const Row& row : kRows) {
    if (lstrcmpiW(row.key, key) == 0) return row.value;
  }
  return nullptr;
}

}  // namespace kovra
