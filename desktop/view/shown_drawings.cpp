#include "desktop/view/shown_drawings.h"

#include <utility>

#include "platform/arx/editor/documents/document_list.h"

namespace kovra::desktop {

ShownDrawings::ShownDrawings(std::function<void(const DisplayList&)> dropped)
    : dropped_(std::move(dropped)) {
  acDocManager->addReactor(this);
  arx::setEntityIndex(this);
}

ShownDrawings::~ShownDrawings() {
  arx::setEntityIndex(nullptr);
  acDocManager->removeReactor(this);
}

AcApDocument* ShownDrawings::current() const {
  return arx::DocumentList::instance().current();
}

DisplayList* ShownDrawings::currentList() {
  AcApDocument* document = current();
  if (document == nullptr) return nullptr;
  std::unique_ptr<DisplayList>& list = lists_[document->serial()];
  if (!list) list = std::make_unique<DisplayList>(*document->database());
  return list.get();
}

void ShownDrawings::documentToBeDestroyed(AcApDocument* document) {
  const auto list = lists_.find(document->serial());
  if (list == lists_.end()) return;
  dropped_(*list->second);
  lists_.erase(list);
}

std::optional<std::vector<dxf::RecordIndex>> ShownDrawings::entitiesIn(const AcApDocument& document,
                                                                       const AcDbExtents& box) {
  const auto known = lists_.find(document.serial());
  if (known == lists_.end()) return std::nullopt;
  return known->second->recordsIn(
      {box.minPoint().x, box.minPoint().y, box.maxPoint().x, box.maxPoint().y});
}

}  // namespace kovra::desktop
