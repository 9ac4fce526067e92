// When a form checks what is edited in it.
#include <gtest/gtest.h>

#include <memory>

#include "plugin/contract/Forms.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/TestForm.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using TestSupport::TestForm;

namespace Quillane {
namespace {

class DBFormTest : public testing::Test {
 protected:
  DBFormTest() { testAccount(); }

  TestForm form;
};

/// Proposes its checks from within the check as often as it is told.
class RestlessForm : public TestForm {
 public:
  int proposalsLeft = 0;
  bool checking = false;
  bool nested = false;

 protected:
  void checkAll() override {
    TestForm::checkAll();
    nested = nested || checking;
    checking = true;
    if (proposalsLeft-- > 0) proposeCheckAll();
    checking = false;
  }
};

TEST_F(DBFormTest, checksNothingByItself) { EXPECT_EQ(form.takeChecks(), 0); }

TEST_F(DBFormTest, checksOnceTheWorkInHandIsOver) {
  class Work : public FXObject {
   public:
    explicit Work(TestForm& workedOn) : form(workedOn) { testAccount().addTimeout(this, 0, 1); }
    long handle(FXObject*, FXSelector, void*) override {
      form.proposeCheckAll();
      EXPECT_TRUE(testAccount().hasChore(&form, DBForm::ID_CHECK_ALL)) << "not at once";
      done = true;
      return 1;
    }
    TestForm& form;
    bool done = false;
  };
  Work work(form);
  ASSERT_TRUE(TestSupport::waitUntil([&] { return work.done; }));
  EXPECT_EQ(form.takeChecks(), 1);
}

TEST_F(DBFormTest, checksOnceHoweverOftenItWasAskedFor) {
  form.proposeCheckAll();
  form.proposeCheckAll();
  form.proposeCheckAll();
  EXPECT_EQ(form.takeChecks(), 1);
}

TEST_F(DBFormTest, checksAgainWhenItIsAskedAgain) {
  form.proposeCheckAll();
  EXPECT_EQ(form.takeChecks(), 1);
  form.proposeCheckAll();
  EXPECT_EQ(form.takeChecks(), 1);
  EXPECT_EQ(form.takeChecks(), 0);
}

TEST_F(DBFormTest, checksAgainAfterACheckThatAskedForAnother) {
  RestlessForm restless;
  restless.proposalsLeft = 2;
  restless.proposeCheckAll();
  EXPECT_EQ(restless.takeChecks(), 3);
  EXPECT_FALSE(restless.nested);
}

TEST_F(DBFormTest, forgetsWhatWasAskedForWhenItCloses) {
  auto closing = std::make_unique<TestForm>();
  closing->proposeCheckAll();
  const FXObject* address = closing.get();
  ASSERT_TRUE(testAccount().hasChore(closing.get(), DBForm::ID_CHECK_ALL));
  closing.reset();
  EXPECT_FALSE(testAccount().hasChore(const_cast<FXObject*>(address), DBForm::ID_CHECK_ALL));
  TestSupport::runEvents(20);
}

TEST_F(DBFormTest, waitsUntilTheModalWindowIsClosed) {
  // The dialog may belong to the event of a message, which a check now would delete under its feet.
  FXDialogBox dialog(&form, "dialog");
  int checksMeanwhile = -1;
  TestSupport::ModalDriver driver([&](FXDialogBox& open) {
    form.proposeCheckAll();
    checksMeanwhile = form.takeChecks();
    TestSupport::accept(open);
  });
  dialog.execute();
  EXPECT_EQ(checksMeanwhile, 0);
  EXPECT_EQ(form.takeChecks(), 1);
}

TEST_F(DBFormTest, forgetsWhatWasAskedForWhenItClosesWhileAModalWindowIsOpen) {
  auto closing = std::make_unique<TestForm>();
  FXDialogBox dialog(&form, "dialog");
  TestSupport::ModalDriver driver([&](FXDialogBox& open) {
    closing->proposeCheckAll();
    EXPECT_EQ(closing->takeChecks(), 0);
    EXPECT_TRUE(testAccount().hasTimeout(closing.get(), DBForm::ID_CHECK_ALL));
    FXObject* address = closing.get();
    closing.reset();
    EXPECT_FALSE(testAccount().hasTimeout(address, DBForm::ID_CHECK_ALL));
    TestSupport::accept(open);
  });
  dialog.execute();
  EXPECT_EQ(form.takeChecks(), 0);
}

TEST_F(DBFormTest, checksWhileItIsTheModalWindowItself) {
  form.proposeCheckAll();
  class Closer : public FXObject {
   public:
    explicit Closer(TestForm& modalForm) : form(modalForm) { testAccount().addTimeout(this, 0, 1); }
    long handle(FXObject*, FXSelector, void*) override {
      checks = form.takeChecks();
      testAccount().stopModal(&form);
      return 1;
    }
    TestForm& form;
    int checks = -1;
  };
  Closer closer(form);
  testAccount().runModalFor(&form);
  EXPECT_EQ(closer.checks, 1);
}

TEST_F(DBFormTest, isKnownToTheToolkitByItsClass) {
  EXPECT_TRUE(form.isMemberOf(&InvoiceForm::metaClass));
  EXPECT_TRUE(form.isMemberOf(&DBForm::metaClass));
  EXPECT_TRUE(form.isMemberOf(&FXMainWindow::metaClass));
}

}  // namespace
}  // namespace Quillane
