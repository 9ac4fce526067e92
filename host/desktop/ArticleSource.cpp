// The company's articles of one kind for list windows.
#include "host/desktop/ArticleSource.h"

#include <libintl.h>

#include <algorithm>

#include "host/document/NumberText.h"
#include "host/windows/LabelText.h"
#include "plugin/contract/Forms.h"

using namespace FX;

namespace Quillane::Desktop {

namespace {

constexpr int kNameWidth = 320;
constexpr int kUnitWidth = 90;
constexpr int kPriceWidth = 110;

}  // namespace

void ArticleSource::addColumns(RecordList& list) const {
  list.addColumn(dgettext("quillane", "Megnevezés"), kNameWidth);
  list.addColumn(dgettext("quillane", "Egység"), kUnitWidth);
  list.addColumn(dgettext("quillane", "Egységár"), kPriceWidth, RecordList::RIGHT);
  list.setStretchColumn(0);
}

bool ArticleSource::read(std::vector<RecordList::Row>& rows, FXString& error) {
  if (!Host::ArticleStore(database).list(kind, articles, error)) return false;
  rows.clear();
  for (const Host::Article& article : articles)
    rows.push_back({article.id,
                    {article.name, article.unit, Host::displayNumber(article.price)},
                    {article.name, article.unit, article.price}});
  return true;
}

FXString ArticleSource::describeCount(int shown, int all) const {
  if (shown == all) return FXStringFormat(dgettext("quillane", "%d cikk"), all);
  return FXStringFormat(dgettext("quillane", "%d cikk a(z) %d közül"), shown, all);
}

int ArticleSource::add(FXWindow* owner, const FXString& name) {
  Host::Article article;
  article.kind = kind;
  article.name = name;
  article.unit = "db";
  article.price = "0";
  const auto window = ArticleDataWindow::make(owner, database, article, icons.get(Host::Icon::ARTICLES), providers);
  return window->execute() ? window->getRecordId() : 0;
}

bool ArticleSource::change(FXWindow* owner, int id) {
  Host::Article article;
  FXString error;
  if (!Host::ArticleStore(database).load(kind, id, article, error)) {
    FXMessageBox::error(owner, MBOX_OK, dgettext("quillane", "Cikk"), "%s", Host::messageText(error).text());
    return false;
  }
  return ArticleDataWindow::make(owner, database, article, icons.get(Host::Icon::ARTICLES), providers)->execute() != 0;
}

const Host::Article* ArticleSource::find(int id) const {
  const auto found =
      std::find_if(articles.begin(), articles.end(), [id](const Host::Article& article) { return article.id == id; });
  return found == articles.end() ? nullptr : &*found;
}

}  // namespace Quillane::Desktop
