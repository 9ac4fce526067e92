// An item is entered: article, quantity and price.
#include "host/desktop/ItemDialog.h"

#include <fxkeys.h>
#include <libintl.h>

#include "host/document/NumberText.h"
#include "host/document/TypedNumber.h"
#include "host/windows/LabelText.h"
#include "plugin/contract/Invoice.h"

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(ItemDialog)
itemDialogMap[] = {
    FXMAPFUNCS(SEL_COMMAND, ItemDialog::ID_OTHER, ItemDialog::ID_SUITE, ItemDialog::onKind),
    FXMAPFUNCS(SEL_UPDATE, ItemDialog::ID_OTHER, ItemDialog::ID_SUITE, ItemDialog::onUpdKind),
    FXMAPFUNC(SEL_CHANGED, ItemDialog::ID_FILTER, ItemDialog::onFilter),
    FXMAPFUNC(SEL_KEYPRESS, ItemDialog::ID_FILTER, ItemDialog::onFilterKey),
    FXMAPFUNC(SEL_CHANGED, ItemDialog::ID_ARTICLES, ItemDialog::onArticle),
    FXMAPFUNC(SEL_COMMAND, ItemDialog::ID_ARTICLES, ItemDialog::onArticlePicked),
    FXMAPFUNC(SEL_COMMAND, ItemDialog::ID_NEW_ARTICLE, ItemDialog::onNewArticle),
    FXMAPFUNC(SEL_UPDATE, ItemDialog::ID_NEW_ARTICLE, ItemDialog::onUpdNeedsKind),
    FXMAPFUNC(SEL_COMMAND, ItemDialog::ID_FIELD, ItemDialog::onAccept),
    FXMAPFUNC(SEL_COMMAND, ItemDialog::ID_ACCEPT, ItemDialog::onAccept),
};
static_assert(ARRAYNUMBER(itemDialogMap) == 10);

FXIMPLEMENT(ItemDialog, FXDialogBox, itemDialogMap, ARRAYNUMBER(itemDialogMap))

namespace {

constexpr FXint kPadding = 10;
constexpr FXint kSpacing = 8;
constexpr FXint kWidth = 640;
constexpr FXint kHeight = 480;
constexpr FXint kButtonPadding = 18;
constexpr FXint kNameCharacters = 50;
constexpr FXint kNumberCharacters = 12;
constexpr FXint kUnitCharacters = 10;

constexpr FXuint kLabel = JUSTIFY_LEFT | LAYOUT_CENTER_Y;
constexpr FXuint kColumnLabel = JUSTIFY_RIGHT | LAYOUT_RIGHT | LAYOUT_CENTER_Y;
constexpr FXuint kField = FRAME_SUNKEN | FRAME_THICK | TEXTFIELD_ENTER_ONLY | LAYOUT_CENTER_Y;

const char* titleFor(ItemDialog::Purpose purpose) {
  return purpose == ItemDialog::NEW_ITEM ? dgettext("quillane", "Új tétel") : dgettext("quillane", "Tétel módosítása");
}

int kindOf(FXSelector selector) { return static_cast<int>(FXSELID(selector)) - ItemDialog::ID_OTHER; }

}  // namespace

ItemDialog::ItemDialog(FXWindow* ownerWindow, TarnwellDatabase& companyDatabase, const Host::IconSet& icons,
                       Purpose dialogPurpose, const ItemInput& startInput, const PanelProviders& providers)
    : FXDialogBox(ownerWindow, titleFor(dialogPurpose), DECOR_TITLE | DECOR_BORDER | DECOR_CLOSE | DECOR_RESIZE, 0, 0,
                  kWidth, kHeight, kPadding, kPadding, kPadding, kPadding, kSpacing, kSpacing),
      database(&companyDatabase),
      purpose(dialogPurpose),
      input(startInput) {
  auto* content = new FXVerticalFrame(this, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing);
  createKinds(content);
  createArticles(content, icons, providers);
  createFields(content);
  createButtons(content);
  name->setText(input.name);
  quantity->setText(Host::displayNumber(input.quantity));
  unit->setText(input.unit);
  price->setText(Host::displayNumber(input.price));
  readArticles();
}

