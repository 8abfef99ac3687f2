#include "tovikxml/base/exception.h"

#include <algorithm>
#include <mutex>
#include <utility>

#include "tovikxml/base/utf8.h"

namespace TovikXmlLib16 {
namespace {

WString WithPath(WString message, const WString& path) {
  if (!path.empty()) message.append(u"\nPath: ").append(path);
  return message;
}

// A zero unit would end a C string.
WString WithoutZeros(WString text) {
  std::replace(text.begin(), text.end(), u'\0', u'\uFFFD');
  return text;
}

}  // namespace

CTovikException::CTovikException() = default;

CTovikException::CTovikException(WString message) : m_message(std::move(message)) {}

CTovikException::CTovikException(WString message, const CTovikException& inner)
    : m_message(std::move(message)), m_inner(inner.Clone()) {}

CTovikException::CTovikException(WString message, CTovikException&& inner)
    : m_message(std::move(message)), m_inner(TakeOver(inner)) {}

CTovikException::CTovikException(WString message, WString path)
    : m_message(WithPath(std::move(message), path)), m_path(std::move(path)) {}

CTovikException::CTovikException(WString message, WString path, const CTovikException& inner)
    : m_message(WithPath(std::move(message), path)),
      m_path(std::move(path)),
      m_inner(inner.Clone()) {}

CTovikException::CTovikException(WString message, WString path, CTovikException&& inner)
    : m_message(WithPath(std::move(message), path)),
      m_path(std::move(path)),
      m_inner(TakeOver(inner)) {}

CTovikException::CTovikException(const CTovikException& other)
    : std::exception(other),
      m_message(other.m_message),
      m_path(other.m_path),
      m_inner(other.CloneInner()) {}

CTovikException& CTovikException::operator=(const CTovikException& other) {
  if (this == &other) return *this;
  auto inner = other.CloneInner();
  // The source may live inside the chain that is about to be replaced.
  WString message = other.m_message;
  WString path = other.m_path;
  m_message = std::move(message);
  m_path = std::move(path);
  m_inner = std::move(inner);
  m_what.clear();
  return *this;
}

// One after the other, since a chain can be longer than the stack is deep.
CTovikException::~CTovikException() {
  while (m_inner) m_inner = std::move(m_inner->m_inner);
}

WString CTovikException::GetFullMessage() const {
  WString text = m_message;
  for (const CTovikException* cause = m_inner.get(); cause; cause = cause->m_inner.get()) {
    text.append(1, u'\n').append(cause->m_message);
  }
  return text;
}

const char* CTovikException::what() const noexcept {
  static std::mutex guard;
  try {
    const std::lock_guard<std::mutex> lock(guard);
    if (m_what.empty()) m_what = DisplayUtf8(WithoutZeros(GetFullMessage()));
    return m_what.c_str();
  } catch (...) {
    return "CTovikException";
  }
}

CTovikException* CTovikException::Clone() const {
  return new CTovikException(*this);
}

std::unique_ptr<CTovikException> CTovikException::CloneInner() const {
  return std::unique_ptr<CTovikException>(m_inner ? m_inner->Clone() : nullptr);
}

// A clone of the source alone, which gets the source's cause.
std::unique_ptr<CTovikException> CTovikException::TakeOver(CTovikException& source) {
  auto cause = std::move(source.m_inner);
  std::unique_ptr<CTovikException> clone(source.Clone());
  clone->m_inner = std::move(cause);
  source.m_what.clear();
  return clone;
}

CTovikValidationException::CTovikValidationException(WString message, WString path)
    : CTovikException(std::move(message), std::move(path)) {}

CTovikValidationException::CTovikValidationException(WString message, WString path,
                                                     const CTovikException& inner)
    : CTovikException(std::move(message), std::move(path), inner) {}

CTovikValidationException::CTovikValidationException(WString message, WString path,
                                                     CTovikException&& inner)
    : CTovikException(std::move(message), std::move(path), std::move(inner)) {}

CTovikValidationException::CTovikValidationException(const CTovikException& other)
    : CTovikException(other) {}

CTovikException* CTovikValidationException::Clone() const {
  return new CTovikValidationException(*this);
}

CTovikInvalidValueException::CTovikInvalidValueException(WString message)
    : CTovikValidationException(std::move(message), WString()) {}

CTovikInvalidValueException::CTovikInvalidValueException(WString message,
                                                         const CTovikException& inner)
    : CTovikValidationException(std::move(message), WString(), inner) {}

CTovikInvalidValueException::CTovikInvalidValueException(const CTovikException& other)
    : CTovikValidationException(other) {}

CTovikException* CTovikInvalidValueException::Clone() const {
  return new CTovikInvalidValueException(*this);
}

CTovikInvalidNamespaceException::CTovikInvalidNamespaceException(WString message, WString path)
    : CTovikValidationException(std::move(message), std::move(path)) {}

CTovikInvalidNamespaceException::CTovikInvalidNamespaceException(WString message, WString path,
                                                                 const CTovikException& inner)
    : CTovikValidationException(std::move(message), std::move(path), inner) {}

CTovikInvalidNamespaceException::CTovikInvalidNamespaceException(const CTovikException& other)
    : CTovikValidationException(other) {}

CTovikException* CTovikInvalidNamespaceException::Clone() const {
  return new CTovikInvalidNamespaceException(*this);
}

CTovikInvalidParamException::CTovikInvalidParamException(WString message)
    : CTovikException(std::move(message)) {}

CTovikInvalidParamException::CTovikInvalidParamException(WString message,
                                                         const CTovikException& inner)
    : CTovikException(std::move(message), inner) {}

CTovikInvalidParamException::CTovikInvalidParamException(const CTovikException& other)
    : CTovikException(other) {}

CTovikException* CTovikInvalidParamException::Clone() const {
  return new CTovikInvalidParamException(*this);
}

CTovikInvalidStateException::CTovikInvalidStateException(WString message)
    : CTovikException(std::move(message)) {}

CTovikInvalidStateException::CTovikInvalidStateException(WString message,
                                                         const CTovikException& inner)
    : CTovikException(std::move(message), inner) {}

CTovikInvalidStateException::CTovikInvalidStateException(const CTovikException& other)
    : CTovikException(other) {}

CTovikException* CTovikInvalidStateException::Clone() const {
  return new CTovikInvalidStateException(*this);
}

CTovikOverFlowException::CTovikOverFlowException(WString message)
    : CTovikException(std::move(message)) {}

CTovikOverFlowException::CTovikOverFlowException(WString message, const CTovikException& inner)
    : CTovikException(std::move(message), inner) {}

CTovikOverFlowException::CTovikOverFlowException(const CTovikException& other)
    : CTovikException(other) {}

CTovikException* CTovikOverFlowException::Clone() const {
  return new CTovikOverFlowException(*this);
}

}  // namespace TovikXmlLib16
