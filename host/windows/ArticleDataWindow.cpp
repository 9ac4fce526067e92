// The windows in which products, services and suites are edited.
#include <libintl.h>

#include <utility>

#include "host/document/ArticleStore.h"
#include "host/document/NumberText.h"
#include "host/windows/FieldMatrix.h"
#include "plugin/contract/Forms.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/PanelProvider.h"

using namespace FX;

namespace Quillane {

FXIMPLEMENT_ABSTRACT(ArticleDataWindow, PanelisedWindow, nullptr, 0)
FXIMPLEMENT(ProductDataWindow, ArticleDataWindow, nullptr, 0)
FXIMPLEMENT(SuiteDataWindow, ArticleDataWindow, nullptr, 0)
FXIMPLEMENT(ServiceDataWindow, ArticleDataWindow, nullptr, 0)

namespace {

constexpr int kNameCharacters = 40;
constexpr int kUnitCharacters = 12;
constexpr int kPriceCharacters = 15;

// The article's own field is out of sight when a panel is shown.
FXString nameArticle(const char* title, const Host::Article& article) {
  FXString name = article.name;
  if (article.id <= 0 || name.simplify().empty()) return title;
  return FXStringFormat(dgettext("quillane", "%s – %s"), title, name.text());
}

}  // namespace

ArticleDataWindow::ArticleDataWindow() = default;

ArticleDataWindow::ArticleDataWindow(FXWindow* ownerWindow, TarnwellDatabase& companyDatabase,
                                     const Host::Article& begun, int kind, const char* windowTitle,
                                     FXIcon* windowMiniIcon)
    : PanelisedWindow(ownerWindow, companyDatabase, nameArticle(windowTitle, begun), windowMiniIcon),
      article(std::make_unique<Host::Article>(begun)) {
  article->kind = kind;
  setRecordId(article->id);
  createFields();
}

ArticleDataWindow::~ArticleDataWindow() = default;

std::unique_ptr<ArticleDataWindow> ArticleDataWindow::make(
    FXWindow* ownerWindow, TarnwellDatabase& companyDatabase, const Host::Article& begun, FXIcon* windowMiniIcon,
    const std::vector<Plugin::PanelProvider::Plugin*>& providers) {
  std::unique_ptr<ArticleDataWindow> window;
  switch (begun.kind) {
    case InvoiceItem::ARTICLE_SERVICE:
      window = std::make_unique<ServiceDataWindow>(ownerWindow, companyDatabase, begun, windowMiniIcon);
      break;
    case InvoiceItem::ARTICLE_SUITE:
      window = std::make_unique<SuiteDataWindow>(ownerWindow, companyDatabase, begun, windowMiniIcon);
      break;
    default:
      window = std::make_unique<ProductDataWindow>(ownerWindow, companyDatabase, begun, windowMiniIcon);
  }
  window->addPanels(providers);
  return window;
}

void ArticleDataWindow::createFields() {
  auto* fields = new Host::FieldMatrix(getFieldFrame());
  nameField = fields->addTextField(dgettext("quillane", "M&egnevezés:"), kNameCharacters, article->name);
  unitField = fields->addShortField(dgettext("quillane", "Mennyiségi e&gység:"), kUnitCharacters, article->unit);
  priceField = fields->addNumberField(dgettext("quillane", "Egység&ár (Ft):"), kPriceCharacters,
                                      Host::displayNumber(article->price));
}

void ArticleDataWindow::show(FXuint placement) {
  PanelisedWindow::show(placement);
  if (nameField->id() != 0) nameField->setFocus();
}

bool ArticleDataWindow::writeRecord(FXString& reason) {
  Host::Article typed = *article;
  typed.name = nameField->getText();
  typed.unit = unitField->getText();
  typed.price = priceField->getText();
  const bool written = Host::ArticleStore(getDatabase()).write(typed, reason);
  fieldsRefused = !reason.empty();
  if (!written) return false;
  setRecordId(typed.id);
  *article = typed;
  return true;
}

void ArticleDataWindow::recordRefused() {
  article->id = getRecordId();
  // When it is not the fields' fault the user stays where the work was.
  if (!std::exchange(fieldsRefused, false)) return;
  showTab(0);
  FXTextField* wrong = nameField->getText().trim().empty() ? nameField : priceField;
  if (wrong->id() != 0) wrong->setFocus();
}

ProductDataWindow::ProductDataWindow(FXWindow* ownerWindow, TarnwellDatabase& companyDatabase,
                                     const Host::Article& begun, FXIcon* windowMiniIcon)
    : ArticleDataWindow(ownerWindow, companyDatabase, begun, InvoiceItem::ARTICLE_PRODUCT,
                        begun.id > 0 ? dgettext("quillane", "Termék módosítása") : dgettext("quillane", "Új termék"),
                        windowMiniIcon) {}

SuiteDataWindow::SuiteDataWindow(FXWindow* ownerWindow, TarnwellDatabase& companyDatabase, const Host::Article& begun,
                                 FXIcon* windowMiniIcon)
    : ArticleDataWindow(ownerWindow, companyDatabase, begun, InvoiceItem::ARTICLE_SUITE,
                        begun.id > 0 ? dgettext("quillane", "Csomag módosítása") : dgettext("quillane", "Új csomag"),
                        windowMiniIcon) {}

ServiceDataWindow::ServiceDataWindow(FXWindow* ownerWindow, TarnwellDatabase& companyDatabase,
                                     const Host::Article& begun, FXIcon* windowMiniIcon)
    : ArticleDataWindow(
          ownerWindow, companyDatabase, begun, InvoiceItem::ARTICLE_SERVICE,
          begun.id > 0 ? dgettext("quillane", "Szolgáltatás módosítása") : dgettext("quillane", "Új szolgáltatás"),
          windowMiniIcon) {}

}  // namespace Quillane
