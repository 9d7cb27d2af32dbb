#include "companions/project_listing.h"

#include "companions/project.h"

void kovraListProject(std::vector<kovra::companions::ListedDrawing>& drawings) {
  const auto project = kovra::companions::currentProject();
  if (project == nullptr) return;
  for (std::size_t i = 0; i < project->drawings().count(); ++i) {
    const ProjectDrawing& drawing = project->drawings().at(i);
    drawings.push_back({drawing.file(), drawing.blockedByProject()});
  }
}
