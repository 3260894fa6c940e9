/// The engine's own: scripts run on the thread that the engine says, and jobs for it wait in the engine's list.
#pragma once

#include <functional>

#pragma GCC visibility push(default)

namespace engine {

void become_script_thread() noexcept;
void enqueue(std::function<void()> job);
/// Runs what waits, and returns how many jobs that were.
int work();

}  // namespace engine

namespace zeph::zpthreading {

unsigned GetThreadCategory() noexcept;
/// The engine has said already which thread it is.
inline void ClaimScriptThread() noexcept {}

struct JobQueue {
  void post(const std::function<void()>& command) { engine::enqueue(command); }
  void drain() { engine::work(); }
};

template <unsigned Category>
struct zpThread;
template <>
struct zpThread<0> {
  static JobQueue* Handle;
};

}  // namespace zeph::zpthreading

#pragma GCC visibility pop
