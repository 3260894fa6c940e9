#include <zeph/platform/script_core/lua_engine.h>

namespace zeph::lua {

LuaEngine& LuaEngine::getInstance() noexcept {
  static LuaEngine engine;
  return engine;
}

}  // namespace zeph::lua
