// Calls into foreign code that may fault on a bad handle. Internal.
#pragma once

namespace vorn {

// Calls function(argument). Its result, or false if it faulted.
bool CallGuarded(bool (*function)(void*), void* argument);

template <class Function>
bool CallGuarded(Function function) {
  return CallGuarded([](void* f) { return static_cast<bool>((*static_cast<Function*>(f))()); }, &function);
}

}  // namespace vorn
