/// The memory of a Lua state, as tests want it.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <limits>

#include <lua.hpp>

namespace zeph::test {

/// Counts the bytes of a state. It can refuse the request that `fail_at` counts down to, or blocks that are too large,
/// or have Lua collect at requests.
struct Allocator {
  std::size_t bytes = 0;
  std::size_t largest_block = std::numeric_limits<std::size_t>::max();  ///< no larger block is granted
  long fail_at = -1;  ///< requests that grow a block still to grant before one is refused; negative: grants all
  /// Refuses each request of so many once: Lua collects all garbage then, and asks again. 0: none.
  unsigned collect_every = 0;
  unsigned requests = 0;
  bool asked = false;

  static void* allocate(void* context, void* block, std::size_t old_size, std::size_t new_size) {
    auto& self = *static_cast<Allocator*>(context);
    const bool is_object = block == nullptr && old_size != 0;  // then that tells the kind of object
    if (block == nullptr) {
      old_size = 0;
    }
    if (new_size == 0) {
      self.bytes -= old_size;
      std::free(block);
      return nullptr;
    }
    if (new_size > old_size && new_size > self.largest_block) {
      return nullptr;
    }
    if (new_size > old_size && self.fail_at >= 0 && self.fail_at-- == 0) {
      self.fail_at = 0;  // every later request fails too, also the one after the emergency collection
      return nullptr;
    }
    // The auxiliary library's buffers, larger than this, are not asked for again.
    if (new_size > old_size && self.collect_every != 0 && (is_object || new_size <= LUAL_BUFFERSIZE)) {
      self.asked = !self.asked && ++self.requests % self.collect_every == 0;
      if (self.asked) {
        return nullptr;
      }
    }
    void* moved = std::realloc(block, new_size);
    if (moved != nullptr) {
      self.bytes += new_size - old_size;
    }
    return moved;
  }
};

}  // namespace zeph::test
