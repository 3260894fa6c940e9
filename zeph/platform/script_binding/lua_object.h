/// Native object behind a userdata.
#pragma once

#include <cstdint>
#include <string>

#include <zeph/platform/export.h>

struct LuaObjectAccess;
struct ObjectSlot;
struct ScriptState;
struct lua_State;

namespace zeph::binding {

class Object;

/// Once pushed, the object belongs to its Lua state and ends with "__gc", "__clear" or the state.
class ZEPH_PLATFORM_API LuaObject {
 public:
  virtual const char* GetClass() const;
  virtual const char* GetClsName() const;
  virtual const char* GetLuaName() const;
  virtual ~LuaObject();
  virtual void SetBuiltinObject(Object* object);
  virtual Object* GetBuiltinObject();
  /// Called once the object stands in a userdata.
  virtual void OnBeforeLuaCreate();
  /// Called when its userdata goes; ends the object.
  virtual void OnBeforeLuaRemove();
  /// Called by "__clear" before the removal.
  virtual void Recycle();
  /// False makes every check reject the object while it stays in Lua.
  virtual bool IsValid() const;
  virtual std::string AsString() const;
  /// A copy on the native heap that no state owns yet, or null: what another Lua state is given.
  virtual LuaObject* Clone() const;

  /// The state that has the object; null before it enters Lua.
  [[nodiscard]] ScriptState* State() const noexcept;

 protected:
  LuaObject() = default;
  /// A copy is a new object: it is in no Lua state and has no id.
  LuaObject(const LuaObject&) noexcept {}
  LuaObject& operator=(const LuaObject&) noexcept { return *this; }

  /// For the class below: its Object owns this object. Here since it takes no room here.
  bool m_kept_by_object = false;

 private:
  friend struct ::LuaObjectAccess;

 public:
  /// Identity among the objects that are in Lua; 0 while it has none.
  std::uint32_t object_id = 0;

 private:
  // While a state watches the object: the state, the head of the userdata, the neighbours in the state's list.
  ScriptState* m_state = nullptr;
  ObjectSlot* m_place = nullptr;
  LuaObject* m_next = nullptr;
  LuaObject* m_previous = nullptr;
};

}  // namespace zeph::binding
