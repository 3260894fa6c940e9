/// The engine's view of the scripts that run: which Lua state is the current one.
#pragma once

#include <zeph/platform/export.h>
#include <zeph/platform/lua_api.h>

namespace zeph::lua {

/// Names the state (main state or coroutine) whose call is running, for native code that is handed none.
class ZEPH_PLATFORM_API LuaEngine {
 public:
  static LuaEngine& getInstance() noexcept;

  /// Null before the first script call, and after the state that ran last was closed.
  [[nodiscard]] lua_State* GetRunningState() const noexcept { return m_running; }
  void SetRunningState(lua_State* L) noexcept { m_running = L; }

 private:
  LuaEngine() = default;

  lua_State* m_running = nullptr;
};

}  // namespace zeph::lua
