// The dialog in which an item is entered, without a display.
#include "host/desktop/ItemDialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/desktop/DocumentWindowFixture.h"
#include "tests/support/TestCompany.h"

using namespace FX;
using testing::HasSubstr;

namespace Quillane::Desktop {
namespace {

class ItemDialogTest : public testing::Test {
 protected:
  /// Lets the user do this in a dialog that begins with input, and returns whether it was accepted.
  bool enter(const ItemInput& input, const std::function<void(ItemDialog&)>& work,
             std::vector<Answer> furtherAnswers = {}) {
    ItemDialog dialog(&window, workplace.getCompany().getDatabase(), workplace.getIcons(), ItemDialog::NEW_ITEM, input);
    bool accepted = false;
    std::vector<Answer> answers = {[&](FXDialogBox&) { work(dialog); }};
    answers.insert(answers.end(), furtherAnswers.begin(), furtherAnswers.end());
    said = answering(answers, [&] { accepted = dialog.execute() != 0; });
    result = dialog.getInput();
    return accepted;
  }

  static void type(ItemDialog& dialog, const char* text) {
    dialog.getFilterField()->setText(text);
    dialog.handle(dialog.getFilterField(), FXSEL(SEL_CHANGED, ItemDialog::ID_FILTER), const_cast<char*>(text));
  }

  static void choose(ItemDialog& dialog, int kind) {
    dialog.handle(nullptr, FXSEL(SEL_COMMAND, ItemDialog::ID_OTHER + kind), nullptr);
  }

  static void accept(ItemDialog& dialog) { dialog.handle(nullptr, FXSEL(SEL_COMMAND, ItemDialog::ID_ACCEPT), nullptr); }

  TestWorkplace workplace;
  FXMainWindow window{&testAccount(), "test"};
  ItemInput result;
  std::vector<std::string> said;
};

TEST_F(ItemDialogTest, takesNameUnitAndPriceFromTheArticle) {
  EXPECT_TRUE(enter(ItemInput(), [](ItemDialog& dialog) {
    type(dialog, "KÁBEL");
    EXPECT_EQ(dialog.getArticleList()->getNumShown(), 1);
    EXPECT_EQ(dialog.getPriceField()->getText(), "689,5");
    dialog.getQuantityField()->setText("1 234,5");
    accept(dialog);
  }));
  EXPECT_EQ(result.articleKind, InvoiceItem::ARTICLE_PRODUCT);
  EXPECT_EQ(result.articleId, 5);
  EXPECT_EQ(result.name, "Hosszabbító kábel, 3 × 1,5 mm²");
  EXPECT_EQ(result.unit, "m");
  EXPECT_EQ(result.quantity, "1234.5");
  EXPECT_EQ(result.price, "689.5");
}

TEST_F(ItemDialogTest, beginsWithTheFirstArticle) {
  EXPECT_TRUE(enter(ItemInput(), [](ItemDialog& dialog) {
    EXPECT_EQ(dialog.getNameField()->getText(), "Érlelt kecskesajt");
    accept(dialog);
  }));
  EXPECT_EQ(result.articleId, 3);
}

TEST_F(ItemDialogTest, sellsServicesAndSuitesToo) {
  EXPECT_TRUE(enter(ItemInput(), [](ItemDialog& dialog) {
    choose(dialog, InvoiceItem::ARTICLE_SERVICE);
    type(dialog, "üzembe");
    accept(dialog);
  }));
  EXPECT_EQ(result.articleKind, InvoiceItem::ARTICLE_SERVICE);
  EXPECT_EQ(result.articleId, 1);
}

TEST_F(ItemDialogTest, sellsWhatIsNoArticle) {
  EXPECT_TRUE(enter(ItemInput(), [](ItemDialog& dialog) {
    choose(dialog, InvoiceItem::ARTICLE_NONE);
    EXPECT_FALSE(dialog.getFilterField()->isEnabled());
    dialog.getNameField()->setText(" Felirat ");
    dialog.getPriceField()->setText("");
    accept(dialog);
  }));
  EXPECT_EQ(result.articleKind, InvoiceItem::ARTICLE_NONE);
  EXPECT_EQ(result.articleId, 0);
  EXPECT_EQ(result.name, "Felirat");
  EXPECT_EQ(result.price, "");
}

TEST_F(ItemDialogTest, saysWhichNumberIsNone) {
  EXPECT_FALSE(enter(ItemInput(),
                     [](ItemDialog& dialog) {
                       type(dialog, "kábel");
                       dialog.getQuantityField()->setText("sok");
                       accept(dialog);
                     },
                     {sayOk(), cancelIt()}));
  EXPECT_THAT(said.at(1), HasSubstr("Ez nem szám: „sok”"));
}

TEST_F(ItemDialogTest, asksForAnArticleOrAName) {
  enter(ItemInput(),
        [](ItemDialog& dialog) {
          type(dialog, "ilyen nincs");
          accept(dialog);
        },
        {sayOk(), cancelIt()});
  EXPECT_THAT(said.at(1), HasSubstr("Válasszon cikket"));
  enter(ItemInput(),
        [](ItemDialog& dialog) {
          choose(dialog, InvoiceItem::ARTICLE_NONE);
          accept(dialog);
        },
        {sayOk(), cancelIt()});
  EXPECT_THAT(said.at(1), HasSubstr("megnevezését"));
}

TEST_F(ItemDialogTest, leavesTheTextsOfAnItemThatIsChangedAlone) {
  ItemInput input;
  input.articleId = 5;
  input.name = "Kábel, ahogy ezen a számlán áll";
  input.quantity = "2";
  input.unit = "tekercs";
  input.price = "1000";
  EXPECT_TRUE(enter(input, [](ItemDialog& dialog) {
    EXPECT_EQ(dialog.getArticleList()->getCurrentId(), 5);
    accept(dialog);
  }));
  EXPECT_EQ(result.articleId, 5);
  EXPECT_EQ(result.name, input.name);
  EXPECT_EQ(result.unit, input.unit);
  EXPECT_EQ(result.price, input.price);
}

TEST_F(ItemDialogTest, keepsAnArticleThatIsNoLongerInTheList) {
  ItemInput input;
  input.articleId = 99;
  input.name = "Megszűnt";
  EXPECT_TRUE(enter(input, [](ItemDialog& dialog) { accept(dialog); }));
  EXPECT_EQ(result.articleId, 99);
}

}  // namespace
}  // namespace Quillane::Desktop
