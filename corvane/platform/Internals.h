// The door to operations that belong to the library and not to its hosts.
//
// A published class that other classes of the library must load or fill declares `friend struct Internals<Class>;` and
// keeps those operations private. A header named ClassInternals.h, which is not installed, specialises the template
// with static functions of the operations' names.
#pragma once

namespace corvane {

template <class Class>
struct Internals;

} // namespace corvane
