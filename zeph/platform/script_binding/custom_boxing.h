/// Empty bases that say how a class crosses to Lua.
#pragma once

namespace zeph::binding {

struct DefaultBoxing {};        ///< script objects that wrap a native value
struct DummyObjectBoxing {};    ///< values that live in Lua as plain tables
struct BuiltinObjectBoxing {};  ///< Object and the generic values below it

/// Carries no data: copying and assigning do nothing.
template <typename Policy>
class CustomBoxing {};

}  // namespace zeph::binding
