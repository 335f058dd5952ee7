#ifndef KORVOQRPARSER_DECODING_TEXT_LIFETIMES_H
#define KORVOQRPARSER_DECODING_TEXT_LIFETIMES_H

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

/// Calls `use` with the calling thread's own `Cache` and returns the result. The cache is made when the
/// thread first asks for it and lives until the thread ends. A call after that, from the destructor of
/// another object, gets a cache that lives only as long as the call.
template <class Cache, class Use>
auto withThreadCache(Use use) {
    thread_local bool isGone = false;
    struct Owner {
        ~Owner() { isGone = true; }
        Cache cache;
    };
    if (isGone) {
        Cache cache;
        return use(cache);
    }
    thread_local Owner owner;
    return use(owner.cache);
}

}  // namespace korvo

#endif
