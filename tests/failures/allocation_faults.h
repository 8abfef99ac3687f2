#ifndef TESTS_FAILURES_ALLOCATION_FAULTS_H_
#define TESTS_FAILURES_ALLOCATION_FAULTS_H_

/// The program's own allocation functions, which count the blocks that live and fail on request.
///
///     {
///       const AllocationFaults faults(3, false);
///       order->FromXml(text, context);           // its third allocation fails
///     }
///
/// Without a sanitizer they stand behind `malloc`, so that those of expat, zlib and PCRE2 fail and
/// count as well; a sanitizer needs `malloc` for itself, so that they stand behind `operator new`.
namespace TovikXmlTest {

class AllocationFaults {
 public:
  /// The allocation of that number fails, counted from 1, and if `lasting` all behind it.
  AllocationFaults(long number, bool lasting);
  AllocationFaults(const AllocationFaults&) = delete;
  AllocationFaults& operator=(const AllocationFaults&) = delete;
  ~AllocationFaults();

  /// Whether an allocation failed since the construction.
  static bool HaveStruck();
};

/// Whether the allocations of C libraries are among those that fail.
bool ReachCLibraries();

/// Blocks that were allocated and not freed.
long LiveBlocks();

}  // namespace TovikXmlTest

#endif  // TESTS_FAILURES_ALLOCATION_FAULTS_H_
