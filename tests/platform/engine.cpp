#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include <zeph/platform/script_core/lua_engine.h>
#include <zeph/platform/zpthreading/zpthreading.h>

namespace {

std::thread::id script_thread;
std::mutex mutex;
std::vector<std::function<void()>> jobs;

}  // namespace

void engine::become_script_thread() noexcept { script_thread = std::this_thread::get_id(); }

void engine::enqueue(std::function<void()> job) {
  const std::lock_guard lock(mutex);
  jobs.push_back(std::move(job));
}

int engine::work() {
  int count = 0;
  std::unique_lock lock(mutex);
  for (; !jobs.empty(); ++count) {
    const auto job = std::move(jobs.back());
    jobs.pop_back();
    lock.unlock();
    job();
    lock.lock();
  }
  return count;
}

unsigned zeph::zpthreading::GetThreadCategory() noexcept { return std::this_thread::get_id() == script_thread ? 0 : 1; }
zeph::zpthreading::JobQueue* zeph::zpthreading::zpThread<0>::Handle = new JobQueue;

zeph::lua::LuaEngine& zeph::lua::LuaEngine::getInstance() noexcept {
  static thread_local LuaEngine engine;
  return engine;
}
