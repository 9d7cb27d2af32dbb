#pragma once

namespace kovra {

/// Places texts as the open dialog says, in the document's command context: one after another, or
/// as one group with one drag. All layers are unlocked meanwhile; a layer that the dialog names and
/// the drawing lacks is made.
void PrepareAndPlace();

}  // namespace kovra
