#include <gtest/gtest.h>

#include "tests/support/bag.h"
#include "tests/support/small_stack.h"
#include "tests/support/text.h"

using namespace TovikXmlTest;

namespace {

/// <root><root>...</root></root>
const Shape& Recursive() {
  static Shape shape(xgt_Sequence);
  static const bool built = (shape.Add(Cls<CElementInfoSeqClsOpt>(u"root", 0, shape)), true);
  (void)built;
  return shape;
}

WString Nested(int levels) {
  WString text;
  for (int i = 0; i < levels; ++i) text += u"<root>";
  for (int i = 0; i < levels; ++i) text += u"</root>";
  return text;
}

const WString kLimit = u"The objects are nested deeper than the limit of 256 levels";

}  // namespace

TEST(Nesting, ReadsAndWritesToTheLimitOnASmallStack) {
  RunOnSmallStack([] {
    const CSerializationContext context;
    const WString text = Nested(context.GetMaxNesting());
    const CSmartPtr<Bag> bag = NewBag(Recursive());
    bag->FromXml(text.c_str(), context);
    const WString written = bag->ToXml(false, false, EOL_LF, context);
    EXPECT_EQ(written.size(), text.size() - 6);  // the innermost is <root/>
  });
}

TEST(Nesting, RefusesWhatIsDeeper) {
  RunOnSmallStack([] {
    const CSerializationContext context;
    const CSmartPtr<Bag> bag = NewBag(Recursive());
    WString path;
    for (int i = 0; i < 257; ++i) path += u"/root";
    for (const int levels : {257, 1000000}) {
      EXPECT_EQ(Outcome([&] { bag->FromXml(Nested(levels).c_str(), context); }),
                u"!Exception Failed to process the element.\nPath: " + path + u"\n" + kLimit);
    }
    // An object that holds itself.
    bag->Value(0).SetXmlObject(bag);
    EXPECT_TRUE(Outcome([&] { bag->ToXml(false, false, EOL_LF, context); }).ends_with(kLimit));
    bag->Value(0).Clear();
  });
}

TEST(Nesting, HasASettableLimit) {
  CSerializationContext context;
  context.SetMaxNesting(2);
  const CSmartPtr<Bag> bag = NewBag(Recursive());
  bag->FromXml(Nested(2).c_str(), context);
  EXPECT_THROW(bag->FromXml(Nested(3).c_str(), context), CTovikException);
  bag->FromXml(Nested(2).c_str(), context);  // the failure left no level behind
}

// A failure travels up without a copy of its whole chain at each level.
TEST(Nesting, CopiesTheCauseOfAFailureOnce) {
  struct Counted : CTovikException {
    explicit Counted(int& copies) : CTovikException(u"no access"), m_copies(copies) {}
    CTovikException* Clone() const override {
      ++m_copies;
      return new Counted(*this);
    }
    int& m_copies;
  };
  struct Failing : Bag {
    using Bag::Bag;
    void AccessProperty(int property, bool read, TovikVariant& value) override {
      if (++m_calls == 100) throw Counted(m_copies);
      Bag::AccessProperty(property, read, value);
    }
    int m_calls = 0;
    int m_copies = 0;
  };
  const CSmartPtr<Failing> bag(new Failing(Recursive()));
  bag->Value(0).SetXmlObject(bag);
  const WString outcome =
      Outcome([&] { bag->ToXml(false, false, EOL_LF, CSerializationContext()); });
  EXPECT_TRUE(outcome.ends_with(u"[root].\nno access"));
  EXPECT_EQ(bag->m_copies, 1);
  bag->Value(0).Clear();
}
