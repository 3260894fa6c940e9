/// Loaded before all other libraries (LD_PRELOAD), stands in front of the C library's trigonometry and notes that it
/// was called; as a library for Lua, tells.
#include <dlfcn.h>

struct lua_State;
extern "C" void lua_pushboolean(lua_State* L, int value);

namespace {

bool called = false;

template <typename Function>
Function* next(const char* name) {
  called = true;
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

float sinf(float x) noexcept { return next<float(float)>("sinf")(x); }
float cosf(float x) noexcept { return next<float(float)>("cosf")(x); }
void sincosf(float x, float* sine, float* cosine) noexcept {
  next<void(float, float*, float*)>("sincosf")(x, sine, cosine);
}
float tanf(float x) noexcept { return next<float(float)>("tanf")(x); }
float asinf(float x) noexcept { return next<float(float)>("asinf")(x); }
float acosf(float x) noexcept { return next<float(float)>("acosf")(x); }
float atanf(float x) noexcept { return next<float(float)>("atanf")(x); }
float atan2f(float y, float x) noexcept { return next<float(float, float)>("atan2f")(y, x); }

/// Whether there was a call since the last time that this was asked.
int take_platform_calls(lua_State* L) {
  lua_pushboolean(L, called);
  called = false;
  return 1;
}
}
