// The value classes on the native side: across the stack, through Object, their defaults, writing into tables.
#include <array>
#include <bit>
#include <cstring>
#include <memory>
#include <numeric>

#include <gtest/gtest.h>

#include <zeph/math3d/lua_aabb.h>
#include <zeph/math3d/lua_color.h>
#include <zeph/math3d/lua_matrix.h>
#include <zeph/math3d/lua_matrix33.h>
#include <zeph/math3d/lua_plane.h>
#include <zeph/math3d/lua_ray.h>
#include <zeph/math3d/lua_rect.h>
#include <zeph/math3d/lua_rotation.h>
#include <zeph/math3d/lua_vector2.h>
#include <zeph/math3d/lua_vector4.h>
#include <zeph/platform/script_core/lua_engine.h>

#include "lua_state.h"

namespace zeph::math3d {
namespace {

using binding::AutoRef;
using binding::Object;
using binding::ScriptClass;
using binding::TypeTraits;

/// A value without two members alike.
template <typename T>
T counting() {
  std::array<float, sizeof(T) / sizeof(float)> floats;
  std::iota(floats.begin(), floats.end(), 1.0F);
  return std::bit_cast<T>(floats);
}
template <>
Color32 counting<Color32>() {
  return from_word(0x04010203);
}

template <typename T>
T zeros() {
  return std::bit_cast<T>(std::array<unsigned char, sizeof(T)>{});
}

template <typename T>
bool same(const T& a, const T& b) {
  return std::memcmp(&a, &b, sizeof(T)) == 0;
}

template <typename T>
class ValueClass : public testing::Test {
 protected:
  ~ValueClass() override { zpthreading::zpThread<0>::Handle->run(); }
  /// Pushes a table of the class that has no fields.
  void push_bare() {
    lua_createtable(L, 0, 0);
    lua_getfield(L, LUA_REGISTRYINDEX, ScriptClass<T>::kClsName);
    lua_setmetatable(L, -2);
  }
  test::LuaState state;
  lua_State* L = state.L;
};
using ValueTypes = testing::Types<_Point2<float>, _Vector3<float>, Vector4<float>, _Rotation<float>, _Rect<float>,
                                  RectOffset, Color32, ColorF, _Plane<float>, Ray>;
TYPED_TEST_SUITE(ValueClass, ValueTypes);

TYPED_TEST(ValueClass, CrossesTheStackAndGoesThroughObject) {
  using Traits = TypeTraits<TypeParam>;
  TypeParam value = counting<TypeParam>();
  EXPECT_EQ(Traits::Boxing(this->L, &value, false), 1);
  EXPECT_TRUE(Traits::Checking(this->L, 1, false));
  EXPECT_TRUE(same(Traits::Unboxing(this->L, 1), value));
  const AutoRef<Object> object = Traits::Packing(&value);
  EXPECT_TRUE(Traits::Inspecting(object.get()));
  EXPECT_TRUE(same(Traits::Unpacking(object.get()), value));
  const AutoRef<Object> unboxed = Object::Unboxing(this->L, 1);
  EXPECT_EQ(Traits::Inspecting(unboxed.get()), (!std::is_same_v<TypeParam, RectOffset>));
}

TYPED_TEST(ValueClass, DefaultsOfMissingFieldsAndDeadReferences) {
  using Class = typename ScriptClass<TypeParam>::Type;
  TypeParam missing = zeros<TypeParam>();
  TypeParam dead = missing;
  if constexpr (std::is_same_v<TypeParam, ColorF>) {
    missing = dead = {1.0F, 1.0F, 1.0F, 1.0F};
  } else if constexpr (std::is_same_v<TypeParam, _Rotation<float>>) {
    missing = {1.0F, 1.0F, 1.0F, 1.0F};
  } else if constexpr (std::is_same_v<TypeParam, Color32>) {
    dead = from_word(0xFFFFFFFF);
  }
  this->push_bare();
  EXPECT_TRUE(same(TypeTraits<TypeParam>::Unboxing(this->L, 1), missing));
  EXPECT_TRUE(same(Class::Unpacking(AutoRef<Class>()), dead));
}

TYPED_TEST(ValueClass, FlushIsWholeOrNotAtAll) {
  using Class = typename ScriptClass<TypeParam>::Type;
  lua::LuaEngine::getInstance().SetRunningState(this->L);
  const auto flush = [](lua_State*) {
    const TypeParam value = counting<TypeParam>();
    Class::FlushToDummyScriptObject(1, &value);
    return 0;
  };
  this->push_bare();
  const TypeParam before = Class::Unboxing(this->L, 1);
  int refusals = 0;
  for (int status = LUA_ERRMEM; status != LUA_OK; ++refusals) {
    ASSERT_LT(refusals, 100);
    EXPECT_TRUE(same(Class::Unboxing(this->L, 1), before));
    lua_settop(this->L, 1);
    lua_pushcfunction(this->L, flush);
    lua_pushvalue(this->L, 1);
    this->state.allocator.fail_at = refusals;
    status = lua_pcall(this->L, 1, 0, 0);
    this->state.allocator.fail_at = -1;
  }
  EXPECT_GT(refusals, 1);
  EXPECT_TRUE(same(Class::Unboxing(this->L, 1), counting<TypeParam>()));
}

template <typename T>
class WrappedClass : public testing::Test {
 protected:
  test::LuaState state;
  lua_State* L = state.L;
};
using WrappedTypes = testing::Types<_Matrix<float>, Matrix33, AABB>;
TYPED_TEST_SUITE(WrappedClass, WrappedTypes);

TYPED_TEST(WrappedClass, CrossesByPointerAndIsMadeByItsCreator) {
  using Traits = TypeTraits<TypeParam>;
  using Class = typename ScriptClass<TypeParam>::Type;
  TypeParam value = counting<TypeParam>();
  EXPECT_EQ(Traits::Boxing(this->L, &value, false), 1);
  EXPECT_TRUE(Traits::Checking(this->L, 1, false));
  EXPECT_TRUE(same(*Traits::Unboxing(this->L, 1), value));
  EXPECT_EQ(Traits::Unboxing(this->L, 1), Traits::Unboxing(this->L, 1));
  const AutoRef<Object> object = Traits::Packing(&value);
  EXPECT_TRUE(Traits::Inspecting(object.get()) && same(*Traits::Unpacking(object.get()), value));
  EXPECT_EQ(Object::Boxing(this->L, object, false), 1);
  EXPECT_EQ(Traits::Unboxing(this->L, 2), Traits::Unpacking(object.get()));
  const std::unique_ptr<binding::LuaObject> made(
      Object::CreateSpaceObjectWithPolymorphicTypeid(typeid(TypeParam).hash_code()));
  ASSERT_NE(made, nullptr);
  EXPECT_STREQ(made->GetClsName(), Class::ClsName());
  EXPECT_TRUE(same(static_cast<Class*>(made.get())->m_value, TypeParam{}));
  EXPECT_TRUE(Traits::auto_reg_creator);
}

TEST(MatrixClass, MemberOperationsWorkOnTheValue) {
  LuaMatrix object;
  EXPECT_TRUE(same(object.m_value, _Matrix<float>{}));
  object.m_value = matrix_from_rows({2, 0, 0}, {0, 3, 0}, {0, 0, 4});
  object.set_translation({5, 6, 7});
  object.set_scale({1, 2, 3});
  object.set_rotation(matrix_from_rows({0, 9, 0}, {-9, 0, 0}, {0, 0, 9}));
  EXPECT_TRUE(same(object.m_value, matrix_from_rows({0, 1, 0}, {-2, 0, 0}, {0, 0, 3}, {5, 6, 7})));
  EXPECT_TRUE(near(object.get_scale(), {1, 2, 3}) && near(object.get_translation(), {5, 6, 7}));
  EXPECT_TRUE(near(object.get_right(), {0, 1, 0}) && near(object.get_up(), {-2, 0, 0}) &&
              near(object.get_forward(), {0, 0, 3}));
  EXPECT_TRUE(near(object.get_rotation(), matrix_from_rows({0, 1, 0}, {-1, 0, 0}, {0, 0, 1}), 1e-6F));
  object.set_m33(Matrix33{});
  EXPECT_TRUE(near(object.get_m33(), Matrix33{}, 0.0F) && near(object.get_translation(), {5, 6, 7}));
}

TEST(RectClass, MemberOperationsWorkOnTheValue) {
  _Rect<float> rect{1, 2, 4, 6};
  const AutoRef<LuaRectF> object = LuaRectF::Wrapping(&rect);
  EXPECT_TRUE(object->get_min() == (_Point2<float>{1, 2}) && object->get_max() == (_Point2<float>{4, 6}));
  EXPECT_TRUE(object->get_width() == 3 && object->get_height() == 4);
  object->set_min({0, 1});
  object->set_max({5, 5});
  EXPECT_TRUE(object->m_value == (_Rect<float>{0, 1, 5, 5}));
  object->set_width(-2);
  object->set_height(9);
  EXPECT_TRUE(object->m_value == (_Rect<float>{0, 1, -2, 10}));
}

TEST(AabbClass, KeepsItsTagAndStartsEmpty) {
  EXPECT_TRUE(same(LuaAABB().m_value, AABB{}));
  AABB box = aabb_around({1, 2, 3}, {2, 4, 6});
  box.tag = 7;
  test::LuaState state;
  EXPECT_EQ(TypeTraits<AABB>::Boxing(state.L, &box, false), 1);
  lua_setglobal(state.L, "box");
  state.run("box = math3d.Aabb.new(box)");
  lua_getglobal(state.L, "box");
  EXPECT_TRUE(same(*TypeTraits<AABB>::Unboxing(state.L, 1), box));
  EXPECT_TRUE(TypeTraits<AABB>::auto_reg_creator);
}

}  // namespace
}  // namespace zeph::math3d
