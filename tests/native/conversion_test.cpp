/// TypeTraits: values across the Lua stack and through Object, for a dummy and a wrapped class.
#include <thread>

#include <gtest/gtest.h>

#include <zeph/math3d/lua_matrix.h>
#include <zeph/platform/script_core/lua_engine.h>

#include "lua_state.h"

namespace zeph::binding {
namespace {

using V = math3d::_Vector3<float>;
using math3d::LuaVector3;
using test::LuaProbe;
using test::Probe;
using Traits = TypeTraits<V>;
using ProbeTraits = TypeTraits<Probe>;

class ConversionTest : public testing::Test {
 protected:
  ~ConversionTest() override { zpthreading::zpThread<0>::Handle->run(); }
  test::LuaState state;
  lua_State* L = state.L;
};

TEST_F(ConversionTest, DummyValuesCrossByCopy) {
  V v{1, 0.1F, -0.0F};
  EXPECT_EQ(Traits::Boxing(L, &v, false), 1);
  EXPECT_EQ(Traits::Boxing(L, &v, true), 1);
  EXPECT_EQ(lua_gettop(L), 2);
  EXPECT_EQ(lua_rawequal(L, 1, 2), 0);
  EXPECT_TRUE(Traits::Checking(L, -1, false));
  const V back = Traits::Unboxing(L, -2);
  EXPECT_EQ(back.y, 0.1F);
  EXPECT_TRUE(std::signbit(back.z));
  EXPECT_EQ(lua_gettop(L), 2);
  lua_pushnil(L);
  EXPECT_FALSE(Traits::Checking(L, -1, false));
  EXPECT_TRUE(Traits::Checking(L, -1, true));
  EXPECT_TRUE(Traits::Checking(L, 9, true));
  EXPECT_STREQ(LuaVector3::ClsName(), "class zeph::math3d::LuaVector3");
}

TEST_F(ConversionTest, BoxingOnAStateWithoutTheModuleIsAnError) {
  lua_State* bare = luaL_newstate();
  lua_pushcfunction(bare, [](lua_State* state_without) {
    V v{};
    return Traits::Boxing(state_without, &v, false);
  });
  EXPECT_NE(lua_pcall(bare, 0, 0, 0), LUA_OK);
  EXPECT_STREQ(lua_tostring(bare, -1),
               "Can not find [class zeph::math3d::LuaVector3] in lua stack. Please register it!!!");
  lua_close(bare);
}

TEST_F(ConversionTest, DummyObjectsHoldACopy) {
  V v{1, 2, 3};
  const AutoRef<Object> object = Traits::Packing(&v);
  EXPECT_TRUE(Traits::Inspecting(object.get()));
  EXPECT_FALSE(ProbeTraits::Inspecting(object.get()));
  EXPECT_FALSE(Traits::Inspecting(nullptr));
  EXPECT_EQ(Traits::Unpacking(object.get()).z, 3.0F);
  EXPECT_EQ(Object::Boxing(L, object, false), 1);
  EXPECT_EQ(Traits::Unboxing(L, 1).y, 2.0F);
  // A table becomes an Object by the constructor that its class registered.
  const AutoRef<Object> unboxed = Object::Unboxing(L, 1);
  EXPECT_EQ(Traits::Unpacking(unboxed.get()).x, 1.0F);
  lua_pushinteger(L, 1);
  EXPECT_EQ(Object::Unboxing(L, 2), nullptr);
}

TEST_F(ConversionTest, DummyScriptObjectAndItsObjectEndInEitherOrder) {
  V v{1, 2, 3};
  AutoRef<LuaVector3> script_object = LuaVector3::Wrapping(&v);
  AutoRef<Object> object = script_object->GetBuiltinObject();
  EXPECT_EQ(script_object->GetBuiltinObject(), object.get());
  object = nullptr;
  EXPECT_EQ(script_object->builtin_object, nullptr) << "the script object is told";
  object = script_object->GetBuiltinObject();
  script_object = nullptr;
  EXPECT_TRUE(Traits::Inspecting(object.get())) << "the Object keeps it alive";
  Object::ToDummyObjectWithName(object.get(), LuaVector3::ClsName())->DeleteAutoRefObj();
  EXPECT_FALSE(Traits::Inspecting(object.get())) << "the Object is told";
}

TEST_F(ConversionTest, DeadReferenceGivesTheDefault) {
  V v{1, 2, 3};
  AutoRef<LuaVector3> reference = LuaVector3::Wrapping(&v);
  EXPECT_EQ(LuaVector3::Unpacking(reference).z, 3.0F);
  EXPECT_EQ(LuaVector3::Unpacking(reference.get()).z, 3.0F);
  reference->DeleteAutoRefObj();
  EXPECT_EQ(LuaVector3::Unpacking(reference).z, 0.0F);
  EXPECT_EQ(LuaVector3::Unpacking(AutoRef<LuaVector3>()).x, 0.0F);
}

TEST_F(ConversionTest, FlushWritesIntoTheTableOfTheRunningState) {
  state.run("v = math3d.Vector3.new(1, 2, 3); v.note = 'kept'");
  lua_getglobal(L, "v");
  lua::LuaEngine::getInstance().SetRunningState(L);
  const V value{4, 5, 6};
  LuaVector3::FlushToDummyScriptObject(1, &value);
  EXPECT_EQ(lua_gettop(L), 1);
  EXPECT_EQ(state.eval("v.x + v.y + v.z .. v.note"), "15.0kept");
  lua_pushinteger(L, 1);
  LuaVector3::FlushToDummyScriptObject(1, &value);  // no table of the class: nothing happens
  // The running state is a coroutine's: the table at index 1 is found on its stack, not on the main one.
  state.run("coroutine.wrap(function() probe.flush_by_engine(v, 9) end)()");
  EXPECT_EQ(state.eval("v.x"), "9.0");
}

TEST_F(ConversionTest, WrappedValuesCrossByPointer) {
  Probe probe{7, {1, 2, 3}};
  EXPECT_EQ(ProbeTraits::Boxing(L, &probe, false), 1);
  EXPECT_TRUE(ProbeTraits::Checking(L, 1, false));
  EXPECT_FALSE(Traits::Checking(L, 1, false));
  EXPECT_NE(ProbeTraits::Unboxing(L, 1), &probe);
  ProbeTraits::Unboxing(L, 1)->number = 8;
  lua_setglobal(L, "p");
  EXPECT_EQ(state.eval("p.number"), "8.0");
  EXPECT_TRUE(ProbeTraits::auto_reg_creator);
}

TEST_F(ConversionTest, PackedWrappedObjectGoesWithItsLastReference) {
  const int before = LuaProbe::live;
  Probe probe{7, {}};
  {
    const AutoRef<Object> object = ProbeTraits::Packing(&probe);
    EXPECT_EQ(ProbeTraits::Unpacking(object.get())->number, 7.0F);
    EXPECT_NE(ProbeTraits::Unpacking(object.get()), &probe);
    auto* script_object = static_cast<LuaProbe*>(Object::ToLuaObjectWithName(object.get(), LuaProbe::ClsName()));
    EXPECT_EQ(script_object->GetBuiltinObject(), object.get());
    EXPECT_EQ(LuaProbe::live, before + 1);
  }
  EXPECT_EQ(LuaProbe::live, before);
  V v{};
  const AutoRef<Object> other = Traits::Packing(&v);
  EXPECT_EQ(ProbeTraits::Unpacking(other.get()), nullptr);
}

TEST_F(ConversionTest, BoxedObjectBelongsToLuaAndKeepsItsIdentity) {
  const int before = LuaProbe::live;
  Probe probe{7, {}};
  AutoRef<Object> object = ProbeTraits::Packing(&probe);
  EXPECT_EQ(Object::Boxing(L, object, false), 1);
  EXPECT_EQ(Object::Boxing(L, object, true), 1);
  EXPECT_EQ(lua_rawequal(L, 1, 2), 1) << "the same script object";
  EXPECT_EQ(ProbeTraits::Unpacking(object.get()), ProbeTraits::Unboxing(L, 1));
  lua_settop(L, 0);
  lua_gc(L, LUA_GCCOLLECT, 0);
  EXPECT_EQ(LuaProbe::live, before);
  EXPECT_EQ(ProbeTraits::Unpacking(object.get()), nullptr) << "the Object outlives it and is told";
}

TEST_F(ConversionTest, ObjectOfAValueThatAScriptMade) {
  state.run("p = probe.Probe.new(5)");
  lua_getglobal(L, "p");
  {
    const AutoRef<Object> object = Object::Unboxing(L, 1);
    EXPECT_EQ(Object::Unboxing(L, 1), object.get());
    ProbeTraits::Unpacking(object.get())->number = 6;
    Object::Boxing(L, object, false);
    EXPECT_EQ(lua_rawequal(L, 1, 2), 1);
    EXPECT_EQ(state.eval("p.number"), "6.0");
  }
  // Another state is given a copy.
  test::LuaState other;
  lua_getglobal(L, "p");
  const AutoRef<Object> object = Object::Unboxing(L, -1);
  EXPECT_EQ(Object::Boxing(other.L, object, false), 1);
  ProbeTraits::Unboxing(other.L, 1)->number = 9;
  EXPECT_EQ(state.eval("p.number"), "6.0");
}

TEST_F(ConversionTest, MatrixWithoutFinalizerIsGuardedOnceNativeCodeHasSeenIt) {
  using MatrixTraits = TypeTraits<math3d::_Matrix<float>>;
  state.run("m = math3d.Matrix.new(); m:set(3, 2, 7); unseen = math3d.Matrix.new()");
  lua_getglobal(L, "m");
  const math3d::_Matrix<float>* value = MatrixTraits::Unboxing(L, 1);
  EXPECT_EQ(value->elements[14], 7.0F);
  auto* script_object = static_cast<math3d::LuaMatrix*>(zplua_toluaobject(L, 1));
  EXPECT_NE(script_object->object_id, 0U);
  EXPECT_EQ(&script_object->m_value, value);
  const AutoRef<Object> object = script_object->GetBuiltinObject();
  MatrixTraits::Unpacking(object.get())->elements[0] = 5.0F;
  EXPECT_EQ(state.eval("m:get(0, 0)"), "5.0");
  lua_settop(L, 0);
  state.run("m = nil; unseen = nil; collectgarbage(); collectgarbage()");
  EXPECT_EQ(MatrixTraits::Unpacking(object.get()), nullptr);
}

TEST_F(ConversionTest, RegisteredCreatorDecidesTheClassOfNewObjects) {
  class Special final : public LuaProbe {
   public:
    std::string AsString() const override { return "special"; }
  };
  const auto hash = typeid(Probe).hash_code();
  EXPECT_TRUE(Object::RegisterPolymorphicLuaObjectCreator(hash, [] { return new Special; }));
  EXPECT_EQ(state.eval("probe.Probe.new(1)"), "special");
  EXPECT_TRUE(Object::RegisterPolymorphicLuaObjectCreator(hash, [] { return new LuaProbe; }));
  EXPECT_EQ(state.eval("probe.Probe.new(1)"), "Probe(1.000000)");
  EXPECT_EQ(Object::CreateSpaceObjectWithPolymorphicTypeid(0), nullptr);
}

TEST_F(ConversionTest, IdsAreGivenOutLastInFirstOut) {
  const auto id_of = [&](const char* name) {
    lua_getglobal(L, name);
    const auto id = zplua_toluaobject(L, -1)->object_id;
    lua_pop(L, 1);
    return id;
  };
  state.run("a = probe.Probe.new(1); b = probe.Probe.new(2); c = probe.Probe.new(3)");
  const auto id_a = id_of("a");
  const auto id_b = id_of("b");
  EXPECT_NE(id_a, 0U);
  EXPECT_NE(id_a, id_b);
  state.run("a = nil; collectgarbage(); b = nil; collectgarbage(); d = probe.Probe.new(4); e = probe.Probe.new(5)");
  EXPECT_EQ(id_of("d"), id_b);
  EXPECT_EQ(id_of("e"), id_a);
  LuaProbe outside;
  EXPECT_EQ(outside.object_id, 0U);
  outside.OnBeforeLuaCreate();
  const auto id = outside.object_id;
  outside.OnBeforeLuaCreate();
  EXPECT_EQ(outside.object_id, id);
}

}  // namespace
}  // namespace zeph::binding
