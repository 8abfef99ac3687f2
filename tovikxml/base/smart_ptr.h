#ifndef TOVIKXML_BASE_SMART_PTR_H_
#define TOVIKXML_BASE_SMART_PTR_H_

#include <type_traits>
#include <utility>

namespace TovikXmlLib16 {

/// Holds one reference on a reference-counted object, such as any class derived from
/// `CXmlObjectBase`. `T` needs `AddRef()` and `Release()`, nothing more.
///
///     CSmartPtr<Order> order(new Order);   // count 1
///     CSmartPtr<Order> other = order;      // count 2
///
/// Copies of one pointer's target may be taken and dropped on several threads; one `CSmartPtr`
/// itself belongs to one thread at a time.
template <class T>
class CSmartPtr {
 public:
  CSmartPtr() noexcept = default;
  CSmartPtr(T* object) : m_object(object) { Acquire(); }
  CSmartPtr(const CSmartPtr& other) : m_object(other.m_object) { Acquire(); }
  CSmartPtr(CSmartPtr&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  CSmartPtr(const CSmartPtr<U>& other) : m_object(other.Get()) {
    Acquire();
  }
  ~CSmartPtr() {
    if (m_object) m_object->Release();
  }

  /// Takes the new reference before it drops the old one, so that assigning an object to the
  /// pointer that holds its last reference is safe.
  CSmartPtr& operator=(const CSmartPtr& other) { return *this = other.m_object; }
  CSmartPtr& operator=(CSmartPtr&& other) noexcept {
    CSmartPtr moved(std::move(other));
    std::swap(m_object, moved.m_object);
    return *this;
  }
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  CSmartPtr& operator=(const CSmartPtr<U>& other) {
    return *this = other.Get();
  }
  CSmartPtr& operator=(T* object) {
    CSmartPtr taken(object);
    std::swap(m_object, taken.m_object);
    return *this;
  }

  T* Get() const noexcept { return m_object; }
  operator T*() const noexcept { return m_object; }
  T* operator->() const noexcept { return m_object; }
  T& operator*() const noexcept { return *m_object; }

 private:
  void Acquire() {
    if (m_object) m_object->AddRef();
  }

  T* m_object = nullptr;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_SMART_PTR_H_
