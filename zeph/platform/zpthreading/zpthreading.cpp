#include <zeph/platform/zpthreading/zpthreading.h>

#include <atomic>
#include <utility>

namespace zeph::zpthreading {

namespace {

std::atomic<bool> script_thread_claimed{false};
thread_local bool is_script_thread = false;

detail::zpThreadCommandQueue& script_thread_queue() {
  static detail::zpThreadCommandQueue queue;
  return queue;
}

}  // namespace

detail::zpThreadCommandQueue* zpThread<0>::Handle = &script_thread_queue();

unsigned GetThreadCategory() noexcept {
  return is_script_thread || !script_thread_claimed.load(std::memory_order_acquire) ? 0 : 1;
}

void ClaimScriptThread() noexcept {
  if (!script_thread_claimed.exchange(true, std::memory_order_acq_rel)) {
    is_script_thread = true;
  }
}

namespace detail {

zpThreadCommandQueue::~zpThreadCommandQueue() { drain(); }

void zpThreadCommandQueue::post(const std::function<void()>& command) {
  const std::lock_guard lock(m_mutex);
  m_commands.push_back(command);
}

std::size_t zpThreadCommandQueue::run() { return GetThreadCategory() == 0 ? run_batch() : 0; }

void zpThreadCommandQueue::drain() {
  while (run_batch() != 0) {
  }
}

std::size_t zpThreadCommandQueue::run_batch() {
  std::vector<std::function<void()>> batch;
  {
    const std::lock_guard lock(m_mutex);
    batch.swap(m_commands);
  }
  for (const auto& command : batch) {
    command();
  }
  return batch.size();
}

}  // namespace detail

}  // namespace zeph::zpthreading
