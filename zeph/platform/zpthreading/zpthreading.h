/// Thread categories and the command queue of the script thread.
#pragma once

#include <cstddef>
#include <functional>
#include <mutex>
#include <vector>

#include <zeph/platform/export.h>

namespace zeph::zpthreading {

/// 0 on the script thread, 1 on any other. While no thread has been made the script thread, every thread counts as it.
ZEPH_PLATFORM_API unsigned GetThreadCategory() noexcept;

/// Makes the calling thread the one of category 0. The first call in a process decides; later ones change nothing.
ZEPH_PLATFORM_API void ClaimScriptThread() noexcept;

namespace detail {

/// Functions that other threads hand to the script thread, run in the order of posting.
class ZEPH_PLATFORM_API zpThreadCommandQueue {
 public:
  zpThreadCommandQueue() = default;
  zpThreadCommandQueue(const zpThreadCommandQueue&) = delete;
  zpThreadCommandQueue& operator=(const zpThreadCommandQueue&) = delete;
  /// Runs what is still queued, so that a queue that no host ever ran loses nothing.
  ~zpThreadCommandQueue();

  /// Queues a copy of the command. Any thread.
  void post(const std::function<void()>& command);

  /// Runs what is queued at the time of the call and returns how many commands that were; what the commands post
  /// themselves waits for the next call. Script thread only: elsewhere it runs nothing and returns 0.
  std::size_t run();

  /// As run, on whatever thread and until the queue is empty: for the end of the process or of a library, when no
  /// script runs any more.
  void drain();

 private:
  std::size_t run_batch();

  std::mutex m_mutex;
  std::vector<std::function<void()>> m_commands;
};

}  // namespace detail

/// The thread of a category; only category 0 has one with a queue.
template <unsigned Category>
struct zpThread;

template <>
struct ZEPH_PLATFORM_API zpThread<0> {
  static detail::zpThreadCommandQueue* Handle;
};

}  // namespace zeph::zpthreading
