/// The generic values: their texts, their equality as keys, and what they push.
#include <gtest/gtest.h>

#include "lua_state.h"

namespace zeph::binding {
namespace {

using V = math3d::_Vector3<float>;

TEST(BuiltinObjects, TextsAreFixedAndLimited) {
  EXPECT_EQ(AutoRef<Object>(new Integer(-7))->AsString(), "Integer(-7)");
  EXPECT_EQ(AutoRef<Object>(new Number(0.125))->AsString(), "Number(0.12)");
  EXPECT_EQ(AutoRef<Object>(new None)->AsString(), "None");
  const AutoRef<Str> text = new Str(std::string(2000, 'x'));
  EXPECT_EQ(text->AsString(), "String(" + std::string(1022 - 7, 'x'));
  EXPECT_EQ(text->value.size(), 2000U);
  EXPECT_LT(AutoRef<Object>(new Number(1e308))->AsString().size(), 100U);
  const AutoRef<Object> tuple = new Tuple(1);
  char expected[64];
  std::snprintf(expected, sizeof expected, "Tuple(0x%.12llX)",
                static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(tuple.get())));
  EXPECT_EQ(tuple->AsString(), expected);
  EXPECT_STREQ(tuple->TypeName(), "binding::Tuple");
}

TEST(BuiltinObjects, KeysAreOneWhenTheirTextsAre) {
  const AutoRef<Table> table = new Table;
  const auto set = [&](Object* key) { table->Set(AutoRef<Object>(key), AutoRef<Object>(new Number(1))); };
  set(new Integer(1));
  set(new Integer(1));
  EXPECT_EQ(table->size(), 1U);
  set(new Number(1));
  EXPECT_EQ(table->size(), 2U) << "an integer never equals a number";
  set(new Number(1.001));
  set(new Number(1.002));
  EXPECT_EQ(table->size(), 2U) << "1.00, 1.001 and 1.002 print alike";
  set(new Tuple(0));
  set(new Tuple(0));
  EXPECT_EQ(table->size(), 4U) << "containers equal only themselves";
  table->Set(AutoRef<Object>(), AutoRef<Object>());
  table->Set(AutoRef<Object>(), AutoRef<Object>());
  EXPECT_EQ(table->size(), 5U) << "empty keys are one";
}

class PushTest : public testing::Test {
 protected:
  int push(Object* object, bool inside_table = false) {
    return Object::Boxing(state.L, AutoRef<Object>(object), inside_table);
  }
  test::LuaState state;
};

TEST_F(PushTest, PlainValues) {
  EXPECT_EQ(push(new Integer(3)), 1);
  EXPECT_EQ(lua_isinteger(state.L, -1), 1);
  EXPECT_EQ(push(new Number(0.125)), 1);
  EXPECT_EQ(lua_tonumber(state.L, -1), 0.125);
  EXPECT_EQ(push(new Str(std::string("a\0b", 3))), 1);
  EXPECT_EQ(lua_rawlen(state.L, -1), 3U);
  EXPECT_EQ(push(new None), 1);
  EXPECT_TRUE(lua_isnil(state.L, -1));
  EXPECT_EQ(push(nullptr), 0);
  EXPECT_EQ(Object::Boxing(state.L, nullptr, true), 0);
}

TEST_F(PushTest, TupleIsSeveralValuesOrOneInsideATable) {
  const auto make = [] {
    auto* tuple = new Tuple(3);
    V place{1, 2, 3};
    tuple->Set(0, 1.5F);
    tuple->Set(0, 2.5F);
    tuple->Set(2, &place);
    return tuple;
  };
  EXPECT_EQ(push(make()), 3);
  EXPECT_EQ(lua_tonumber(state.L, 1), 2.5);
  EXPECT_TRUE(lua_isnil(state.L, 2));
  EXPECT_TRUE(TypeTraits<V>::Checking(state.L, 3, false));
  EXPECT_EQ(push(make(), true), 1);
}

TEST_F(PushTest, TableSkipsEntriesThatAreNotOneValueEach) {
  auto* table = new Table;
  const AutoRef<Object> keep = table;
  V place{1, 2, 3};
  table->Set(7, &place);
  table->Set(0, 0.5F);
  table->Set(AutoRef<Object>(new None), AutoRef<Object>(new Integer(1)));  // nil is no key
  table->Set(AutoRef<Object>(new Integer(4)), AutoRef<Object>());          // no value
  const int top = lua_gettop(state.L);
  EXPECT_EQ(push(table), 1);
  EXPECT_EQ(lua_gettop(state.L), top + 1);
  int entries = 0;
  for (lua_pushnil(state.L); lua_next(state.L, top + 1) != 0; lua_pop(state.L, 1)) {
    ++entries;
  }
  EXPECT_EQ(entries, 2);
  lua_rawgeti(state.L, top + 1, 7);
  EXPECT_EQ(TypeTraits<V>::Unboxing(state.L, -1).z, 3.0F);
  EXPECT_EQ(lua_getmetatable(state.L, top + 1), 0);
}

}  // namespace
}  // namespace zeph::binding
