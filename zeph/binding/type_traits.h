/// How native values cross to and from Lua and to and from Object: the surface for other modules of an engine.
#pragma once

#include <memory>

#include <zeph/binding/builtin_objects.h>
#include <zeph/binding/dummy_script_object.h>
#include <zeph/binding/wrapped_script_object.h>

namespace zeph::binding {

/// Defined for the native type of every script class.
template <typename T>
struct TypeTraits;

/// Makes the class of T in the open module: see meta_class.h.
template <ScriptType T>
void register_class(lua_State* L, const char* name);

/// Registers the creator of a wrapped type's script objects at load, and takes it back at unload.
template <typename T>
class CreatorRegistration {
 public:
  /// True once the creator is registered.
  static bool Ensure() {
    static const CreatorRegistration registration;
    return registration.m_registered;
  }
  CreatorRegistration(const CreatorRegistration&) = delete;
  CreatorRegistration& operator=(const CreatorRegistration&) = delete;
  ~CreatorRegistration() { Object::RegisterPolymorphicLuaObjectCreator(typeid(T).hash_code(), nullptr); }

 private:
  CreatorRegistration()
      : m_registered(Object::RegisterPolymorphicLuaObjectCreator(
            typeid(T).hash_code(), [] { return static_cast<LuaObject*>(new typename ScriptClass<T>::Type); })) {}

  bool m_registered;
};

/// Values that live in Lua as plain tables. They cross by copy.
template <DummyType T>
struct TypeTraits<T> {
  using Class = typename ScriptClass<T>::Type;

  /// Is the value at `index` one of the class? With `nullable`, nil and absence pass too.
  static bool Checking(lua_State* L, int index, bool nullable) { return Class::Checking(L, index, nullable); }
  /// Pushes a new table; returns 1.
  static int Boxing(lua_State* L, T* value, bool flag) { return Class::Boxing(L, value, flag); }
  /// The value of the table at `index`, for which Checking has to hold.
  static T Unboxing(lua_State* L, int index) { return Class::Unboxing(L, index); }
  /// Does the Object hold a value of the class?
  static bool Inspecting(Object* object) { return Object::IsDummyObjectWithName(object, Class::ClsName()); }
  /// A new Object with a copy of the value. Bind it to an AutoRef.
  static Object* Packing(T* value) { return Class::PackingInObject(value); }
  /// A copy of the value of the Object, for which Inspecting has to hold.
  static T Unpacking(Object* object) {
    return static_cast<Class*>(Object::ToDummyObjectWithName(object, Class::ClsName()))->m_value;
  }
  /// Makes the class in the module that is open on `L`. A null name is the class's default name.
  static void NewMetaClass(lua_State* L, const char* name) { register_class<T>(L, name); }
};

/// Values that live in Lua inside a script object. They cross as pointers to the value in there.
///
/// The primary template, and not a second specialisation by a concept: of two that differ in their constraints only,
/// GCC 12 instantiates the functions of the first, whatever is asked for explicitly.
template <typename T>
struct TypeTraits {
  static_assert(WrappedType<T>, "TypeTraits is for the native types of script classes");
  using Class = typename ScriptClass<T>::Type;

  static bool Checking(lua_State* L, int index, bool nullable) {
    return zplua_isluaobject(L, index, Class::ClsName(), nullable);
  }
  /// Pushes a new script object with a copy of the value; returns the count.
  static int Boxing(lua_State* L, T* value, bool) {
    Class* object = Class::Wrapping(value);
    return zplua_pushluaobject(L, object, object->GetClsName());
  }
  /// The value inside the script object at `index`, for which Checking has to hold; good while that lives. A bare value
  /// becomes an object, which stays where it is.
  static T* Unboxing(lua_State* L, int index) {
    luaL_checkstack(L, 1, Class::ClsName());
    const int top = lua_gettop(L);
    const ScriptState* state = zplua_state(L);
    ObjectSlot* place = zplua_objectofclass(L, index, state, kClassSlot<T>);
    lua_settop(L, top);
    if (place != nullptr && zplua_isbarevalue(place, state, kClassSlot<T>) && zplua_toluaobject(L, index) == nullptr) {
      return nullptr;  // a finalizer that ran meanwhile has ended it
    }
    return place == nullptr ? nullptr : value_inside<T>(place, state);
  }
  static bool Inspecting(Object* object) { return Object::IsLuaObjectWithName(object, Class::ClsName()); }
  /// A new Object that owns a new script object with a copy of the value. Bind it to an AutoRef.
  static Object* Packing(T* value) {
    std::unique_ptr<Class> script_object(Class::Wrapping(value));  // ends here if there is no memory for its Object
    Object* object = script_object->LeaveToBuiltinObject();
    static_cast<void>(script_object.release());
    return object;
  }
  /// The value inside the script object that the Object stands for; null if it is of another class or gone.
  static T* Unpacking(Object* object) {
    LuaObject* script_object = Object::ToLuaObjectWithName(object, Class::ClsName());
    return script_object == nullptr ? nullptr : &static_cast<Class*>(script_object)->m_value;
  }
  static void NewMetaClass(lua_State* L, const char* name) { register_class<T>(L, name); }

  /// True once the creator of the type's script objects is registered, at load.
  inline static bool auto_reg_creator = CreatorRegistration<T>::Ensure();
};

}  // namespace zeph::binding
