/// The base classes of objects, and the registers of how to make them.
#include <cstring>
#include <new>
#include <unordered_map>
#include <utility>

#include <zeph/platform/script_binding/dummy_object.h>
#include <zeph/platform/script_binding/object.h>
#include <zeph/platform/script_binding/script_state.h>
#include <zeph/platform/script_binding/zplua.h>

namespace zeph::binding {

namespace {

struct Creator {
  Object::LuaObjectCreator make;
  bool replaced = false;
};

std::unordered_map<std::size_t, Creator>& creators() {
  static std::unordered_map<std::size_t, Creator> map;
  return map;
}

std::unordered_map<std::string, Object::UnboxingConstructor>& unboxing_constructors() {
  static std::unordered_map<std::string, Object::UnboxingConstructor> map;
  return map;
}

}  // namespace

// EnableAutoRef

std::string EnableAutoRef::AsString() const { return {}; }
EnableAutoRef::~EnableAutoRef() { *m_strong_count = 0; }

// DummyObject

DummyObject::~DummyObject() = default;
const char* DummyObject::GetClass() const { return ""; }
const char* DummyObject::GetClsName() const { return ""; }
const char* DummyObject::GetLuaName() const { return ""; }
void DummyObject::SetBuiltinObject(Object*) {}
Object* DummyObject::GetBuiltinObject() { return nullptr; }
void DummyObject::DeleteAutoRefObj() { delete this; }
int DummyObject::Boxing(lua_State*, bool) { return 0; }

// LuaObject

const char* LuaObject::GetClass() const { return ""; }
const char* LuaObject::GetClsName() const { return ""; }
const char* LuaObject::GetLuaName() const { return ""; }
LuaObject::~LuaObject() {
  if (m_state != nullptr) {
    LuaObjectAccess::Unwatch(this);
  }
}
ScriptState* LuaObject::State() const noexcept { return m_state; }
void LuaObject::SetBuiltinObject(Object*) {}
Object* LuaObject::GetBuiltinObject() { return nullptr; }
void LuaObject::OnBeforeLuaCreate() {}
void LuaObject::OnBeforeLuaRemove() { delete this; }
void LuaObject::Recycle() {}
bool LuaObject::IsValid() const { return true; }
std::string LuaObject::AsString() const { return GetLuaName(); }
LuaObject* LuaObject::Clone() const { return nullptr; }

// Object

int Object::s_replaced_creators = 0;

Object::~Object() {
  if (auto* const* lua_object = std::get_if<LuaObject*>(&m_script_object);
      lua_object != nullptr && m_owns_script_object) {
    LuaObject* const owned = *lua_object;
    m_script_object = std::monostate{};
    owned->SetBuiltinObject(nullptr);
    delete owned;
  } else if (auto* const* dummy = std::get_if<DummyObject*>(&m_script_object)) {
    DummyObject* const held = *dummy;
    m_script_object = std::monostate{};
    held->SetBuiltinObject(nullptr);
    if (--*held->StrongCount() == 0) {
      held->DeleteAutoRefObj();
    }
  }
}

std::string Object::AsString() const { return m_type_name; }
void Object::DeleteAutoRefObj() { delete this; }

void Object::DisconnectScriptObject() {
  m_script_object = std::monostate{};
  m_owns_script_object = false;
}

int Object::PushValue(lua_State*, bool) { return 0; }

int Object::Boxing(lua_State* L, Object* object, bool inside_table) {
  if (object == nullptr) {
    return 0;
  }
  if (auto* const* dummy = std::get_if<DummyObject*>(&object->m_script_object)) {
    return (*dummy)->Boxing(L, inside_table);
  }
  if (auto* const* lua_object = std::get_if<LuaObject*>(&object->m_script_object)) {
    return zplua_pushluaobject(L, *lua_object, object->m_type_name);
  }
  return object->PushValue(L, inside_table);
}

Object* Object::Unboxing(lua_State* L, int index) {
  if (LuaObject* object = zplua_toluaobject(L, index)) {
    return object->GetBuiltinObject();
  }
  const char* name = zplua_typename(L, index, true);
  const auto found = unboxing_constructors().find(name);
  return found != unboxing_constructors().end() && zplua_isdummytype(L, index, name, false) ? found->second(L, index)
                                                                                            : nullptr;
}

bool Object::RegisterPolymorphicLuaObjectCreator(std::size_t type_hash, LuaObjectCreator creator) {
  const auto found = creators().find(type_hash);
  if (found != creators().end() && found->second.replaced) {
    --s_replaced_creators;
  }
  if (!creator) {
    creators().erase(type_hash);
    return false;
  }
  if (found == creators().end()) {
    creators().emplace(type_hash, Creator{std::move(creator)});
  } else {
    found->second = Creator{std::move(creator), true};
    ++s_replaced_creators;
  }
  return true;
}

LuaObject* Object::CreateSpaceObjectWithPolymorphicTypeid(std::size_t type_hash) {
  const auto found = creators().find(type_hash);
  return found == creators().end() ? nullptr : found->second.make();
}

void Object::RegisterClsDefUnboxingCotr(const char* cls_name, UnboxingConstructor constructor) {
  if (constructor) {
    unboxing_constructors()[cls_name] = std::move(constructor);
  } else {
    unboxing_constructors().erase(cls_name);
  }
}

Object* Object::FromDummyObjectWithName(DummyObject* script_object, const char* cls_name) {
  auto* object = new Object(cls_name);
  object->m_script_object = script_object;
  ++*script_object->StrongCount();
  return object;
}

Object* Object::FromLuaObjectWithName(LuaObject* script_object, const char* cls_name) {
  auto* object = new Object(cls_name);
  object->m_script_object = script_object;
  return object;
}

DummyObject* Object::ToDummyObjectWithName(Object* object, const char* cls_name) {
  return IsDummyObjectWithName(object, cls_name) ? std::get<DummyObject*>(object->m_script_object) : nullptr;
}

LuaObject* Object::ToLuaObjectWithName(Object* object, const char* cls_name) {
  return IsLuaObjectWithName(object, cls_name) ? std::get<LuaObject*>(object->m_script_object) : nullptr;
}

bool Object::IsDummyObjectWithName(Object* object, const char* cls_name) {
  return object != nullptr && std::holds_alternative<DummyObject*>(object->m_script_object) &&
         std::strcmp(object->m_type_name, cls_name) == 0;
}

bool Object::IsLuaObjectWithName(Object* object, const char* cls_name) {
  return object != nullptr && std::holds_alternative<LuaObject*>(object->m_script_object) &&
         std::strcmp(object->m_type_name, cls_name) == 0;
}

}  // namespace zeph::binding
