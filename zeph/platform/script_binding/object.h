/// Generic handle of a value that crosses between scripts and native code.
#pragma once

#include <cstddef>
#include <functional>
#include <variant>

#include <zeph/platform/lua_api.h>
#include <zeph/platform/script_binding/custom_boxing.h>
#include <zeph/platform/script_binding/enable_auto_ref.h>

namespace zeph::binding {

class DummyObject;
class LuaObject;

/// Either stands for a script object (dummy or wrapped) of the class that `TypeName` names, or is, by derivation, a
/// value of its own. Held by AutoRef.
class ZEPH_PLATFORM_API Object : public EnableAutoRef, public CustomBoxing<BuiltinObjectBoxing> {
 public:
  using LuaObjectCreator = std::function<LuaObject*()>;
  using UnboxingConstructor = std::function<Object*(lua_State*, int)>;

  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  std::string AsString() const override;
  ~Object() override;
  /// Ends the object. AutoRef calls it when the last reference goes.
  virtual void DeleteAutoRefObj();
  /// The script object is gone: the handle stands for nothing from here on.
  virtual void DisconnectScriptObject();

  /// Text by which the family is told apart: a class's ClsName, or "binding::" and the name of a generic value.
  [[nodiscard]] const char* TypeName() const noexcept { return m_type_name; }

  /// Pushes the value and returns how many values that took. A null object pushes nothing. `inside_table` asks for
  /// exactly one value. The caller keeps the object alive: a Lua error may leave this call.
  static int Boxing(lua_State* L, Object* object, bool inside_table);
  /// The same for a reference-counted handle; a dead one pushes nothing.
  template <typename Reference>
    requires requires(const Reference& r) {
      r.alive();
      r.get();
    }
  static int Boxing(lua_State* L, const Reference& reference, bool inside_table) {
    return reference.alive() ? Boxing(L, static_cast<Object*>(reference.get()), inside_table) : 0;
  }

  /// The handle of the value at `index`: of a table whose class registered a constructor, or of a script object.
  /// Null for anything else. Bind the result to an AutoRef.
  static Object* Unboxing(lua_State* L, int index);

  /// Remembers how to make the script object of a native type. A later registration takes the place of an earlier
  /// one; an empty function removes it. True when a creator stands afterwards.
  static bool RegisterPolymorphicLuaObjectCreator(std::size_t type_hash, LuaObjectCreator creator);
  /// True while some type's creator is not the first that was registered for it: then objects have to be asked of
  /// the creators one by one.
  static bool CreatorsReplaced() noexcept { return s_replaced_creators != 0; }
  /// A new object by the type's creator, or null when it has none.
  static LuaObject* CreateSpaceObjectWithPolymorphicTypeid(std::size_t type_hash);

  /// Remembers how to make the handle of a table of a class; an empty function removes it.
  static void RegisterClsDefUnboxingCotr(const char* cls_name, UnboxingConstructor constructor);

  /// A handle of a dummy object; it holds a reference to the dummy object for as long as it lives.
  static Object* FromDummyObjectWithName(DummyObject* script_object, const char* cls_name);
  /// A handle of a script object; it does not keep the script object alive.
  static Object* FromLuaObjectWithName(LuaObject* script_object, const char* cls_name);
  static DummyObject* ToDummyObjectWithName(Object* object, const char* cls_name);
  static LuaObject* ToLuaObjectWithName(Object* object, const char* cls_name);
  static bool IsDummyObjectWithName(Object* object, const char* cls_name);
  static bool IsLuaObjectWithName(Object* object, const char* cls_name);

  /// Makes this handle the owner of a script object that is in no Lua state, or takes that back. An owner deletes the
  /// script object when it dies itself.
  void OwnScriptObject(bool owns) noexcept { m_owns_script_object = owns; }

 protected:
  explicit Object(const char* type_name) : m_type_name(type_name) {}

  /// Pushes a generic value; returns the count.
  virtual int PushValue(lua_State* L, bool inside_table);

 private:
  const char* m_type_name;
  std::variant<std::monostate, DummyObject*, LuaObject*> m_script_object;
  bool m_owns_script_object = false;

  static int s_replaced_creators;
};

}  // namespace zeph::binding
