/// Several states in one process, coroutines, and native code that is handed no state.
#include <zeph/math3d.h>
#include <zeph/math3d/lua_matrix.h>
#include <zeph/math3d/lua_vector3.h>
#include <zeph/platform/script_core/lua_engine.h>

#include "protect.h"

using Vector3 = zeph::math3d::_Vector3<float>;
using Matrix = zeph::math3d::_Matrix<float>;
using VectorTraits = zeph::binding::TypeTraits<Vector3>;
using MatrixTraits = zeph::binding::TypeTraits<Matrix>;
using zeph::binding::AutoRef;
using zeph::binding::Object;

namespace {

void set_up(lua_State* L) {
  luaL_openlibs(L);
  zeph::math3d::InitLuaMath3d(L);
}

void run(lua_State* L, const char* script) {
  must(L, [script](lua_State* state) {
    if (luaL_dostring(state, script) != LUA_OK) {
      lua_error(state);
    }
  });
}

// [two-states]
/// The state that made a matrix has it back as what it is there; another state is given a copy.
void share(lua_State* game, lua_State* editor) {
  run(game, "pose = math3d.matrix_translation(1, 2, 3)");
  AutoRef<Object> pose;
  must(game, [&](lua_State* L) {
    lua_getglobal(L, "pose");
    pose = Object::Unboxing(L, -1);
    Object::Boxing(L, pose, false);
    lua_setglobal(L, "same");
  });
  must(editor, [&](lua_State* L) {
    Object::Boxing(L, pose, false);
    lua_setglobal(L, "pose");
  });
  run(editor, "pose.translation = math3d.Vector3.new(7, 8, 9)");
  run(game, "print('game', rawequal(same, pose), pose.translation)");
}
// [end]

// [coroutine]
/// Resumes the script's coroutine with a position and takes one from it; false when that was its last. A coroutine that
/// waits is no place for calls that can raise: values are made and read in L, and moved over.
bool resume_with(lua_State* L, lua_State* coroutine, Vector3& position) {
  VectorTraits::Boxing(L, &position, false);
  lua_xmove(L, coroutine, 1);
#if LUA_VERSION_NUM >= 504
  int results = 0;
  const int status = lua_resume(coroutine, L, 1, &results);
#else
  const int status = lua_resume(coroutine, L, 1);
#endif
  if (status > LUA_YIELD) {
    lua_xmove(coroutine, L, 1);  // the error message
    lua_error(L);
  }
  lua_settop(coroutine, 1);  // its first result, nil when it gave none
  lua_xmove(coroutine, L, 1);
  if (!VectorTraits::Checking(L, -1, false)) {
    luaL_error(L, "the coroutine gave a %s, not a Vector3", luaL_typename(L, -1));
  }
  position = VectorTraits::Unboxing(L, -1);
  lua_pop(L, 1);
  return status == LUA_YIELD;
}

/// To be run protected.
void patrol(lua_State* L) {
  lua_State* coroutine = lua_newthread(L);  // stands on the stack of L, which keeps it
  lua_getglobal(L, "patrol");
  lua_xmove(L, coroutine, 1);
  Vector3 position{};
  bool waits = true;
  while (waits) {
    waits = resume_with(L, coroutine, position);
    std::printf("patrol\t%g\n", static_cast<double>(position.x));
    position.x *= 10.0F;
  }
}
// [end]

// [running-state]
/// Native code deep in the engine, which knows that the script's vector is at index 1 and nothing else.
void settle(const Vector3& place) { zeph::math3d::LuaVector3::FlushToDummyScriptObject(1, &place); }

/// drop(position): lets it fall to the ground, in place.
int drop(lua_State* L) {
  luaL_argcheck(L, VectorTraits::Checking(L, 1, false), 1, "Vector3 needed");
  zeph::lua::LuaEngine::getInstance().SetRunningState(L);  // a coroutine's state when one made the call
  Vector3 place = VectorTraits::Unboxing(L, 1);
  place.y = 0.0F;
  settle(place);
  return 0;
}
// [end]

}  // namespace

int main() {
  // [states]
  lua_State* game = luaL_newstate();
  lua_State* editor = luaL_newstate();
  for (lua_State* L : {game, editor}) {
    must(L, set_up);
  }
  // [end]
  share(game, editor);
  lua_close(editor);
  run(game, R"(
    function patrol(position)
      for step = 1, 2 do
        position = coroutine.yield(position + math3d.Vector3.new(step, 0, 0))
      end
      return position
    end)");
  must(game, patrol);
  must(game, [](lua_State* L) { lua_register(L, "drop", drop); });
  run(game, R"(
    local stone = math3d.Vector3.new(1, 50, 2)
    coroutine.wrap(function() drop(stone) end)()
    print("stone", stone))");
  lua_close(game);
  return 0;
}
