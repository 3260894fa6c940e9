/// A script class made by the tests: a wrapped one, with every kind of row that a table can have.
#pragma once

#include <zeph/binding/type_traits.h>
#include <zeph/math3d/lua_vector3.h>

namespace zeph::test {

/// Native type of the class. `live` counts the objects of it, wherever they are.
struct Probe {
  float number = 0.0F;
  math3d::_Vector3<float> place{};
};

class LuaProbe;

}  // namespace zeph::test

template <>
struct zeph::binding::ScriptClass<zeph::test::Probe> {
  using Type = test::LuaProbe;
  static constexpr bool kIsDummyType = false;
  static constexpr char kNativeName[] = "struct zeph::test::Probe";
  static constexpr char kClsName[] = "class zeph::test::LuaProbe";
  static constexpr char kLuaName[] = "Probe";
  static constexpr char kDefaultName[] = "Probe";
};

namespace zeph::test {

class LuaProbe : public binding::WrappedClass<LuaProbe, Probe> {
 public:
  LuaProbe() noexcept { ++live; }
  LuaProbe(const LuaProbe& other) : WrappedClass(other) { ++live; }
  LuaProbe& operator=(const LuaProbe&) = default;
  ~LuaProbe() override { --live; }

  std::string AsString() const override { return "Probe(" + std::to_string(m_value.number) + ")"; }
  static void InitializeLuaClass(lua_State* L);

  static int live;
};

/// Opens the module `probe` with the class and some functions.
int open_probe(lua_State* L);

}  // namespace zeph::test