void ItemDialog::createKinds(FXComposite* content) {
  auto* kinds = new FXHorizontalFrame(content, LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0, 2 * kSpacing);
  new FXLabel(kinds, dgettext("quillane", "Fajta:"), nullptr, kLabel);
  new FXRadioButton(kinds, dgettext("quillane", "&Termék"), this, ID_PRODUCT, RADIOBUTTON_NORMAL | LAYOUT_CENTER_Y);
  new FXRadioButton(kinds, dgettext("quillane", "&Szolgáltatás"), this, ID_SERVICE,
                    RADIOBUTTON_NORMAL | LAYOUT_CENTER_Y);
  new FXRadioButton(kinds, dgettext("quillane", "&Csomag"), this, ID_SUITE, RADIOBUTTON_NORMAL | LAYOUT_CENTER_Y);
  new FXRadioButton(kinds, dgettext("quillane", "Egyé&b (cikk nélkül)"), this, ID_OTHER,
                    RADIOBUTTON_NORMAL | LAYOUT_CENTER_Y);
}

void ItemDialog::createArticles(FXComposite* content, const Host::IconSet& icons, const PanelProviders& providers) {
  auto* row = new FXHorizontalFrame(content, LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing);
  new FXLabel(row, dgettext("quillane", "&Keresés:"), icons.get(Host::Icon::SEARCH), kLabel | ICON_BEFORE_TEXT);
  filter = new FilterField(row, nullptr, this, ID_FILTER, FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_X | LAYOUT_CENTER_Y);
  filter->setTipText(
      dgettext("quillane", "Írja be a cikk nevének egy részét; nyilakkal választhat, Enterrel elfogadja"));
  new FXButton(row, dgettext("quillane", "Ú&j cikk...\tÚj cikk felvétele\tÚj cikk felvétele, ha még nincs a listában"),
               icons.get(Host::Icon::ADD), this, ID_NEW_ARTICLE, BUTTON_NORMAL | ICON_BEFORE_TEXT | LAYOUT_CENTER_Y, 0,
               0, 0, 0, kSpacing, kSpacing);
  articles = new RecordList(content, this, ID_ARTICLES);
  filter->setList(articles);
  source = std::make_unique<ArticleSource>(*database, icons, input.articleKind, providers);
  source->addColumns(*articles);
}

FXTextField* ItemDialog::createField(FXComposite* container, const char* label, int characters, FXuint opts) {
  new FXLabel(container, label, nullptr, dynamic_cast<FXMatrix*>(container) ? kColumnLabel : kLabel);
  return new FXTextField(container, characters, this, ID_FIELD, kField | opts);
}

void ItemDialog::createFields(FXComposite* content) {
  auto* rows = new FXMatrix(content, 2, MATRIX_BY_COLUMNS | LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing, kSpacing);
  name = createField(rows, dgettext("quillane", "Me&gnevezés:"), kNameCharacters, LAYOUT_FILL_X | LAYOUT_FILL_COLUMN);
  new FXLabel(rows, dgettext("quillane", "&Mennyiség:"), nullptr, kColumnLabel);
  auto* numbers = new FXHorizontalFrame(rows, LAYOUT_FILL_X | LAYOUT_FILL_COLUMN, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing);
  quantity = new FXTextField(numbers, kNumberCharacters, this, ID_FIELD, kField | JUSTIFY_RIGHT);
  unit = createField(numbers, dgettext("quillane", "   &Egység:"), kUnitCharacters, 0);
  price = createField(numbers, dgettext("quillane", "   Egységá&r:"), kNumberCharacters, JUSTIFY_RIGHT);
}

void ItemDialog::createButtons(FXComposite* content) {
  auto* buttons = new FXHorizontalFrame(content, LAYOUT_FILL_X | PACK_UNIFORM_WIDTH, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing);
  new FXButton(buttons, dgettext("quillane", "Mégse"), nullptr, this, ID_CANCEL, BUTTON_NORMAL | LAYOUT_RIGHT, 0, 0, 0,
               0, kButtonPadding, kButtonPadding);
  new FXButton(buttons, dgettext("quillane", "&OK"), nullptr, this, ID_ACCEPT,
               BUTTON_NORMAL | BUTTON_INITIAL | BUTTON_DEFAULT | LAYOUT_RIGHT, 0, 0, 0, 0, kButtonPadding,
               kButtonPadding);
}

void ItemDialog::create() {
  FXDialogBox::create();
  goTo(purpose == CHANGED_ITEM ? *quantity : *filter);
}

// ---- articles ----

void ItemDialog::setKind(int kind) {
  if (kind == input.articleKind) return;
  input.articleKind = kind;
  input.articleId = 0;
  for (FXTextField* field : {static_cast<FXTextField*>(filter), name, unit, price}) field->setText(FXString::null);
  articles->setFilter(FXString::null);
  readArticles();
}

