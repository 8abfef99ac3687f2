#include "tests/failures/allocation_faults.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <new>

#ifdef __has_feature
#define TOVIKXML_HAS_FEATURE(name) __has_feature(name)
#else
#define TOVIKXML_HAS_FEATURE(name) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(__GLIBC__) || \
    TOVIKXML_HAS_FEATURE(address_sanitizer) || TOVIKXML_HAS_FEATURE(thread_sanitizer)
#define TOVIKXML_REPLACE_MALLOC 0
#else
#define TOVIKXML_REPLACE_MALLOC 1
#endif

namespace {

// The allocations still to come before the one that fails; negative for none.
std::atomic<long> g_left{-1};
std::atomic<bool> g_lasting{false};
std::atomic<bool> g_struck{false};
std::atomic<long> g_live{0};

bool MustFail() {
  if (g_left.load() < 0) return false;
  if (g_left.load() > 1) {
    --g_left;
    return false;
  }
  if (!g_lasting.load()) g_left = -1;
  g_struck = true;
  return true;
}

void* Count(void* block) {
  if (block) ++g_live;
  return block;
}

}  // namespace

namespace TovikXmlTest {

AllocationFaults::AllocationFaults(long number, bool lasting) {
  g_struck = false;
  g_lasting = lasting;
  g_left = number;
}

AllocationFaults::~AllocationFaults() {
  g_left = -1;
}

bool AllocationFaults::HaveStruck() {
  return g_struck.load();
}

bool ReachCLibraries() {
  return TOVIKXML_REPLACE_MALLOC;
}

long LiveBlocks() {
  return g_live.load();
}

}  // namespace TovikXmlTest

#if TOVIKXML_REPLACE_MALLOC

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);

void* malloc(std::size_t size) noexcept {
  return MustFail() ? (errno = ENOMEM, nullptr) : Count(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) noexcept {
  return MustFail() ? (errno = ENOMEM, nullptr) : Count(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size) noexcept {
  if (MustFail()) return errno = ENOMEM, nullptr;
  void* const result = __libc_realloc(block, size);
  if (!block) Count(result);
  if (block && size == 0) --g_live;
  return result;
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
  return MustFail() ? (errno = ENOMEM, nullptr) : Count(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
  return memalign(alignment, size);
}

int posix_memalign(void** result, std::size_t alignment, std::size_t size) noexcept {
  *result = memalign(alignment, size);
  return *result ? 0 : ENOMEM;
}

void free(void* block) noexcept {
  if (block) --g_live;
  __libc_free(block);
}

}  // extern "C"

#else

namespace {

void* Allocate(std::size_t size) {
  void* const block = MustFail() ? nullptr : Count(std::malloc(size ? size : 1));
  return block ? block : throw std::bad_alloc();
}

void* AllocateAligned(std::size_t size, std::align_val_t alignment) {
  void* block = nullptr;
  if (MustFail() || ::posix_memalign(&block, static_cast<std::size_t>(alignment), size) != 0) {
    throw std::bad_alloc();
  }
  return Count(block);
}

void Free(void* block) noexcept {
  if (block) --g_live;
  std::free(block);
}

}  // namespace

// clang-format off
void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { try { return Allocate(size); } catch (...) { return nullptr; } }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { try { return Allocate(size); } catch (...) { return nullptr; } }
void* operator new(std::size_t size, std::align_val_t alignment) { return AllocateAligned(size, alignment); }
void* operator new[](std::size_t size, std::align_val_t alignment) { return AllocateAligned(size, alignment); }
void operator delete(void* block) noexcept { Free(block); }
void operator delete[](void* block) noexcept { Free(block); }
void operator delete(void* block, std::size_t) noexcept { Free(block); }
void operator delete[](void* block, std::size_t) noexcept { Free(block); }
void operator delete(void* block, std::align_val_t) noexcept { Free(block); }
void operator delete[](void* block, std::align_val_t) noexcept { Free(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { Free(block); }
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept { Free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { Free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { Free(block); }
// clang-format on

#endif
