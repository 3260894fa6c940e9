/// Base of everything that an AutoRef can hold.
#pragma once

#include <memory>
#include <string>

#include <zeph/platform/export.h>

namespace zeph::binding {

/// Owns the strong count of its object. The count lives on after the object, at zero, so that an AutoRef that
/// outlives the object can see that it is gone.
class ZEPH_PLATFORM_API EnableAutoRef {
 public:
  virtual std::string AsString() const;
  virtual ~EnableAutoRef();

  /// Number of live AutoRefs; changed by one thread at a time.
  [[nodiscard]] const std::shared_ptr<int>& StrongCount() const noexcept { return m_strong_count; }

 protected:
  EnableAutoRef() : m_strong_count(std::make_shared<int>(0)) {}
  /// A copy is a new object: it starts its own count.
  EnableAutoRef(const EnableAutoRef&) : EnableAutoRef() {}
  EnableAutoRef& operator=(const EnableAutoRef&) noexcept { return *this; }

 private:
  std::shared_ptr<int> m_strong_count;
};

}  // namespace zeph::binding
