/// Native twin of a dummy value: for a value that has to live outside the Lua stack.
#pragma once

#include <memory>

#include <zeph/binding/auto_ref.h>
#include <zeph/binding/dummy_table.h>
#include <zeph/export.h>
#include <zeph/platform/script_binding/dummy_object.h>
#include <zeph/platform/script_binding/object.h>
#include <zeph/platform/script_core/lua_engine.h>

namespace zeph::binding {

template <typename T>
class ZEPH_MATH3D_API DummyScriptObject : public DummyObject {
 public:
  DummyScriptObject() = default;
  DummyScriptObject(const DummyScriptObject&) = default;
  DummyScriptObject& operator=(const DummyScriptObject&) = default;
  ~DummyScriptObject() override {
    if (builtin_object != nullptr) {
      builtin_object->DisconnectScriptObject();
      builtin_object = nullptr;
    }
  }

  void SetBuiltinObject(Object* object) override { builtin_object = object; }
  /// The Object that stands for this one, made on the first call. It keeps this object alive, not the other way round.
  Object* GetBuiltinObject() override {
    if (builtin_object == nullptr) {
      builtin_object = Object::FromDummyObjectWithName(this, GetClsName());
    }
    return builtin_object;
  }

  /// Does nothing: the class below knows the fields.
  static void FlushToDummyScriptObject(int, const T*) {}

  T m_value{};
  Object* builtin_object = nullptr;  ///< not owned, not counted
};

/// What every dummy script class offers, from the description of its native type.
template <typename Class, typename T>
class ZEPH_MATH3D_API DummyClass : public DummyScriptObject<T> {
 public:
  static const char* ClsName() { return ScriptClass<T>::kClsName; }
  static const char* LuaName() { return ScriptClass<T>::kLuaName; }
  static bool IsDummyType() { return true; }

  const char* GetClass() const override { return ClsName(); }
  const char* GetClsName() const override { return ClsName(); }
  const char* GetLuaName() const override { return LuaName(); }
  int Boxing(lua_State* L, bool inside_table) override { return Boxing(L, &this->m_value, inside_table); }

  static bool Checking(lua_State* L, int index, bool nullable) {
    return zplua_isdummytype(L, index, ClsName(), nullable);
  }
  /// Pushes a new table with the value, which is a T; returns 1. An error if the class is not registered on the state.
  static int Boxing(lua_State* L, void* value, bool) {
    luaL_checkstack(L, LUA_MINSTACK, ClsName());
    NamedKeys::PushMetatable<T>(L);
    lua_pop(L, 1);
    build_table<NamedKeys>(L, *static_cast<const T*>(value));
    return 1;
  }
  /// The value of the table at `index`, which has to be one of the class.
  static T Unboxing(lua_State* L, int index) {
    luaL_checkstack(L, LUA_MINSTACK, ClsName());
    const int top = lua_gettop(L);
    T value = ScriptClass<T>::kMissing;
    read_table<NamedKeys>(L, zplua_state(L), lua_absindex(L, index), value);
    lua_settop(L, top);
    return value;
  }
  /// An Object that holds the value of the table at `index`.
  static Object* UnboxingFromScriptObject(lua_State* L, int index) {
    T value = Unboxing(L, index);
    return PackingInObject(&value);
  }
  /// An Object that holds a copy of the value.
  static Object* PackingInObject(T* value) {
    std::unique_ptr<Class> script_object(Wrapping(value));  // ends here if there is no memory for its Object
    Object* object = script_object->GetBuiltinObject();
    static_cast<void>(script_object.release());
    return object;
  }

  static Class* Wrapping(T* value) {
    auto* object = new Class;
    object->m_value = *value;
    return object;
  }
  static T Unwrapping(Class* object) { return object->m_value; }
  static T Unpacking(Class* object) { return object->m_value; }
  static T Unpacking(AutoRef<Class> reference) {
    return reference.alive() ? reference->m_value : ScriptClass<T>::kDeadReference;
  }

  /// Writes the value into the table at the absolute index `index` of the state whose call is running. Does nothing if
  /// that is no table of the class.
  static void FlushToDummyScriptObject(int index, const T* value) {
    lua_State* L = lua::LuaEngine::getInstance().GetRunningState();
    if (L != nullptr && Checking(L, index, false)) {
      luaL_checkstack(L, LUA_MINSTACK, ClsName());
      const int top = lua_gettop(L);
      write_table<NamedKeys>(L, index, *value, false);
      lua_settop(L, top);
    }
  }
};

}  // namespace zeph::binding
