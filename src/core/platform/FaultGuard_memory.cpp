// The in-memory desktop refuses bad handles and never faults on them.
#include "../FaultGuard.h"

bool vorn::CallGuarded(bool (*function)(void*), void* argument) { return function(argument); }
