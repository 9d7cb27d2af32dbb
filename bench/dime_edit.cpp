// The benchmark's edit with the DIME library: dime_edit IN OUT HEIGHT sets the height of every
// attribute NAME.
#include <dime/Input.h>
#include <dime/Model.h>
#include <dime/Output.h>
#include <dime/entities/Entity.h>

#include <cstdlib>
#include <cstring>

namespace {

struct Edit {
  dimeParam height;
  dimeMemHandler* memory;
};

bool editAttribute(const dimeState* /*state*/, dimeEntity* entity, void* data) {
  const Edit& edit = *static_cast<const Edit*>(data);
  dimeParam tag;
  if (std::strcmp(entity->getEntityName(), "ATTRIB") == 0 && entity->getRecord(2, tag) &&
      std::strcmp(tag.string_data, "NAME") == 0) {
    entity->setRecord(40, edit.height, edit.memory);
  }
  return true;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) return 2;
  dimeInput input;
  dimeModel model(true);  // its own allocator: takes about half the memory
  if (!input.setFile(arguments[1]) || !model.read(&input)) return 1;
  Edit edit = {};
  edit.height.double_data = static_cast<dxfdouble>(std::atof(arguments[3]));
  edit.memory = model.getMemHandler();
  model.traverseEntities(editAttribute, &edit, false, false);
  dimeOutput output;
  if (!output.setFilename(arguments[2])) return 1;
  return model.write(&output) ? 0 : 1;
}
