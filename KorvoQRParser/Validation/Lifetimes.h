#ifndef KORVOQRPARSER_VALIDATION_LIFETIMES_H
#define KORVOQRPARSER_VALIDATION_LIFETIMES_H

#include <array>
#include <cstddef>
#include <new>

namespace korvo {

/// Holds an object that is never destroyed. It is meant for function-local statics: the destructors of a
/// caller's global objects, and threads that outlive main, may still parse.
template <class Object>
class NeverDestroyed {
  public:
    /// Holds the object that `make` returns. `make` must not throw.
    template <class Make>
    explicit NeverDestroyed(Make make) noexcept : object_(new (storage_.data()) Object(make())) {}
    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;
    ~NeverDestroyed() = default;

    Object& operator*() const noexcept { return *object_; }

  private:
    alignas(Object) std::array<std::byte, sizeof(Object)> storage_{};
    Object* object_;
};

}  // namespace korvo

#endif