void ItemDialog::readArticles() {
  std::vector<RecordList::Row> rows;
  FXString error;
  const bool hasArticles = input.articleKind != InvoiceItem::ARTICLE_NONE;
  source->setKind(input.articleKind);
  if (hasArticles && !source->read(rows, error))
    FXMessageBox::error(getOwner(), MBOX_OK, getTitle().text(), "%s", Host::messageText(error).text());
  reading = true;
  articles->setRows(std::move(rows));
  if (input.articleId > 0 && !articles->setCurrentId(input.articleId)) articles->getList()->killSelection();
  reading = false;
  if (input.articleId == 0) takeArticle(articles->getCurrentId());
  if (hasArticles) {
    filter->enable();
    articles->getList()->enable();
  } else {
    filter->disable();
    articles->getList()->disable();
  }
}

void ItemDialog::takeArticle(int id) {
  if (id == input.articleId) return;
  input.articleId = id;
  const Host::Article* article = source->find(id);
  if (!article) return;
  name->setText(article->name);
  unit->setText(article->unit);
  price->setText(Host::displayNumber(article->price));
}

long ItemDialog::onKind(FXObject*, FXSelector selector, void*) {
  setKind(kindOf(selector));
  goTo(input.articleKind == InvoiceItem::ARTICLE_NONE ? *name : *filter);
  return 1;
}

long ItemDialog::onUpdKind(FXObject* sender, FXSelector selector, void*) {
  const bool chosen = kindOf(selector) == input.articleKind;
  sender->handle(this, FXSEL(SEL_COMMAND, chosen ? ID_CHECK : ID_UNCHECK), nullptr);
  return 1;
}

long ItemDialog::onFilter(FXObject*, FXSelector, void*) {
  reading = true;
  articles->setFilter(filter->getText());
  const std::vector<int> shown = articles->getShownIds();
  if (articles->getCurrentId() == 0 && !shown.empty()) articles->setCurrentId(shown.front());
  reading = false;
  takeArticle(articles->getCurrentId());
  return 1;
}

/// The list is worked with the arrow keys from the field, so that the next stop is what is entered next.
long ItemDialog::onFilterKey(FXObject*, FXSelector, void* event) {
  const auto* key = static_cast<FXEvent*>(event);
  if (key->code != KEY_Tab || (key->state & SHIFTMASK)) return 0;
  goTo(*quantity);
  return 1;
}

long ItemDialog::onArticle(FXObject*, FXSelector, void* event) {
  if (!reading) takeArticle(static_cast<int>(reinterpret_cast<FXival>(event)));
  return 1;
}

long ItemDialog::onArticlePicked(FXObject*, FXSelector, void* event) {
  takeArticle(static_cast<int>(reinterpret_cast<FXival>(event)));
  goTo(*quantity);
  return 1;
}

long ItemDialog::onNewArticle(FXObject*, FXSelector, void*) {
  const int id = source->add(this, filter->getText());
  if (id == 0) return 1;
  filter->setText(FXString::null);
  articles->setFilter(FXString::null);
  readArticles();
  articles->setCurrentId(id);
  takeArticle(id);
  goTo(*quantity);
  return 1;
}

long ItemDialog::onUpdNeedsKind(FXObject* sender, FXSelector, void*) {
  const bool hasArticles = input.articleKind != InvoiceItem::ARTICLE_NONE;
  sender->handle(this, FXSEL(SEL_COMMAND, hasArticles ? ID_ENABLE : ID_DISABLE), nullptr);
  return 1;
}

// ---- fields ----

void ItemDialog::goTo(FXTextField& field) {
  if (field.id()) field.setFocus();  // the toolkit's text fields take none before
  field.selectAll();
}

bool ItemDialog::refuse(FXTextField& field, const FXString& reason) {
  FXMessageBox::error(this, MBOX_OK, getTitle().text(), "%s", Host::messageText(reason).text());
  goTo(field);
  return false;
}

bool ItemDialog::readNumber(FXTextField& field, FXString& number) {
  FXString error;
  return Host::parseTypedNumber(field.getText(), number, error) || refuse(field, error);
}

bool ItemDialog::readFields() {
  if (input.articleKind != InvoiceItem::ARTICLE_NONE && input.articleId == 0)
    return refuse(*filter, dgettext("quillane", "Válasszon cikket a listából. Ha nincs benne, vegye fel újként."));
  input.name = name->getText();
  input.unit = unit->getText();
  if (input.name.trim().empty()) return refuse(*name, dgettext("quillane", "Írja be a tétel megnevezését."));
  if (!readNumber(*quantity, input.quantity)) return false;
  input.price.clear();
  return price->getText().empty() || readNumber(*price, input.price);
}

long ItemDialog::onAccept(FXObject* sender, FXSelector, void* event) {
  if (!readFields()) return 1;
  return FXDialogBox::onCmdAccept(sender, FXSEL(SEL_COMMAND, ID_ACCEPT), event);
}

}  // namespace Quillane::Desktop
