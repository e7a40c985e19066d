// Counts of what is alive.
#pragma once

namespace desktop {

int LiveWindows();
int LiveTimers();

}  // namespace desktop
