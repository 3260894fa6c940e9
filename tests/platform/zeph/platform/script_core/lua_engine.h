/// The engine's own: which state is running, one for each thread.
#pragma once

#include <zeph/platform/lua_api.h>

namespace zeph::lua {

class __attribute__((visibility("default"))) LuaEngine {
 public:
  static LuaEngine& getInstance() noexcept;
  lua_State* GetRunningState() const noexcept { return m_running; }
  void SetRunningState(lua_State* L) noexcept { m_running = L; }

 private:
  lua_State* m_running = nullptr;
};

}  // namespace zeph::lua
