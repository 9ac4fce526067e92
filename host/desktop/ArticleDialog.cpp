// Asks for the data of a product, a service or a suite.
#include "host/desktop/ArticleDialog.h"

#include <libintl.h>

#include "host/desktop/FieldMatrix.h"
#include "host/document/NumberText.h"
#include "plugin/contract/Invoice.h"

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(ArticleDialog)
kArticleDialogMap[] = {
    FXMAPFUNC(SEL_COMMAND, ArticleDialog::ID_ACCEPT, ArticleDialog::onCmdAccept),
};
static_assert(ARRAYNUMBER(kArticleDialogMap) == 1);

FXIMPLEMENT(ArticleDialog, FXDialogBox, kArticleDialogMap, ARRAYNUMBER(kArticleDialogMap))

namespace {

constexpr FXint kMargin = 10;
constexpr int kNameCharacters = 40;
constexpr int kUnitCharacters = 12;
constexpr int kPriceCharacters = 15;

const char* titleOf(const Host::Article& article) {
  const bool isNew = article.id == 0;
  switch (article.kind) {
    case InvoiceItem::ARTICLE_SERVICE:
      return isNew ? dgettext("quillane", "Új szolgáltatás") : dgettext("quillane", "Szolgáltatás módosítása");
    case InvoiceItem::ARTICLE_SUITE:
      return isNew ? dgettext("quillane", "Új csomag") : dgettext("quillane", "Csomag módosítása");
    default:
      return isNew ? dgettext("quillane", "Új termék") : dgettext("quillane", "Termék módosítása");
  }
}

}  // namespace

ArticleDialog::ArticleDialog(FXWindow* ownerWindow, TarnwellDatabase& companyDatabase, const Host::IconSet& icons,
                             const Host::Article& begun)
    : FXDialogBox(ownerWindow, titleOf(begun), DECOR_TITLE | DECOR_BORDER | DECOR_RESIZE | DECOR_CLOSE, 0, 0, 0, 0,
                  kMargin, kMargin, kMargin, kMargin),
      database(&companyDatabase),
      article(begun) {
  setMiniIcon(icons.get(Host::Icon::ARTICLES));
  addDialogButtons(this, this);
  createFields();
}

void ArticleDialog::createFields() {
  auto* fields = new FieldMatrix(this);
  nameField = fields->addTextField(dgettext("quillane", "M&egnevezés:"), kNameCharacters, article.name);
  unitField = fields->addShortField(dgettext("quillane", "Mennyiségi e&gység:"), kUnitCharacters, article.unit);
  priceField = fields->addNumberField(dgettext("quillane", "Egység&ár (Ft):"), kPriceCharacters,
                                      Host::displayNumber(article.price));
}

void ArticleDialog::show(FXuint placement) {
  FXDialogBox::show(placement);
  if (nameField->id() != 0) nameField->setFocus();
}

FXuint ArticleDialog::execute(FXuint placement) { return FXDialogBox::execute(placement); }

long ArticleDialog::onCmdAccept(FXObject* sender, FXSelector selector, void* ptr) {
  Host::Article typed = article;
  typed.name = nameField->getText();
  typed.unit = unitField->getText();
  typed.price = priceField->getText();
  FXString error;
  if (!Host::ArticleStore(*database).save(typed, error)) {
    FXMessageBox::error(this, MBOX_OK, getTitle().text(), "%s", error.text());
    if (id() != 0) setFocus();
    FXTextField* wrong = typed.name.trim().empty() ? nameField : priceField;
    if (wrong->id() != 0) wrong->setFocus();
    return 1;
  }
  article = typed;
  return FXDialogBox::onCmdAccept(sender, selector, ptr);
}

}  // namespace Quillane::Desktop
