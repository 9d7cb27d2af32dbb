#include "platform/arx/editor/picks/selection_prompt.h"

#include <algorithm>
#include <utility>

#include "platform/arx/database/database.h"
#include "platform/arx/database/entity_order.h"
#include "platform/arx/database/object_table.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/documents/ucs.h"
#include "platform/arx/editor/picks/hit_test.h"
#include "platform/arx/editor/prompts/prompts.h"
#include "platform/dxf/structure.h"

namespace kovra::arx {
namespace {

using Ids = std::vector<AcDbObjectId>;

const SelectionSet* inProgress = nullptr;

bool onLockedLayer(AcDbObjectId id) {
  return id.database()->objects().onLockedLayer(id.index());
}

/// One prompt for a selection, from its first question to the closing Enter.
class SelectionDialogue {
 public:
  SelectionDialogue(AcApDocument& document, const SelectionRequest& request, SelectionSet& set)
      : document_(document), request_(request), set_(set), outer_(inProgress) {
    inProgress = &set_;
  }
  ~SelectionDialogue() { inProgress = outer_; }
  SelectionDialogue(const SelectionDialogue&) = delete;
  SelectionDialogue& operator=(const SelectionDialogue&) = delete;

  bool run();

 private:
  void take(const Answer& answer, Ids ids);
  void tellFound(size_t found, size_t locked, size_t changed) const;
  bool text(const Answer& answer);
  bool pickOrBox(const Answer& answer, const AcGePoint3d& first);
  bool box(const Answer& answer, std::optional<bool> crossing);
  void undo();
  bool canBeMember(AcDbObjectId id) const;
  bool isTaken(AcDbObjectId id) const;
  AcDbObjectId memberOf(const PickHit& hit) const;
  Ids inBox(const AcGePoint3d& a, const AcGePoint3d& b, bool crossing) const;
  Attributes kindsTaken() const {
    return request_.attributes ? Attributes::kTaken : Attributes::kLeftOut;
  }
  Ids last() const;
  Question question() const;

