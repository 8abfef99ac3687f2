#ifndef TOVIKXML_BINDING_NESTING_GUARD_H_
#define TOVIKXML_BINDING_NESTING_GUARD_H_

namespace TovikXmlLib16 {

/// Counts how deep the drivers of this thread are nested, since each level takes stack. Internal.
class NestingGuard {
 public:
  /// Throws `CTovikException` "The objects are nested deeper than the limit of %d levels".
  explicit NestingGuard(int limit);
  NestingGuard(const NestingGuard&) = delete;
  NestingGuard& operator=(const NestingGuard&) = delete;
  ~NestingGuard();
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BINDING_NESTING_GUARD_H_
