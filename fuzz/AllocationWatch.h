// The greatest amount of memory in use at one time while the watch stands.
#pragma once

#include <sanitizer/allocator_interface.h>

#include <algorithm>
#include <cstddef>

namespace veygrid {

// Counts what this thread's program asks for and gives back from the moment of construction, by
// the hooks of the address sanitizer. One watch at a time.
class AllocationWatch {
  public:
    AllocationWatch() {
        static const bool installed =
            __sanitizer_install_malloc_and_free_hooks(OnMalloc, OnFree) > 0;
        s_active = installed;
        s_inUse = 0;
        s_peak = 0;
    }
    ~AllocationWatch() { s_active = false; }
    AllocationWatch(const AllocationWatch&) = delete;
    AllocationWatch& operator=(const AllocationWatch&) = delete;

    // Bytes, as asked for.
    std::size_t Peak() const { return static_cast<std::size_t>(s_peak); }

  private:
    static void OnMalloc(const volatile void*, std::size_t size) {
        s_inUse += s_active ? static_cast<std::ptrdiff_t>(size) : 0;
        s_peak = std::max(s_peak, s_inUse);
    }
    static void OnFree(const volatile void* block) {
        if (s_active && block != nullptr) {
            s_inUse -= static_cast<std::ptrdiff_t>(
                __sanitizer_get_allocated_size(const_cast<const void*>(block)));
        }
    }

    static inline bool s_active = false;
    static inline std::ptrdiff_t s_inUse = 0;
    static inline std::ptrdiff_t s_peak = 0;
};

}  // namespace veygrid
