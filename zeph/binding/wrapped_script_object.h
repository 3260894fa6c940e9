/// Native object behind a userdata: it holds one value of T.
#pragma once

#include <atomic>
#include <cstdint>
#include <new>
#include <typeinfo>
#include <vector>

#include <zeph/binding/auto_ref.h>
#include <zeph/binding/script_class.h>
#include <zeph/export.h>
#include <zeph/platform/script_binding/custom_boxing.h>
#include <zeph/platform/script_binding/lua_object.h>
#include <zeph/platform/script_binding/object.h>

namespace zeph::binding {

/// Ids of the objects that are in Lua, of all wrapped classes of all libraries together: there is one pool, that of
/// libmath3d. The id released last is given out first.
class ScriptObjectIdPool {
 public:
  ZEPH_MATH3D_API static ScriptObjectIdPool& Instance();

  std::uint32_t Acquire() {
    if (free_ids.empty()) {
      return next_id.fetch_add(1, std::memory_order_relaxed);
    }
    const std::uint32_t id = free_ids.back();
    free_ids.pop_back();
    return id;
  }
  void Release(std::uint32_t id) noexcept {
    try {
      free_ids.push_back(id);
    } catch (const std::bad_alloc&) {
      // The id is not used again.
    }
  }

 private:
  std::atomic<std::uint32_t> next_id{1};
  std::vector<std::uint32_t> free_ids;  ///< unlike a deque, made without memory
};

template <typename T>
class ZEPH_MATH3D_API WrappedScriptObject : public LuaObject, public CustomBoxing<DefaultBoxing> {
 public:
  WrappedScriptObject() = default;
  WrappedScriptObject(const WrappedScriptObject&) = default;
  WrappedScriptObject& operator=(const WrappedScriptObject&) = default;
  ~WrappedScriptObject() override {
    if (m_kept_by_object) {
      builtin_object->DisconnectScriptObject();
      builtin_object.Forget();
    } else if (builtin_object.alive()) {
      builtin_object->DisconnectScriptObject();
    }
  }

  void SetBuiltinObject(Object* object) override {
    if (m_kept_by_object) {
      m_kept_by_object = false;
      builtin_object.Forget();
    }
    builtin_object = object;
  }
  /// The Object that stands for this one, made when there is none alive.
  Object* GetBuiltinObject() override {
    if (!m_kept_by_object && !builtin_object.alive()) {
      builtin_object = Object::FromLuaObjectWithName(this, GetClsName());
    }
    return builtin_object.get();
  }

  /// Takes an id, and the ownership of this object back from its Object: Lua has it now.
  void OnBeforeLuaCreate() override {
    if (m_kept_by_object) {
      m_kept_by_object = false;
      builtin_object->OwnScriptObject(false);
      builtin_object.Strengthen();
    }
    if (object_id == 0) {
      object_id = ScriptObjectIdPool::Instance().Acquire();
    }
  }
  /// Gives the id back and ends the object.
  void OnBeforeLuaRemove() override {
    if (object_id != 0) {
      ScriptObjectIdPool::Instance().Release(object_id);
      object_id = 0;
    }
    delete this;
  }

  /// For an object that is in no Lua state: makes its Object the owner, so that the object goes with the last
  /// reference to that. Returns the Object.
  Object* LeaveToBuiltinObject() {
    Object* object = GetBuiltinObject();
    if (!m_kept_by_object) {
      m_kept_by_object = true;
      object->OwnScriptObject(true);
      builtin_object.Weaken();
    }
    return object;
  }

  T m_value{};
  AutoRef<Object> builtin_object;  ///< while it owns this object, a reference that is not counted
};

/// What every wrapped script class offers, from the description of its native type.
template <typename Class, typename T>
class ZEPH_MATH3D_API WrappedClass : public WrappedScriptObject<T> {
 public:
  static const char* ClsName() { return ScriptClass<T>::kClsName; }
  static const char* LuaName() { return ScriptClass<T>::kLuaName; }
  static bool IsDummyType() { return false; }

  const char* GetClass() const override { return ClsName(); }
  const char* GetClsName() const override { return ClsName(); }
  const char* GetLuaName() const override { return LuaName(); }
  LuaObject* Clone() const override {
    auto* object = new Class;
    object->m_value = this->m_value;
    return object;
  }

  /// A new object around a copy of the value, of the class that the type's creator decides.
  static Class* Wrapping(T* value) {
    auto* object = static_cast<Class*>(Object::CreateSpaceObjectWithPolymorphicTypeid(typeid(T).hash_code()));
    if (object == nullptr) {
      object = new Class;
    }
    object->m_value = *value;
    return object;
  }
  static T* Unwrapping(Class* object) { return &object->m_value; }
};

}  // namespace zeph::binding
