#include "platform/arx/editor/picks/jig.h"

#include <cstdarg>

#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/documents/ucs.h"
#include "platform/arx/editor/prompts/prompts.h"
#include "platform/win/base/wide_format.h"
#include "platform/win/resources/loader.h"

namespace kovra::arx {
namespace {

AcEdJig* dragged = nullptr;

/// The jig that is dragged, for the time of a scope; drags may nest.
class ActiveJig {
 public:
  explicit ActiveJig(AcEdJig* jig) : outer_(dragged) { dragged = jig; }
  ~ActiveJig() { dragged = outer_; }
  ActiveJig(const ActiveJig&) = delete;
  ActiveJig& operator=(const ActiveJig&) = delete;

 private:
  AcEdJig* outer_;
};

}  // namespace

AcEdJig* activeJig() {
  return dragged;
}

/// One run of AcEdJig::drag.
class JigDrag {
 public:
  JigDrag(AcApDocument& document, AcEdJig& jig) : document_(document), jig_(jig) {
    jig_.drag_ = this;
  }
  ~JigDrag() { jig_.drag_ = nullptr; }
  JigDrag(const JigDrag&) = delete;
  JigDrag& operator=(const JigDrag&) = delete;

  AcEdJig::DragStatus run();
  AcEdJig::DragStatus acquire(AcGePoint3d& point);
  const std::wstring& text() const { return input_.text; }

 private:
  using Status = AcEdJig::DragStatus;

  Status sample(const Answer& input);
  void moved(const AcGePoint3d& point);
  Status readText(Reply& reply);

  AcApDocument& document_;
  AcEdJig& jig_;
  Answer input_;  ///< what the sampler is asked about
  Status acquired_ = AcEdJig::kNormal;
  bool refused_ = false;  ///< the text is no answer to this jig
  TextReading reading_ = TextReading::kAnswer;
  bool updated_ = false;
};

AcEdJig::DragStatus JigDrag::readText(Reply& reply) {
  const bool other = (jig_.controls_ & AcEdJig::kAcceptOtherInputString) != 0;
  const KeywordList keywords(jig_.keywords_);
  if (const std::optional<size_t> keyword = keywords.match(input_.text))
    return static_cast<Status>(AcEdJig::kKW1 + static_cast<int>(*keyword));
  const PromptControl control{other ? kArbitrary : 0, {}};
  reading_ = readPointText(document_, input_.text, control, std::nullopt, reply);
  if (reading_ != TextReading::kAnswer) return AcEdJig::kNoChange;
  return reply.status == RTNORM ? AcEdJig::kNormal : AcEdJig::kOther;
}

AcEdJig::DragStatus JigDrag::acquire(AcGePoint3d& point) {
  refused_ = false;
  reading_ = TextReading::kAnswer;
  const Cursor& cursor = document_.session().cursor;
  if (input_.kind == AnswerKind::kPoint) {
    point = input_.point;
    return acquired_ = AcEdJig::kNormal;
  }
  if (cursor.known) point = cursor.point;
  if (input_.kind != AnswerKind::kText) return acquired_ = AcEdJig::kCancel;
  if (input_.isEnter()) {
    refused_ = (jig_.controls_ & AcEdJig::kNullResponseAccepted) == 0;
    return acquired_ = refused_ ? AcEdJig::kNoChange : AcEdJig::kNull;
  }
  Reply reply{RTNORM};
  acquired_ = readText(reply);
  refused_ = acquired_ == AcEdJig::kNoChange;
  if (acquired_ == AcEdJig::kNormal) point = toWorld(document_, reply.point);
  return acquired_;
}

/// Asks the sampler about one input and updates; what the input means for the drag.
AcEdJig::DragStatus JigDrag::sample(const Answer& input) {
  input_ = input;
  acquired_ = input.kind == AnswerKind::kCancel ? AcEdJig::kCancel : AcEdJig::kNormal;
  const Status sampled = jig_.sampler();
  if (acquired_ == AcEdJig::kNormal && sampled == AcEdJig::kNormal) {
    jig_.update();
    updated_ = true;
  }
  // The sampler may end a drag of its own accord; what it thinks of a change doesn't matter here.
  const bool plain = acquired_ == AcEdJig::kNormal && sampled != AcEdJig::kNoChange;
  return plain ? sampled : acquired_;
}

void JigDrag::moved(const AcGePoint3d& point) {
  Answer place;
  place.kind = AnswerKind::kPoint;
  place.point = point;
  const Status status = sample(place);
  ActivePrompt* prompt = topPrompt();
  if (status != AcEdJig::kNormal && prompt != nullptr) {
    input_.kind = AnswerKind::kCancel;
    prompt->cancel();
  }
}

AcEdJig::DragStatus JigDrag::run() {
  Question question;
  question.kind = host::WaitKind::kDrag;
  question.prompt = jig_.prompt_;
  question.takesPoints = true;
  question.ortho = false;
  question.cursorMoved = [this](const AcGePoint3d& point) { moved(point); };
  for (;;) {
    const Answer answer = ask(document_, question);
    const Status status = sample(answer);
    if (refused_) {
      if (reading_ == TextReading::kRefused) refuseAnswer(answer, L"Invalid point.");
      continue;
    }
    if (status == AcEdJig::kNormal && !updated_) jig_.update();
    if (status == AcEdJig::kNormal && answer.kind == AnswerKind::kPoint)
      document_.session().lastPoint = answer.point;
    return status;
  }
}

}  // namespace kovra::arx

AcEdJig::~AcEdJig() = default;

AcEdJig::DragStatus AcEdJig::sampler() {
  AcGePoint3d point;
  return acquirePoint(point);
}

Adesk::Boolean AcEdJig::update() {
  return false;
}

AcDbEntity* AcEdJig::entity() const {
  return nullptr;
}

AcDbDimDataPtrArray* AcEdJig::dimData(double) {
  return nullptr;
}

Acad::ErrorStatus AcEdJig::setDimValue(const AcDbDimData*, double) {
  return Acad::eNotImplementedYet;
}

AcEdJig::DragStatus AcEdJig::drag() {
  AcApDocument* document = kovra::arx::DocumentList::instance().current();
  if (document == nullptr) return kCancel;
  const kovra::win::ModuleUse use(this, "jig");
  const kovra::arx::ActiveJig active(this);
  return kovra::arx::JigDrag(*document, *this).run();
}

AcEdJig::DragStatus AcEdJig::acquirePoint(AcGePoint3d& point) {
  return drag_ != nullptr ? drag_->acquire(point) : kCancel;
}

AcEdJig::DragStatus AcEdJig::acquireString(ACHAR* text, std::size_t length) {
  if (drag_ == nullptr || text == nullptr || length == 0) return kCancel;
  AcGePoint3d ignored;
  const DragStatus status = drag_->acquire(ignored);
  const std::size_t copied = drag_->text().copy(text, length - 1);
  text[copied] = 0;
  return status;
}

void AcEdJig::setDispPrompt(const ACHAR* format, ...) {
  if (format == nullptr) return prompt_.clear();
  std::va_list arguments;
  va_start(arguments, format);
  prompt_ = kovra::win::formatWideV(format, arguments);
  va_end(arguments);
}

void AcEdJig::setKeywordList(const ACHAR* keywords) {
  keywords_ = keywords != nullptr ? keywords : L"";
}
