#include "module/frame/companions/numbering_lib.h"

#include <algorithm>
#include <string>
#include <utility>

#include "companions/radix_number.h"

using namespace kovra::companions;

namespace {

bool isLower(wchar_t c) {
  return c >= L'a' && c <= L'z';
}

bool isUpper(wchar_t c) {
  return c >= L'A' && c <= L'Z';
}

bool isLetter(wchar_t c) {
  return isLower(c) || isUpper(c);
}

}  // namespace

struct RadixNumber::State {
  const Numeration* numeration = nullptr;
  bool parsed = false;
  Digits digits;
  std::wstring before;
  std::wstring after;
  std::wstring model;      // as parsed, without the point: a letter in its place keeps its case
  bool lowerCase = false;  // of letters in new places: as the last one of the parsed number
  std::wstring text;
  std::wstring result;

  std::size_t leastDigits() const { return numeration->dotted ? 2 : 1; }
  void clear();
  void parse(std::wstring_view input);
  void pad(std::size_t length);
  bool lowerCaseAt(std::size_t position) const;
  wchar_t spell(std::size_t position) const;
  void spellAll();
};

void RadixNumber::State::clear() {
  const Numeration* kept = numeration;
  *this = State();
  numeration = kept;
}

void RadixNumber::State::parse(std::wstring_view input) {
  const NumberSpan span = findNumber(input, *numeration);
  if (span.length == 0) return;
  before = input.substr(0, span.begin);
  after = input.substr(span.begin + span.length);
  model = input.substr(span.begin, span.length);
  std::erase(model, L'.');
  const auto last = std::find_if(model.rbegin(), model.rend(), isLetter);
  lowerCase = last != model.rend() && isLower(*last);
  for (std::size_t i = model.size(); i > 0; --i) {
    const wchar_t c = model[i - 1];
    const wchar_t upper = isLower(c) ? static_cast<wchar_t>(c - L'a' + L'A') : c;
    const std::size_t value = numeration->alphabet.find(upper);
    digits.push_back(static_cast<std::int8_t>(value + static_cast<std::size_t>(numeration->first)));
  }
  parsed = true;
  spellAll();
}

// Gives the number at least this many digits by leading zeros, or no more of them than that.
void RadixNumber::State::pad(std::size_t length) {
  if (numeration->first == 1) return;
  while (digits.size() > length && digits.back() == 0) digits.pop_back();
  digits.resize(std::max(digits.size(), length), 0);
}

bool RadixNumber::State::lowerCaseAt(std::size_t position) const {
  if (position >= model.size()) return lowerCase;
  const wchar_t old = model[model.size() - 1 - position];
  return isLetter(old) ? isLower(old) : lowerCase;
}

wchar_t RadixNumber::State::spell(std::size_t position) const {
  const int value = digits[position] - numeration->first;
  const wchar_t c = numeration->alphabet[static_cast<std::size_t>(value)];
  if (isUpper(c) && lowerCaseAt(position)) return static_cast<wchar_t>(c - L'A' + L'a');
  return c;
}

void RadixNumber::State::spellAll() {
  text.clear();
  for (std::size_t i = digits.size(); i > 0; --i) {
    if (i == 1 && numeration->dotted) text.push_back(L'.');
    text.push_back(spell(i - 1));
  }
  result = before + text + after;
}

RadixNumber::RadixNumber(int radixCode) : state_(std::make_unique<State>()) {
  state_->numeration = findNumeration(radixCode);
}

RadixNumber::~RadixNumber() = default;

void RadixNumber::SetRadix(int radixCode) {
  const Numeration* to = findNumeration(radixCode);
  const Numeration* from = std::exchange(state_->numeration, to);
  if (!state_->parsed) return;
  if (!to) return state_->clear();
  state_->digits = convertDigits(state_->digits, *from, *to);
  state_->model.clear();  // its places mean other values now
  state_->pad(state_->leastDigits());
  state_->spellAll();
}

bool RadixNumber::Parse(const wchar_t* text, int first, int length) {
  state_->clear();
  if (!text || !state_->numeration || first < 0) return false;
  std::wstring_view input = text;
  input.remove_prefix(std::min(input.size(), static_cast<std::size_t>(first)));
  if (length >= 0) input = input.substr(0, static_cast<std::size_t>(length));
  state_->parse(input);
  return state_->parsed;
}

void RadixNumber::Step(int count) {
  if (!state_->parsed || count <= 0) return;
  shiftDigits(state_->digits, *state_->numeration, count);
  state_->spellAll();
}

bool RadixNumber::StepBack(int count) {
  if (!state_->parsed || count < 0) return false;
  if (!shiftDigits(state_->digits, *state_->numeration, -std::int64_t{count})) return false;
  state_->spellAll();
  return true;
}

const wchar_t* RadixNumber::Text() const {
  return state_->text.c_str();
}

void RadixNumber::SetFormat(const wchar_t* digits) {
  if (!state_->parsed || !digits) return;
  const std::wstring_view form = digits;
  const auto length = form.size() - static_cast<std::size_t>(std::ranges::count(form, L'.'));
  state_->pad(std::max(length, state_->leastDigits()));
  state_->spellAll();
}

const wchar_t* RadixNumber::Result() const {
  return state_->parsed && !state_->digits.empty() ? state_->result.c_str() : nullptr;
}
