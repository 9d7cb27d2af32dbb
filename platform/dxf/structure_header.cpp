#include "platform/dxf/header_variables.h"
#include "platform/dxf/structure.h"

// Header variables: groups of the one record of the HEADER section.
namespace kovra::dxf {

const RecordDraft& Structure::header() const {
  if (!headerLoaded_) {
    if (header_ == kNoRecord) {
      headerDraft_.decode({}, store_.dialect());
    } else {
      store_.load(header_, headerDraft_);
    }
    variables_.clear();
    forEachVariable(headerDraft_, [this](std::string_view name, std::size_t value) {
      variables_.try_emplace(std::string(name), value);
    });
    headerLoaded_ = true;
    paperIsCurrent_ = integerVariable("$TILEMODE") == 0;
  }
  return headerDraft_;
}

std::size_t Structure::variable(std::string_view name) const {
  header();
  const auto found = variables_.find(name);
  return found == variables_.end() ? kNoGroup : found->second;
}

bool Structure::hasVariable(std::string_view name) const {
  return variable(name) != kNoGroup;
}

std::optional<double> Structure::realVariable(std::string_view name) const {
  const std::size_t at = variable(name);
  if (at == kNoGroup) return std::nullopt;
  return headerDraft_.real(at);
}

std::optional<std::int64_t> Structure::integerVariable(std::string_view name) const {
  const std::size_t at = variable(name);
  if (at == kNoGroup) return std::nullopt;
  return headerDraft_.integer(at);
}

std::optional<std::wstring> Structure::textVariable(std::string_view name) const {
  const std::size_t at = variable(name);
  if (at == kNoGroup) return std::nullopt;
  return store_.codec().decode(headerDraft_.text(at));
}

std::optional<HeaderPoint> Structure::pointVariable(std::string_view name) const {
  const std::size_t at = variable(name);
  if (at == kNoGroup) return std::nullopt;
  const RecordDraft& header = headerDraft_;
  HeaderPoint point{header.real(at), 0, 0};
  for (std::size_t n = at + 1; n < header.size() && header.code(n) != 9; ++n) {
    if (header.code(n) == header.code(at) + 10) point.y = header.real(n);
    if (header.code(n) == header.code(at) + 20) point.z = header.real(n);
  }
  return point;
}

void Structure::ensureHeader() {
  if (header_ != kNoRecord) return;
  header_ = addSection("HEADER", SectionKind::kHeader);
  headerLoaded_ = false;
}

/// Changes a variable by `set(draft, group)`, where `group` is its value, or kNoGroup if the
/// variable is missing and its name was just appended.
template <class Set>
void Structure::setVariable(std::string_view name, Set set) {
  ensureHeader();
  RecordDraft draft;
  store_.load(header_, draft);
  const std::size_t at = findVariable(draft, name);
  if (at == kNoGroup) draft.appendText(9, name);
  set(draft, at);
  store_.replace(header_, draft);
}

void Structure::setRealVariable(std::string_view name, int code, double value) {
  setVariable(name, [=](RecordDraft& draft, std::size_t at) {
    at == kNoGroup ? draft.appendReal(code, value) : draft.setReal(at, value);
  });
}

void Structure::setIntegerVariable(std::string_view name, int code, std::int64_t value) {
  setVariable(name, [=](RecordDraft& draft, std::size_t at) {
    at == kNoGroup ? draft.appendInteger(code, value) : draft.setInteger(at, value);
  });
}

void Structure::setTextVariable(std::string_view name, int code, std::wstring_view value) {
  setVariable(name, [&](RecordDraft& draft, std::size_t at) {
    at == kNoGroup ? draft.appendText(code, value, store_.codec())
                   : draft.setText(at, value, store_.codec());
  });
}

void Structure::setPointVariable(std::string_view name, int code, const HeaderPoint& value) {
  setVariable(name, [&](RecordDraft& draft, std::size_t at) {
    if (at == kNoGroup) {
      draft.appendReal(code, value.x);
      draft.appendReal(code + 10, value.y);
      draft.appendReal(code + 20, value.z);
      return;
    }
    const int first = draft.code(at);
    draft.setReal(at, value.x);
    for (std::size_t n = at + 1; n < draft.size() && draft.code(n) != 9; ++n) {
      if (draft.code(n) == first + 10) draft.setReal(n, value.y);
      if (draft.code(n) == first + 20) draft.setReal(n, value.z);
    }
  });
}

}  // namespace kovra::dxf
