#include "module/drawing/selection_set.h"

#include "module/drawing/auto_var.h"

namespace kovra {

SelectionSet::SelectionSet(SelectionSet&& other) noexcept {
  ads_name_set(other.name_, name_);
  ads_name_clear(other.name_);
}

SelectionSet& SelectionSet::operator=(SelectionSet&& other) noexcept {
  if (this != &other) {
    release();
    ads_name_set(other.name_, name_);
    ads_name_clear(other.name_);
  }
  return *this;
}

bool SelectionSet::create() {
  release();
  return acedSSAdd(nullptr, nullptr, name_) == RTNORM;
}

bool SelectionSet::takeImplied(const resbuf* filter) {
  return get(L"I", nullptr, filter);
}

bool SelectionSet::prompt(const resbuf* filter, const ACHAR* prompt) {
  if (prompt == nullptr) return get(nullptr, nullptr, filter);
  const ACHAR* const addAndRemove[] = {prompt, prompt};
  return get(L":$", addAndRemove, filter);
}

bool SelectionSet::takeAll(const resbuf* filter) {
  return get(L"X", nullptr, filter);
}

bool SelectionSet::add(const ads_name entity) {
  return acedSSAdd(entity, name_, name_) == RTNORM;
}

int SelectionSet::length() const {
  Adesk::Int32 length = 0;
  return acedSSLength(name_, &length) == RTNORM ? length : 0;
}

bool SelectionSet::entityAt(int index, ads_name entity) const {
  return acedSSName(name_, index, entity) == RTNORM;
}

bool SelectionSet::get(const ACHAR* mode, const void* prompts, const resbuf* filter) {
  release();
  if (acedSSGet(mode, prompts, nullptr, filter, name_) != RTNORM) {
    ads_name_clear(name_);
    return false;
  }
  Adesk::Int32 length = 0;
  if (acedSSLength(name_, &length) == RTNORM) return true;
  release();
  return false;
}

void SelectionSet::release() {
  if (ads_name_nil(name_)) return;
  acedSSFree(name_);
  ads_name_clear(name_);
}

bool SelectEntities(SelectionSet& selection, const resbuf* filter, const ACHAR* prompt) {
  if (selection.takeImplied(filter)) return true;
  CAutoVar snap;
  snap.Set(L"SNAPMODE", 0);
  return selection.prompt(filter, prompt);
}

}  // namespace kovra
