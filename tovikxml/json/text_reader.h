#ifndef TOVIKXML_JSON_TEXT_READER_H_
#define TOVIKXML_JSON_TEXT_READER_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "tovikxml/base/instance_monitor.h"
#include "tovikxml/base/wide_string.h"

/// Parses JSON text (RFC 8259) into events.
///
///     CJsonTextReader reader(text);                  // the text outlives the reader
///     reader.SetHandler(std::move(handler));         // an IJsonReaderHandler
///     reader.Parse();
///
/// The text {"a": [1, "x"]} gives StartDocument, StartObject, Name "a", StartArray, NumberValue
/// "1", StringValue "x", EndArray, EndObject, EndDocument.
///
/// Beyond the grammar it takes comments where white space may stand, control characters in
/// strings, and anything behind the first value; a line feed inside a string or a number is
/// dropped. An empty text gives no value and no error. Internal.
namespace TovikXmlLib16 {

/// Receives the events of a document.
class IJsonReaderHandler : public CInstanceMonitor {
 public:
  IJsonReaderHandler() : CInstanceMonitor(u"IJsonReaderHandler") {}
  ~IJsonReaderHandler() override = default;

  virtual void StartDocument() = 0;
  virtual void EndDocument() = 0;
  /// The name of a member, in front of its value. Names may repeat.
  virtual void Name(const WString& name) = 0;
  /// Texts come with escapes resolved and end in front of their first zero unit.
  virtual void StringValue(const WString& text) = 0;
  /// Numbers come as they are spelled.
  virtual void NumberValue(const WString& text) = 0;
  virtual void StartObject() = 0;
  virtual void EndObject() = 0;
  virtual void StartArray() = 0;
  virtual void EndArray() = 0;
  virtual void BooleanValue(bool value) = 0;
  virtual void NullValue() = 0;
};

/// Tells where in the document an exception arose.
class IErrorPathProvider {
 public:
  /// "$" and the names of the open entries, the innermost first: "$.c.b[0].a" for the "c" of
  /// {"a": {"b": [{"c": 1}]}}.
  virtual WString GetErrorPath() const = 0;

 protected:
  IErrorPathProvider() = default;
  ~IErrorPathProvider() = default;
};

/// Keeps the path for messages and hands every event on.
class CJsonReaderDefaultHandler final : public IJsonReaderHandler, public IErrorPathProvider {
 public:
  void SetHandler(std::unique_ptr<IJsonReaderHandler> next) { m_next = std::move(next); }

  void StartDocument() override;
  void EndDocument() override;
  void Name(const WString& name) override;
  void StringValue(const WString& text) override;
  void NumberValue(const WString& text) override;
  void StartObject() override;
  void EndObject() override;
  void StartArray() override;
  void EndArray() override;
  void BooleanValue(bool value) override;
  void NullValue() override;

  WString GetErrorPath() const override;

 private:
  enum class Kind { kArray, kName, kObject };
  // An object inside an array has no name of its own: it is called after the array below it, whose
  // index counts the objects in it and stands still while one is open.
  struct PathEntry {
    WString name;
    std::int32_t index = -1;
    Kind kind;
  };

  bool EndsWith(Kind kind) const { return !m_path.empty() && m_path.back().kind == kind; }
  void Enter(Kind kind);
  void Leave(Kind kind);

  std::vector<PathEntry> m_path;
  std::unique_ptr<IJsonReaderHandler> m_next;
};

class CJsonTextReader : public CInstanceMonitor {
 public:
  /// How deep values may be nested in values; the value of the document itself has the depth 1.
  static constexpr int kDepthLimit = 100;

  explicit CJsonTextReader(const WString& source);

  void SetHandler(std::unique_ptr<IJsonReaderHandler> handler);
  /// The path of the value being read, valid as long as the reader.
  const IErrorPathProvider& GetPathProvider() const { return m_handler; }

  /// Off by default.
  void SetAllowComments(bool allow) { m_allowComments = allow; }
  /// A name that is not empty makes the text read as the value of that member of an object.
  void SetRootElementName(const WString& name) { m_rootElementName = name; }

  /// Reads the document. Throws `CTovikValidationException` at the first fault: "... at line %d,
  /// position %d.", both counted from 1 in 16-bit units, with the path.
  void Parse();

 private:
  // Each reading operation is entered with the current unit on the first of what it reads, and
  // leaves with it on the first unit behind, white space and comments skipped.
  bool NextUnit();
  bool NextToken();
  bool NextNonBlank();
  bool SkipComment();
  void SkipLineComment();
  void SkipBlockComment();
  std::optional<WStringView> ReadUnits(std::size_t count);

  void ReadValue(int depth);
  void ReadObject(int depth);
  void ReadMember(int depth);
  void ReadArray(int depth);
  const WString& ReadString();
  void AppendPlainRun();
  void AppendEscape();
  wchar ReadHexEscape();
  const WString& ReadNumber();
  bool AppendIntegerPart();
  bool AppendFraction();
  void AppendExponent();
  bool AppendDigits();
  void AppendAndNeedNext(const wchar* message);
  void ReadLiteral(WStringView rest, const wchar* name);

  void NeedToken(const wchar* message);
  void NeedText(const wchar* message) const;
  [[noreturn]] void Fail(const WString& message) const;
  [[noreturn]] void FailFound(const wchar* expected) const;

  CJsonReaderDefaultHandler m_handler;
  bool m_allowComments = false;
  WString m_rootElementName;
  const WString& m_source;
  std::size_t m_index = 0;
  wchar m_current = 0;
  bool m_endOfFile = false;
  std::int64_t m_line = 1;
  std::int64_t m_position = 0;
  WString m_text;  // the string or number that was read last
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_JSON_TEXT_READER_H_
