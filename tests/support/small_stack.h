#ifndef TESTS_SUPPORT_SMALL_STACK_H_
#define TESTS_SUPPORT_SMALL_STACK_H_

#include <gtest/gtest.h>
#include <pthread.h>

#include <functional>

namespace TovikXmlTest {

/// Runs on a thread with a stack of 512 KiB, more under a sanitizer, whose frames are larger.
inline void RunOnSmallStack(std::function<void()> action) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  constexpr std::size_t kStack = 4096 * 1024;
#else
  constexpr std::size_t kStack = 512 * 1024;
#endif
  const auto run = [](void* argument) -> void* {
    (*static_cast<std::function<void()>*>(argument))();
    return nullptr;
  };
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, kStack);
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &action), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

}  // namespace TovikXmlTest

#endif  // TESTS_SUPPORT_SMALL_STACK_H_
