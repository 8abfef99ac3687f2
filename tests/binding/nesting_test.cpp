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

WString InnermostMessage(const CTovikException& e) {
  const CTovikException* cause = &e;
  while (cause->GetInnerException()) cause = cause->GetInnerException();
  return cause->GetMessage();
}

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
    const WString limit = u"The objects are nested deeper than the limit of 256 levels";
    const CSmartPtr<Bag> bag = NewBag(Recursive());
    for (const int levels : {257, 1000000}) {
      try {
        bag->FromXml(Nested(levels).c_str(), context);
        ADD_FAILURE() << levels;
      } catch (const CTovikException& e) {
        EXPECT_EQ(InnermostMessage(e), limit);
        EXPECT_EQ(e.GetPath(), [] {
          WString path;
          for (int i = 0; i < 257; ++i) path += u"/root";
          return path;
        }());
      }
    }
    // An object that holds itself.
    bag->Value(0).SetXmlObject(bag);
    try {
      bag->ToXml(false, false, EOL_LF, context);
      ADD_FAILURE();
    } catch (const CTovikException& e) {
      EXPECT_EQ(InnermostMessage(e), limit);
    }
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
