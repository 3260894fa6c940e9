/// The tests' module `probe`, for scripts.
#include "../native/probe.h"

extern "C" __attribute__((visibility("default"))) int luaopen_probe(lua_State* L);

int luaopen_probe(lua_State* L) { return zeph::test::open_probe(L); }
