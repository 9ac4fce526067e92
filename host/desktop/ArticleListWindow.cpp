// The company's products, services and suites.
#include "host/desktop/ArticleListWindow.h"

#include <libintl.h>

#include "host/windows/TabStrip.h"
#include "plugin/contract/Invoice.h"

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(ArticleListWindow)
kArticleListWindowMap[] = {
    FXMAPFUNC(SEL_COMMAND, ArticleListWindow::ID_KIND, ArticleListWindow::onKind),
};
static_assert(ARRAYNUMBER(kArticleListWindowMap) == 1);

FXIMPLEMENT(ArticleListWindow, RecordWindow, kArticleListWindowMap, ARRAYNUMBER(kArticleListWindowMap))

namespace {

constexpr int kWidth = 660;
constexpr int kHeight = 440;
constexpr FXint kTabPadding = 10;

// In the order of the tabs.
constexpr int kKinds[] = {InvoiceItem::ARTICLE_PRODUCT, InvoiceItem::ARTICLE_SERVICE, InvoiceItem::ARTICLE_SUITE};
constexpr FXint kKindCount = ARRAYNUMBER(kKinds);

}  // namespace

ArticleListWindow::ArticleListWindow(FXWindow* ownerWindow, TarnwellDatabase& database, const Host::IconSet& icons,
                                     const PanelProviders& providers)
    : RecordWindow(ownerWindow, dgettext("quillane", "Cikkek"), LIST_WINDOW,
                   std::make_unique<ArticleSource>(database, icons, kKinds[0], providers), icons, kWidth, kHeight) {
  setMiniIcon(icons.get(Host::Icon::ARTICLES));
  createTabs();
}

void ArticleListWindow::createTabs() {
  getHead()->show();
  tabs = new Host::TabStrip(getHead(), this, ID_KIND, TABBOOK_NORMAL | LAYOUT_FILL_X);
  for (const char* label : {dgettext("quillane", "&Termékek"), dgettext("quillane", "&Szolgáltatások"),
                            dgettext("quillane", "&Csomagok")}) {
    auto* tab = new FXTabItem(tabs, label);
    tab->setPadLeft(kTabPadding);
    tab->setPadRight(kTabPadding);
  }
}

ArticleSource& ArticleListWindow::getArticles() const { return static_cast<ArticleSource&>(getSource()); }

int ArticleListWindow::getKind() const { return getArticles().getKind(); }

void ArticleListWindow::setKind(int kind) {
  for (FXint tab = 0; tab < tabs->numChildren() && tab < kKindCount; ++tab)
    if (kKinds[tab] == kind) tabs->setCurrent(tab, TRUE);
}

long ArticleListWindow::onKind(FXObject*, FXSelector, void* ptr) {
  const FXival tab = reinterpret_cast<FXival>(ptr);
  if (tab < 0 || tab >= kKindCount) return 1;
  getArticles().setKind(kKinds[tab]);
  reload();
  return 1;
}

}  // namespace Quillane::Desktop
