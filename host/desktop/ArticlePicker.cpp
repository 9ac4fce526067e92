// Picks an article of one kind.
#include "host/desktop/ArticlePicker.h"

#include <libintl.h>

#include "plugin/contract/Invoice.h"

using namespace FX;

namespace Quillane::Desktop {

FXIMPLEMENT(ArticlePicker, RecordWindow, nullptr, 0)

namespace {

constexpr int kWidth = 600;
constexpr int kHeight = 360;

const char* titleOf(int kind) {
  switch (kind) {
    case InvoiceItem::ARTICLE_SERVICE:
      return dgettext("quillane", "Szolgáltatás kiválasztása");
    case InvoiceItem::ARTICLE_SUITE:
      return dgettext("quillane", "Csomag kiválasztása");
    default:
      return dgettext("quillane", "Termék kiválasztása");
  }
}

}  // namespace

ArticlePicker::ArticlePicker(FXWindow* ownerWindow, TarnwellDatabase& database, const Host::IconSet& icons, int kind,
                             const PanelProviders& providers)
    : RecordWindow(ownerWindow, titleOf(kind), PICKER,
                   std::make_unique<ArticleSource>(database, icons, kind, providers), icons, kWidth, kHeight) {
  setMiniIcon(icons.get(Host::Icon::ARTICLES));
}

void ArticlePicker::recordPicked(int id) { picked = *static_cast<ArticleSource&>(getSource()).find(id); }

}  // namespace Quillane::Desktop
