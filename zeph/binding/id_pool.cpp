#include <zeph/binding/wrapped_script_object.h>

namespace zeph::binding {

ScriptObjectIdPool& ScriptObjectIdPool::Instance() {
  static ScriptObjectIdPool pool;
  return pool;
}

}  // namespace zeph::binding
