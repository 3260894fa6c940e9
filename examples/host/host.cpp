/// A native host: a program that embeds Lua, loads math3d, and shares values with a script frame by frame.
///
///     host SCRIPT.lua
///
/// The script defines `on_frame(time, position)` and may keep `spawn`, a vector that the host hands it.
#include <cstdio>
#include <cstdlib>
#include <thread>

#include <lua.hpp>

#include <zeph/math3d.h>
#include <zeph/math3d/lua_vector3.h>
#include <zeph/platform/zpthreading/zpthreading.h>

using zeph::binding::AutoRef;
using zeph::binding::Object;
using Vector3 = zeph::math3d::_Vector3<float>;
using Traits = zeph::binding::TypeTraits<Vector3>;

namespace {

[[noreturn]] void fail(lua_State* L, const char* doing) {
  std::fprintf(stderr, "%s: %s\n", doing, lua_tostring(L, -1));
  lua_close(L);
  std::exit(1);
}

/// `host.log(vector)`: a function of the host that takes a value of the library.
int log_vector(lua_State* L) {
  if (!Traits::Checking(L, 1, false)) {
    return luaL_error(L, "host.log needs a Vector3, not a %s", luaL_typename(L, 1));
  }
  const Vector3 v = Traits::Unboxing(L, 1);
  std::printf("script says: (%g, %g, %g)\n", static_cast<double>(v.x), static_cast<double>(v.y),
              static_cast<double>(v.z));
  return 0;
}

/// Runs `body(L)` protected: whatever pushes onto the stack may end in a Lua error, a memory error at the least, and
/// outside a protected call that ends the program. The body owns nothing, since an error leaves it by a jump.
template <typename Body>
void protect(lua_State* L, const char* doing, Body body) {
  lua_pushcfunction(L, [](lua_State* state) {
    (*static_cast<Body*>(lua_touserdata(state, 1)))(state);
    return 0;
  });
  lua_pushlightuserdata(L, &body);
  if (lua_pcall(L, 1, 0, 0) != LUA_OK) {
    fail(L, doing);
  }
}

void set_up(lua_State* L) {
  luaL_openlibs(L);
  zeph::math3d::InitLuaMath3d(L);

  lua_createtable(L, 0, 1);
  lua_pushcfunction(L, log_vector);
  lua_setfield(L, -2, "log");
  lua_setglobal(L, "host");

  Vector3 spawn{0, 1, 0};
  Traits::Boxing(L, &spawn, false);
  lua_setglobal(L, "spawn");
}

/// One frame: `on_frame(time, position)` in the script gives the new position.
void run_frame(lua_State* L, float time, Vector3& position) {
  lua_getglobal(L, "on_frame");
  lua_pushnumber(L, static_cast<lua_Number>(time));
  Traits::Boxing(L, &position, false);
  lua_call(L, 2, 1);
  if (!Traits::Checking(L, -1, false)) {
    luaL_error(L, "the result of on_frame is no Vector3");
  }
  position = Traits::Unboxing(L, -1);
}

/// Values that outlive the Lua stack are held as Objects. A worker may drop the last reference; the object ends on this
/// thread, when it runs the command queue.
void hand_to_worker(const Vector3& position) {
  Vector3 copy = position;
  AutoRef<Object> object = Traits::Packing(&copy);
  if (!Traits::Inspecting(object.get()) || Traits::Unpacking(object.get()).x != position.x) {
    std::abort();
  }
  std::thread worker([held = std::move(object)]() mutable { held = nullptr; });
  worker.join();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s SCRIPT.lua\n", argv[0]);
    return 2;
  }
  lua_State* L = luaL_newstate();
  protect(L, "set-up", set_up);
  if (luaL_dofile(L, argv[1]) != LUA_OK) {
    fail(L, argv[1]);
  }

  Vector3 position{};
  std::size_t ended_objects = 0;
  for (int frame = 0; frame < 5; ++frame) {
    const float time = static_cast<float>(frame) * 0.25F;
    protect(L, "on_frame", [&](lua_State* state) { run_frame(state, time, position); });
    hand_to_worker(position);
    ended_objects += zeph::zpthreading::zpThread<0>::Handle->run();
  }
  std::printf("position after 5 frames: (%g, %g, %g); %zu objects ended by the command queue\n",
              static_cast<double>(position.x), static_cast<double>(position.y), static_cast<double>(position.z),
              ended_objects);

  // An Object can be pushed again at any time; here to ask the script's own function about it.
  {
    const AutoRef<Object> last = Traits::Packing(&position);
    protect(L, "describe", [&](lua_State* state) {
      lua_getglobal(state, "describe");
      Object::Boxing(state, last, false);
      lua_call(state, 1, 1);
      std::printf("%s\n", lua_tostring(state, -1));
    });
  }
  lua_close(L);
  return 0;
}
