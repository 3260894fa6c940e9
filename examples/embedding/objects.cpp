/// Values that live outside the Lua stack: Object and AutoRef, generic values, another thread that lets go of them.
#include <thread>

#include <zeph/math3d.h>
#include <zeph/math3d/lua_matrix.h>
#include <zeph/math3d/lua_vector3.h>
#include <zeph/platform/zpthreading/zpthreading.h>

#include "protect.h"

using Vector3 = zeph::math3d::_Vector3<float>;
using Matrix = zeph::math3d::_Matrix<float>;
using VectorTraits = zeph::binding::TypeTraits<Vector3>;
using MatrixTraits = zeph::binding::TypeTraits<Matrix>;
using zeph::binding::AutoRef;
using zeph::binding::Object;

namespace {

void print(const char* what, const Vector3& v) {
  std::printf("%s\t(%g, %g, %g)\n", what, static_cast<double>(v.x), static_cast<double>(v.y), static_cast<double>(v.z));
}

// [keep]
/// What the host keeps of the script's values from one frame to the next.
struct Memory {
  AutoRef<Object> target;
};
Memory memory;

/// remember(value): any value of a script class, a table or a userdata. Making the Object may throw.
int remember(lua_State* L) {
  memory.target = Object::Unboxing(L, 1);  // null for anything else
  lua_pushboolean(L, memory.target.alive() ? 1 : 0);
  return 1;
}
// [end]

// [inspect]
/// Where the target is, whichever class the script took for it.
Vector3 target_place() {
  Object* target = memory.target.get();
  if (VectorTraits::Inspecting(target)) {
    return VectorTraits::Unpacking(target);
  }
  if (const Matrix* pose = MatrixTraits::Unpacking(target)) {  // null: of another class, or gone
    return translation(*pose);
  }
  return {};
}
// [end]

// [pack]
/// A value from the host to the script, by way of an Object: for code that makes values where no state is at hand.
void pack(lua_State* L) {
  Vector3 place{7.0F, 8.0F, 9.0F};
  const AutoRef<Object> object = VectorTraits::Packing(&place);
  must(L, [&](lua_State* state) {
    Object::Boxing(state, object, false);
    lua_setglobal(state, "packed");
  });
}
// [end]

// [generic]
/// A report for the script: a table of mixed values.
AutoRef<zeph::binding::Table> make_report(const Vector3& place, int frame) {
  using namespace zeph::binding;
  AutoRef<Table> report = new Table;
  Vector3 copy = place;
  report->Set(new Str("place"), VectorTraits::Packing(&copy));
  report->Set(new Str("frame"), new Integer(frame));
  return report;
}
// [end]

// [worker]
/// A worker gets a value to compute with and drops it. The Object ends on the script thread, in end_frame.
void compute_elsewhere(const Vector3& place) {
  Vector3 copy = place;
  std::thread worker([value = AutoRef<Object>(VectorTraits::Packing(&copy))]() mutable {
    const float distance = length(VectorTraits::Unpacking(value.get()));
    std::printf("worker\t%g\n", static_cast<double>(distance));
    value = nullptr;
  });
  worker.join();
}

/// Once a frame, on the script thread.
void end_frame() {
  const std::size_t commands = zeph::zpthreading::zpThread<0>::Handle->run();
  std::printf("queue\t%zu\n", commands);
}
// [end]

}  // namespace

int main(int, char** argv) {
  lua_State* L = luaL_newstate();
  must(L, [&](lua_State* state) {
    luaL_openlibs(state);
    zeph::math3d::InitLuaMath3d(state);
    lua_register(state, "remember", guarded<remember>);
  });
  pack(L);
  must(L, [&](lua_State* state) { load(state, argv[1]); });
  const AutoRef<zeph::binding::Table> report = make_report({1.0F, 2.0F, 3.0F}, 1);
  must(L, [&](lua_State* state) {
    lua_getglobal(state, "on_report");
    Object::Boxing(state, report, false);
    lua_call(state, 1, 0);
  });

  for (const char* choose : {"choose_table", "choose_userdata", "forget"}) {
    must(L, [&](lua_State* state) {
      lua_getglobal(state, choose);
      lua_call(state, 0, 0);
    });
    print(choose, target_place());
  }
  compute_elsewhere({3.0F, 0.0F, 4.0F});
  end_frame();

  // [end-of-state]
  memory.target = nullptr;                        // references first,
  lua_close(L);                                   // then the states,
  zeph::zpthreading::zpThread<0>::Handle->run();  // then what other threads have left
  // [end]
  return 0;
}
