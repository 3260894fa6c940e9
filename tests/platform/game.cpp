/// game SCRIPT.lua: the engine runs a script with math3d, and math3d uses what is the engine's.
#include <cstdio>
#include <thread>
#include <utility>

#include <lua.hpp>

#include <zeph/math3d.h>
#include <zeph/math3d/lua_matrix.h>
#include <zeph/math3d/lua_vector3.h>
#include <zeph/platform/script_core/lua_engine.h>
#include <zeph/platform/zpthreading/zpthreading.h>

#undef NDEBUG
#include <cassert>

using zeph::lua::LuaEngine;
using Matrix = zeph::math3d::_Matrix<float>;
using Traits = zeph::binding::TypeTraits<Matrix>;

int main(int, char** argv) {
  engine::become_script_thread();
  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  zeph::math3d::InitLuaMath3d(L);
  if (luaL_dofile(L, argv[1]) != LUA_OK) {
    std::fprintf(stderr, "%s\n", lua_tostring(L, -1));
    return 1;
  }
  lua_settop(L, 0);

  // Values go back into their tables by the state that the engine says is running.
  LuaEngine::getInstance().SetRunningState(L);
  lua_getglobal(L, "position");
  const zeph::math3d::_Vector3<float> arrival{7, 8, 9};
  zeph::math3d::LuaVector3::FlushToDummyScriptObject(1, &arrival);
  assert(luaL_dostring(L, "assert(position == math3d.Vector3.new(7, 8, 9))") == LUA_OK);

  // The last reference goes on another thread; the object ends where the engine says.
  lua_getglobal(L, "matrix");
  zeph::binding::AutoRef<zeph::binding::Object> kept = Traits::Packing(Traits::Unboxing(L, -1));
  std::thread([mine = std::move(kept)]() mutable { mine = nullptr; }).join();
  assert(engine::work() == 1);
  assert(engine::work() == 0);

  lua_close(L);
  assert(LuaEngine::getInstance().GetRunningState() == nullptr);
  std::puts("played");
}
