/// Native twin of a value that lives in Lua as a plain table.
#pragma once

#include <zeph/platform/lua_api.h>
#include <zeph/platform/script_binding/custom_boxing.h>
#include <zeph/platform/script_binding/enable_auto_ref.h>

namespace zeph::binding {

class Object;

class ZEPH_PLATFORM_API DummyObject : public EnableAutoRef, public CustomBoxing<DummyObjectBoxing> {
 public:
  ~DummyObject() override;

  virtual const char* GetClass() const;
  virtual const char* GetClsName() const;
  virtual const char* GetLuaName() const;
  virtual void SetBuiltinObject(Object* object);
  virtual Object* GetBuiltinObject();
  /// Ends the object. AutoRef calls it when the last reference goes.
  virtual void DeleteAutoRefObj();
  /// Pushes the value as a new table; returns the number of values pushed.
  virtual int Boxing(lua_State* L, bool inside_table);

 protected:
  DummyObject() = default;
  DummyObject(const DummyObject&) = default;
  DummyObject& operator=(const DummyObject&) = default;
};

}  // namespace zeph::binding
