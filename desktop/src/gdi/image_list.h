// Image lists, for the other parts of drawing. All of it expects that the lock is held.
#pragma once

namespace desktop {

// Frees all image lists and ends a drag.
void ResetImageLists();

}  // namespace desktop
