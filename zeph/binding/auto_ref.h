/// Reference-counted handle of objects that are shared between scripts and native code.
#pragma once

#include <memory>
#include <utility>

#include <zeph/platform/script_binding/enable_auto_ref.h>
#include <zeph/platform/zpthreading/zpthreading.h>

namespace zeph::binding {

/// Holds an object whose class is below EnableAutoRef. The strong count is a plain int: one thread at a time changes
/// the count of one object. The last reference ends the object on the script thread, at once or through its command
/// queue.
template <typename T>
class AutoRef {
 public:
  AutoRef() noexcept = default;
  AutoRef(T* object) { Bind(object); }  // NOLINT(google-explicit-constructor): native functions return `new Str(...)`
  AutoRef(const AutoRef& other) { Copy(other); }
  AutoRef(AutoRef&& other) noexcept
      : m_object(std::exchange(other.m_object, nullptr)), m_count(std::exchange(other.m_count, nullptr)) {}
  template <typename U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  // NOLINTNEXTLINE(google-explicit-constructor): as pointers to a base convert
  AutoRef(const AutoRef<U>& other) : AutoRef(other.alive() ? static_cast<T*>(other.get()) : nullptr) {}
  ~AutoRef() { Release(); }

  AutoRef& operator=(T* object) { return *this = AutoRef(object); }
  AutoRef& operator=(const AutoRef& other) { return *this = AutoRef(other); }
  AutoRef& operator=(AutoRef&& other) noexcept {
    std::swap(m_object, other.m_object);
    std::swap(m_count, other.m_count);
    return *this;
  }

  /// True when there is an object and it has not ended. Nothing else may follow the pointer.
  [[nodiscard]] bool alive() const noexcept { return m_count != nullptr && *m_count >= 1; }
  [[nodiscard]] T* get() const noexcept { return m_object; }
  T* operator->() const noexcept { return m_object; }
  T& operator*() const noexcept { return *m_object; }

  /// Stops counting without ending the object: the reference stays, as one that does not keep its object.
  void Weaken() noexcept { --*m_count; }
  /// Counts again after Weaken.
  void Strengthen() noexcept { ++*m_count; }
  /// Lets go after Weaken.
  void Forget() noexcept {
    m_object = nullptr;
    m_count.reset();
  }

 private:
  void Bind(T* object) {
    m_object = object;
    if (object != nullptr) {
      m_count = object->StrongCount();
      ++*m_count;
    }
  }

  /// A copy of a dead reference is empty: the object can't be asked for anything.
  void Copy(const AutoRef& other) {
    if (other.alive()) {
      m_object = other.m_object;
      m_count = other.m_count;
      ++*m_count;
    }
  }

  void Release() noexcept {
    if (alive() && --*m_count == 0) {
      if (zpthreading::GetThreadCategory() == 0) {
        m_object->DeleteAutoRefObj();
      } else {
        Post(m_object);
      }
    }
  }

  static void Post(T* object) noexcept {
    try {
      zpthreading::zpThread<0>::Handle->post([object] { object->DeleteAutoRefObj(); });
    } catch (const std::bad_alloc&) {
      // The object stays: better one that is never freed than one freed on the wrong thread.
    }
  }

  T* m_object = nullptr;
  std::shared_ptr<int> m_count;
};

}  // namespace zeph::binding