  AcApDocument& document_;
  const SelectionRequest& request_;
  SelectionSet& set_;
  const SelectionSet* outer_;
  bool removing_ = false;
  std::vector<Ids> steps_;  ///< what each answer added
};

const KeywordList& selectionWords() {
  static const KeywordList words(L"Window Last Crossing BOX ALL Add Remove Previous Undo");
  return words;
}

Question SelectionDialogue::question() const {
  Question asked;
  asked.kind = host::WaitKind::kSelection;
  asked.prompt = removing_ ? request_.removePrompt : request_.addPrompt;
  asked.takesPoints = true;
  asked.takesEntities = true;
  asked.takesAttributes = request_.attributes;
  asked.keywords = &selectionWords();
  asked.taken = [this](const PickHit& hit) {
    const AcDbObjectId member = memberOf(hit);
    return isTaken(member) ? member : AcDbObjectId();
  };
  return asked;
}

bool SelectionDialogue::run() {
  for (;;) {
    Answer answer = ask(document_, question());
    if (answer.kind == AnswerKind::kCancel) return false;
    if (answer.isEnter()) return true;
    bool goOn = true;
    if (answer.kind == AnswerKind::kEntities)
      take(answer, std::move(answer.entities));
    else if (answer.kind == AnswerKind::kPoint)
      goOn = pickOrBox(answer, answer.point);
    else
      goOn = text(answer);
    if (!goOn) return false;
    if (request_.single && !set_.members().empty()) return true;
  }
}

bool SelectionDialogue::canBeMember(AcDbObjectId id) const {
  const AcDbDatabase& database = *document_.database();
  const dxf::RecordIndex reference =
      request_.attributes ? attributeOwner(database, id.index()) : dxf::kNoRecord;
  return isEntityOfCurrentSpace(database, reference != dxf::kNoRecord ? reference : id.index());
}

/// Whether an object counts that an answer gives; on locked layers only what is taken out.
bool SelectionDialogue::isTaken(AcDbObjectId id) const {
  const bool refused = request_.refuseLocked && !removing_ && onLockedLayer(id);
  return !refused && canBeMember(id) && request_.filter.matches(*document_.database(), id.index());
}

/// What a click hit: the attribute, where attributes can be selected, else what it belongs to.
AcDbObjectId SelectionDialogue::memberOf(const PickHit& hit) const {
  const bool isAttribute =
      request_.attributes &&
      attributeOwner(*document_.database(), hit.leaf.index()) == hit.entity.index();
  return isAttribute ? hit.leaf : hit.entity;
}

Ids SelectionDialogue::inBox(const AcGePoint3d& a, const AcGePoint3d& b, bool crossing) const {
  return entitiesInBox(document_, a, b, crossing, kindsTaken());
}

void SelectionDialogue::take(const Answer&, Ids ids) {
  const AcDbDatabase& database = *document_.database();
  std::erase_if(ids, [&](AcDbObjectId id) {
    return id.database() != &database || !canBeMember(id) ||
           !request_.filter.matches(database, id.index());
  });
  size_t found = ids.size();
  size_t locked = 0;
  if (request_.refuseLocked && !removing_) {
    std::erase_if(ids, onLockedLayer);
    locked = found - ids.size();
  }
  Ids changed;
  for (const AcDbObjectId& id : ids)
    if (removing_ ? set_.remove(id) : set_.add(id)) changed.push_back(id);
  if (messagesShown()) tellFound(found, locked, changed.size());
  if (!removing_) steps_.push_back(std::move(changed));
}

/// What an answer found, and how many of it were left out.
void SelectionDialogue::tellFound(size_t found, size_t locked, size_t changed) const {
  std::wstring line = std::to_wstring(found) + (removing_ ? L" found, " : L" found");
  if (removing_) line += std::to_wstring(changed) + L" removed";
  const size_t total = set_.members().size();
  if (removing_ || total != changed) line += L", " + std::to_wstring(total) + L" total";
  showMessage(line);
  if (locked > 0)
    showMessage(std::to_wstring(locked) +
                (locked == 1 ? L" was on a locked layer." : L" were on a locked layer."));
}

void SelectionDialogue::undo() {
  if (steps_.empty()) return showMessage(L"Command has been completely undone.");
  for (const AcDbObjectId& id : steps_.back()) set_.remove(id);
  steps_.pop_back();
}

Ids SelectionDialogue::last() const {
  Ids newest;
  const AcDbDatabase& database = *document_.database();
  forEachEntity(database,
                [&](dxf::RecordIndex record) { newest.assign(1, database.idOf(record)); });
  return newest;
}

bool SelectionDialogue::pickOrBox(const Answer& answer, const AcGePoint3d& first) {
  if (const std::optional<PickHit> hit = pickAt(document_, first)) {
    take(answer, {memberOf(*hit)});
    return true;
  }
  const AcGePoint3d corner = toUcs(document_, first);
  const Reply second = askCorner(L"Specify opposite corner: ", {kNoNull, {}}, corner);
  if (!second) return second.status != RTCAN;
  const AcGePoint3d opposite = toWorld(document_, second.point);
  take(answer, inBox(first, opposite, opposite.x < first.x));
  return true;
}

bool SelectionDialogue::box(const Answer& answer, std::optional<bool> crossing) {
  const Reply first = askPoint(L"Specify first corner: ", {kNoNull, {}});
  if (!first) return false;
  const Reply second = askCorner(L"Specify opposite corner: ", {kNoNull, {}}, first.point);
  if (!second) return false;
  const AcGeMatrix3d toWorld = ucsToWcs(document_);
  const AcGePoint3d a = AcGePoint3d(first.point).transformBy(toWorld);
  const AcGePoint3d b = AcGePoint3d(second.point).transformBy(toWorld);
  take(answer, inBox(a, b, crossing.value_or(b.x < a.x)));
  return true;
}

bool SelectionDialogue::text(const Answer& answer) {
  const std::optional<size_t> word = selectionWords().match(answer.text);
  if (!word) {
    Reply reply{RTNORM};
    const TextReading reading = readPointText(document_, answer.text, {}, std::nullopt, reply);
    if (reading == TextReading::kIgnored) return true;
    if (reading == TextReading::kAnswer) return pickOrBox(answer, toWorld(document_, reply.point));
    refuseAnswer(answer,
                 L"*Invalid selection* Expects a point or Window/Last/Crossing/BOX/ALL/Add/Remove/"
                 L"Previous/Undo");
    return true;
  }
  const std::wstring& name = selectionWords().globalName(*word);
  if (name == L"Window") return box(answer, false);
  if (name == L"Crossing") return box(answer, true);
  if (name == L"BOX") return box(answer, std::nullopt);
  if (name == L"Last") take(answer, last());
  if (name == L"ALL") take(answer, allEntities(document_, kindsTaken()));
  if (name == L"Previous") take(answer, document_.session().previous);
  if (name == L"Undo") undo();
  if (name == L"Add") removing_ = false;
  if (name == L"Remove") removing_ = true;
  return true;
}

}  // namespace

const SelectionSet* activeSelection() {
  return inProgress;
}

bool askSelection(AcApDocument& document, const SelectionRequest& request, SelectionSet& set) {
  if (!SelectionDialogue(document, request, set).run()) return false;
  if (set.members().empty()) return true;
  // What other commands can have too.
  Ids& previous = document.session().previous;
  previous = set.members();
  std::erase_if(previous, [&](AcDbObjectId id) {
    return !isEntityOfCurrentSpace(*document.database(), id.index());
  });
  return true;
}

bool editableSelection(AcApDocument& document, SelectionSet& set) {
  DocumentSession& session = document.session();
  const bool startedWithOne = session.commands.size() == 1 && !session.implied.empty();
  if (!startedWithOne) {
    static const SelectionRequest request = {.refuseLocked = true};
    return askSelection(document, request, set);
  }
  showMessage(std::to_wstring(session.implied.size()) + L" found");
  size_t locked = 0;
  for (const AcDbObjectId& id : session.implied) {
    if (id.isErased()) continue;
    if (onLockedLayer(id))
      ++locked;
    else
      set.add(id);
  }
  if (locked > 0)
    showMessage(std::to_wstring(locked) +
                (locked == 1 ? L" was on a locked layer." : L" were on a locked layer."));
  return true;
}

}  // namespace kovra::arx
