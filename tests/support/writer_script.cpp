#include "tests/support/writer_script.h"

#include "tests/support/data_rows.h"
#include "tests/support/text.h"

namespace TovikXmlTest {
namespace {

using namespace TovikXmlLib16;

struct Name {
  WString uri, local;
};

// Takes the parts of a step from the front of the script.
class Scanner {
 public:
  explicit Scanner(WStringView script) : m_rest(script) {}

  bool HasMore() {
    m_rest.remove_prefix(std::min(m_rest.find_first_not_of(u' '), m_rest.size()));
    return !m_rest.empty();
  }

  wchar Unit() { return UpTo(1)[0]; }

  WString Word() { return UpTo(m_rest.find_first_of(u" ='")); }

  Name QualifiedName() {
    Name name;
    if (Take(u'{')) {
      name.uri = UpTo(m_rest.find(u'}'));
      Take(u'}');
    }
    name.local = Word();
    return name;
  }

  WString Value() {
    Take(u'=');
    WString text;
    EXPECT_TRUE(Take(u'\'')) << "no value in front of " << DisplayUtf8(m_rest);
    do {
      text += UpTo(m_rest.find(u'\''));
      Take(u'\'');
    } while (Take(u'\'') && !(text += u'\'').empty());
    return text;
  }

  ItemType Kind() { return Take(u':') ? FieldAs<ItemType>(Word()) : it_string; }

  bool Take(wchar unit) {
    if (m_rest.empty() || m_rest[0] != unit) return false;
    m_rest.remove_prefix(1);
    return true;
  }

 private:
  WString UpTo(std::size_t end) {
    const WString text(m_rest.substr(0, end));
    m_rest.remove_prefix(text.size());
    return text;
  }

  WStringView m_rest;
};

void RunSetting(CXmlWriter& writer, Scanner& scanner) {
  const WString word = scanner.Word();
  if (word == u"nil") {
    writer.WriteXsiNil();
  } else if (word == u"type") {
    scanner.Take(u'=');
    const Name name = scanner.QualifiedName();
    writer.WriteXsiType(name.uri, name.local, it_string);
  } else if (word == u"default") {
    writer.SetDefaultNamespace(scanner.Value());
  } else if (word == u"comment") {
    writer.WriteComment(scanner.Value());
  } else if (word == u"instruction") {
    writer.WriteProcessingInstruction(scanner.Value());
  } else if (word == u"schema") {
    writer.WriteInlineSchema(scanner.Value());
  } else {
    EXPECT_EQ(word.substr(0, 6), u"alias:") << "an unknown step";
    writer.AddNamespaceAlias(word.substr(6), scanner.Value());
  }
}

void RunStep(CXmlWriter& writer, Scanner& scanner) {
  if (scanner.Take(u'<')) {
    const Name name = scanner.QualifiedName();
    writer.WriteStartElement(name.local, name.uri);
  } else if (scanner.Take(u'>')) {
    writer.WriteEndElement();
  } else if (scanner.Take(u'@')) {
    const Name name = scanner.QualifiedName();
    const WString value = scanner.Value();
    writer.WriteAttribute(name.local, name.uri, value, scanner.Kind());
  } else if (scanner.Take(u'[')) {
    writer.SetCollectionState(1);
  } else if (scanner.Take(u']')) {
    writer.SetCollectionState(3);
  } else if (scanner.Take(u'^')) {
    writer.SetCollectionState(scanner.Unit() - u'0');
  } else if (scanner.Take(u'%')) {
    RunSetting(writer, scanner);
  } else {
    const WString text = scanner.Value();
    writer.WriteText(text, scanner.Kind());
  }
}

}  // namespace

void RunScript(CXmlWriter& writer, WStringView script) {
  for (Scanner scanner(script); scanner.HasMore();) RunStep(writer, scanner);
}

}  // namespace TovikXmlTest
