/// Registration of one class: the entries that every class has, then its own.
#pragma once

#include <cstring>
#include <new>

#include <zeph/binding/type_traits.h>
#include <zeph/platform/script_binding/zplua.h>

namespace zeph::binding {

namespace detail {

inline void set_text_field(lua_State* L, const char* key, const char* text) {
  lua_pushstring(L, key);
  lua_pushstring(L, text);
  lua_rawset(L, -3);
}

/// The class is open: adds the entries that do not depend on it.
inline void register_standard_entries(lua_State* L, bool is_dummy_type, const char* cls_name, const char* lua_name) {
  if (!is_dummy_type) {
    zplua_function(L, "__gc", zplua_collectluaobject);
    zplua_function(L, "__clear", zplua_clearluaobject);
  }
  zplua_function(L, "__tostring", zplua_luaobjecttostr);
  zplua_function(L, "mro", zplua_luaobjectmro);
  zplua_function(L, "type", zplua_luaobjecttype);
  zplua_function(L, "getProperties", zplua_classproperties);
  lua_pushstring(L, "__zplua_class");
  lua_pushboolean(L, 1);
  lua_rawset(L, -3);
  set_text_field(L, "class_name", cls_name);
  set_text_field(L, "lua_name", lua_name);
}

/// As register_class, but for memory that the native heap does not have: then it throws.
template <ScriptType T>
[[gnu::cold]] void register_class_or_throw(lua_State* L, const char* name) {
  using Class = typename ScriptClass<T>::Type;
  const char* lua_name = Class::LuaName();
  if (name == nullptr) {
    name = ScriptClass<T>::kDefaultName;
  }
  zplua_cclass(L, lua_name, Class::ClsName(), "");
  zplua_beginmodule(L, lua_name);
  register_standard_entries(L, Class::IsDummyType(), Class::ClsName(), lua_name);
  if constexpr (WrappedType<T>) {
    if constexpr (kOwnsNothing<T>) {
      zplua_barevalues(L, Class::ClsName(), [](const void* value) -> LuaObject* {
        auto* object = new (std::nothrow) Class;
        if (object != nullptr) {
          object->m_value = *static_cast<const T*>(value);
        }
        return object;
      });
    }
  }
  Class::InitializeLuaClass(L);
  zplua_endmodule(L, nullptr);
  if (std::strcmp(lua_name, name) != 0) {
    zplua_remodule(L, lua_name, name);
  }
}

}  // namespace detail

/// Makes the class of T in the open module, with `name` as an alias where that differs from the class's own name. A
/// null name is the class's default name. Memory errors are Lua errors.
template <ScriptType T>
void register_class(lua_State* L, const char* name) {
  try {
    detail::register_class_or_throw<T>(L, name);
    return;
  } catch (const std::bad_alloc&) {
    // Raised below, outside the handler.
  }
  luaL_error(L, "not enough memory");
}

/// Lets Object::Unboxing make an Object from a table of the class; taken back when the library is unloaded.
template <DummyType T>
class UnboxingRegistration {
 public:
  UnboxingRegistration() {
    Object::RegisterClsDefUnboxingCotr(ScriptClass<T>::kClsName, &ScriptClass<T>::Type::UnboxingFromScriptObject);
  }
  UnboxingRegistration(const UnboxingRegistration&) = delete;
  UnboxingRegistration& operator=(const UnboxingRegistration&) = delete;
  ~UnboxingRegistration() { Object::RegisterClsDefUnboxingCotr(ScriptClass<T>::kClsName, nullptr); }

  /// Registers on the first call.
  static void Ensure() { static const UnboxingRegistration registration; }
};

}  // namespace zeph::binding
