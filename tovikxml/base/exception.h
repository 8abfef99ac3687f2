#ifndef TOVIKXML_BASE_EXCEPTION_H_
#define TOVIKXML_BASE_EXCEPTION_H_

#include <exception>
#include <memory>
#include <string>

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

/// @file
/// The exception family. Every failure of the library is one of these, thrown by value and caught
/// by reference:
///
///     try {
///       order->FromXmlFile(u"order.xml", context);
///     } catch (const CTovikException& e) {
///       std::cerr << e.what() << '\n';       // the whole chain, in UTF-8
///     }
///
/// An exception carries a message, the path of the place in the document where that is known, and
/// the exception that caused it. The chain is a list of clones and outlives what threw it. Who
/// gives the cause as `std::move(e)` lets the new exception take over what lies behind `e`, which
/// then has no cause any more: a chain that grows on its way up is built in linear time.
namespace TovikXmlLib16 {

/// Root of the family; thrown as such for input/output, parser, facet and buffer failures.
class TOVIKXML_EXPORT CTovikException : public std::exception {
 public:
  CTovikException();
  explicit CTovikException(WString message);
  CTovikException(WString message, const CTovikException& inner);
  CTovikException(WString message, CTovikException&& inner);
  /// With a path that is not empty, "\nPath: " and the path are appended to the message.
  CTovikException(WString message, WString path);
  CTovikException(WString message, WString path, const CTovikException& inner);
  CTovikException(WString message, WString path, CTovikException&& inner);
  CTovikException(const CTovikException& other);
  CTovikException& operator=(const CTovikException& other);
  ~CTovikException() override;

  /// The own message, with the path text if there is one.
  WString GetMessage() const { return m_message; }
  /// The own message and those of the inner exceptions, outermost first, a line feed between.
  WString GetFullMessage() const;
  /// The location alone, such as "/orders/order[3]/@id"; empty if unknown.
  WString GetPath() const { return m_path; }
  /// The cause, owned by this exception; null if there is none.
  const CTovikException* GetInnerException() const { return m_inner.get(); }

  /// `GetFullMessage` in UTF-8, valid until the exception is assigned to or destroyed.
  const char* what() const noexcept override;

 protected:
  /// A new exception of this object's own class, made with `new`.
  virtual CTovikException* Clone() const;

 private:
  std::unique_ptr<CTovikException> CloneInner() const;
  static std::unique_ptr<CTovikException> TakeOver(CTovikException& source);

  WString m_message;
  WString m_path;
  std::unique_ptr<CTovikException> m_inner;
  mutable std::string m_what;
};

/// The document or the object does not fit the schema.
class TOVIKXML_EXPORT CTovikValidationException : public CTovikException {
 public:
  CTovikValidationException() = default;
  CTovikValidationException(WString message, WString path);
  CTovikValidationException(WString message, WString path, const CTovikException& inner);
  CTovikValidationException(WString message, WString path, CTovikException&& inner);
  /// Keeps message, path and cause of any member of the family.
  CTovikValidationException(const CTovikException& other);
  CTovikValidationException(const CTovikValidationException&) = default;
  CTovikValidationException& operator=(const CTovikValidationException&) = default;

 protected:
  CTovikException* Clone() const override;

 private:
  WString m_detail;
};

/// A value is not legal for its type.
class TOVIKXML_EXPORT CTovikInvalidValueException : public CTovikValidationException {
 public:
  CTovikInvalidValueException() = default;
  explicit CTovikInvalidValueException(WString message);
  CTovikInvalidValueException(WString message, const CTovikException& inner);
  CTovikInvalidValueException(const CTovikException& other);
  CTovikInvalidValueException(const CTovikInvalidValueException&) = default;
  CTovikInvalidValueException& operator=(const CTovikInvalidValueException&) = default;

 protected:
  CTovikException* Clone() const override;
};

/// A namespace is outside what a wildcard allows.
class TOVIKXML_EXPORT CTovikInvalidNamespaceException : public CTovikValidationException {
 public:
  CTovikInvalidNamespaceException() = default;
  CTovikInvalidNamespaceException(WString message, WString path);
  CTovikInvalidNamespaceException(WString message, WString path, const CTovikException& inner);
  CTovikInvalidNamespaceException(const CTovikException& other);
  CTovikInvalidNamespaceException(const CTovikInvalidNamespaceException&) = default;
  CTovikInvalidNamespaceException& operator=(const CTovikInvalidNamespaceException&) = default;

 protected:
  CTovikException* Clone() const override;
};

/// A bad argument: null where a value is mandatory, an index out of range, a wrong element name.
class TOVIKXML_EXPORT CTovikInvalidParamException : public CTovikException {
 public:
  CTovikInvalidParamException() = default;
  explicit CTovikInvalidParamException(WString message);
  CTovikInvalidParamException(WString message, const CTovikException& inner);
  CTovikInvalidParamException(const CTovikException& other);
  CTovikInvalidParamException(const CTovikInvalidParamException&) = default;
  CTovikInvalidParamException& operator=(const CTovikInvalidParamException&) = default;

 protected:
  CTovikException* Clone() const override;
};

/// An operation that the object's state forbids.
class TOVIKXML_EXPORT CTovikInvalidStateException : public CTovikException {
 public:
  CTovikInvalidStateException() = default;
  explicit CTovikInvalidStateException(WString message);
  CTovikInvalidStateException(WString message, const CTovikException& inner);
  CTovikInvalidStateException(const CTovikException& other);
  CTovikInvalidStateException(const CTovikInvalidStateException&) = default;
  CTovikInvalidStateException& operator=(const CTovikInvalidStateException&) = default;

 protected:
  CTovikException* Clone() const override;
};

/// A number out of range.
class TOVIKXML_EXPORT CTovikOverFlowException : public CTovikException {
 public:
  CTovikOverFlowException() = default;
  explicit CTovikOverFlowException(WString message);
  CTovikOverFlowException(WString message, const CTovikException& inner);
  CTovikOverFlowException(const CTovikException& other);
  CTovikOverFlowException(const CTovikOverFlowException&) = default;
  CTovikOverFlowException& operator=(const CTovikOverFlowException&) = default;

 protected:
  CTovikException* Clone() const override;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_EXCEPTION_H_
