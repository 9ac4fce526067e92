// What stands at the head of a document.
#include "host/desktop/DocumentHeadPanel.h"

#include <fxkeys.h>
#include <libintl.h>

#include "host/desktop/PartnerPicker.h"
#include "host/document/DocumentRules.h"
#include "host/document/IssueDate.h"
#include "host/windows/LabelText.h"

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(DocumentHeadPanel)
documentHeadPanelMap[] = {
    FXMAPFUNC(SEL_COMMAND, DocumentHeadPanel::ID_PARTNER, DocumentHeadPanel::onPartner),
    FXMAPFUNC(SEL_KEYPRESS, DocumentHeadPanel::ID_PARTNER, DocumentHeadPanel::onPartnerKey),
    FXMAPFUNC(SEL_CHANGED, DocumentHeadPanel::ID_PARTNER_NUMBER, DocumentHeadPanel::onPartnerNumber),
    FXMAPFUNC(SEL_CHANGED, DocumentHeadPanel::ID_ISSUE_DATE, DocumentHeadPanel::onIssueDate),
};
static_assert(ARRAYNUMBER(documentHeadPanelMap) == 4);

FXIMPLEMENT(DocumentHeadPanel, FXMatrix, documentHeadPanelMap, ARRAYNUMBER(documentHeadPanelMap))

namespace {

constexpr FXint kColumns = 4;
constexpr FXint kHorizontalSpacing = 8;
constexpr FXint kVerticalSpacing = 6;
constexpr FXint kPartnerCharacters = 42;
constexpr FXint kDateCharacters = 14;
constexpr FXint kNumberCharacters = 24;
constexpr FXint kIncoming = 200;  // the hundreds of incoming documents' statuses

constexpr FXuint kLabel = JUSTIFY_RIGHT | LAYOUT_RIGHT | LAYOUT_CENTER_Y;
constexpr FXuint kField = FRAME_SUNKEN | FRAME_THICK | LAYOUT_CENTER_Y;

bool isIncoming(const Host::Document& document) {
  return document.getStatus() >= kIncoming && document.getStatus() < kIncoming + 100;
}

/// The number, or when there will be one.
FXString describeNumber(const Host::Document& document) {
  if (!document.getNumber().empty()) return document.getNumber();
  const bool isDraft = Host::DocumentRules::findFamilyOfDraft(document.getStatus()) != nullptr;
  return isDraft ? dgettext("quillane", "lezáráskor kap számot") : dgettext("quillane", "nincs");
}

/// A closed document's fields look as if they could not be typed into.
void setEditable(FXTextField& field, bool editable) {
  field.setEditable(editable);
  field.setBackColor(editable ? field.getApp()->getBackColor() : field.getApp()->getBaseColor());
}

/// Shows text, but leaves the cursor alone where it is shown already.
void showText(FXTextField& field, const FXString& text) {
  if (field.getText() != text) field.setText(text);
}

}  // namespace

DocumentHeadPanel::DocumentHeadPanel(FXComposite* container, DocumentSession& documentSession,
                                     Workplace& programWorkplace, FXObject* receiver, FXSelector selector)
    : FXMatrix(container, kColumns, MATRIX_BY_COLUMNS | LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0, kHorizontalSpacing,
               kVerticalSpacing),
      session(&documentSession),
      workplace(&programWorkplace) {
  setTarget(receiver);
  setSelector(selector);
  createPartner();
  createStatus();
  createIssueDate();
  createNumber();
  createPartnerNumber();
  showDocument();
}

// The label's letter goes to what is created next: the field, in the frame as well as without one.
void DocumentHeadPanel::createPartner() {
  new FXLabel(this, dgettext("quillane", "&Partner:"), nullptr, kLabel);
  auto* frame = new FXHorizontalFrame(this, LAYOUT_CENTER_Y, 0, 0, 0, 0, 0, 0, 0, 0, 2);
  partner = new FXTextField(frame, kPartnerCharacters, this, ID_PARTNER, kField | TEXTFIELD_READONLY);
  partner->setTipText(dgettext("quillane", "A partner. Enter vagy F4: választás a partnerek közül"));
  partnerButton =
      new FXButton(frame, dgettext("quillane", "...\tPartner választása\tPartner választása a partnerek közül"),
                   nullptr, this, ID_PARTNER, BUTTON_NORMAL | LAYOUT_FILL_Y, 0, 0, 0, 0, 8, 8);
}

void DocumentHeadPanel::createStatus() {
  new FXLabel(this, dgettext("quillane", "Állapot:"), nullptr, kLabel);
  status = new FXLabel(this, FXString::null, nullptr, JUSTIFY_LEFT | LAYOUT_CENTER_Y);
}

void DocumentHeadPanel::createIssueDate() {
  new FXLabel(this, dgettext("quillane", "&Kelt:"), nullptr, kLabel);
  issueDate = new FXTextField(this, kDateCharacters, this, ID_ISSUE_DATE, kField);
  issueDate->setTipText(dgettext("quillane", "A bizonylat kelte, például 2025.03.07"));
}

void DocumentHeadPanel::createNumber() {
  new FXLabel(this, dgettext("quillane", "Szám:"), nullptr, kLabel);
  number = new FXLabel(this, FXString::null, nullptr, JUSTIFY_LEFT | LAYOUT_CENTER_Y);
}

void DocumentHeadPanel::createPartnerNumber() {
  partnerNumberLabel = new FXLabel(this, dgettext("quillane", "Szállító &száma:"), nullptr, kLabel);
  partnerNumber = new FXTextField(this, kNumberCharacters, this, ID_PARTNER_NUMBER, kField);
  partnerNumber->setTipText(dgettext("quillane", "A szám, amelyet a szállító adott a bizonylatnak"));
}

void DocumentHeadPanel::showDocument() {
  const Host::Document& document = session->getDocument();
  const bool editable = !session->isReadOnly();
  showText(*partner, document.getPartnerName());
  showText(*issueDate, document.getIssueDate());
  showText(*partnerNumber, document.getPartnerNumber());
  status->setText(document.getStatusName());
  number->setText(describeNumber(document));
  setEditable(*issueDate, editable);
  setEditable(*partnerNumber, editable);
  partner->setBackColor(editable ? getApp()->getBackColor() : getApp()->getBaseColor());
  if (editable) {
    partnerButton->enable();
  } else {
    partnerButton->disable();
  }
  if (isIncoming(document) != bool(partnerNumber->shown())) {
    partnerNumberLabel->handle(this, FXSEL(SEL_COMMAND, isIncoming(document) ? ID_SHOW : ID_HIDE), nullptr);
    partnerNumber->handle(this, FXSEL(SEL_COMMAND, isIncoming(document) ? ID_SHOW : ID_HIDE), nullptr);
    recalc();
  }
}

bool DocumentHeadPanel::requireDate() {
  FXString date;
  FXString error;
  if (Host::parseIssueDate(issueDate->getText(), date, error)) return true;
  FXMessageBox::error(getShell(), MBOX_OK, dgettext("quillane", "Kelt"), "%s", Host::messageText(error).text());
  if (issueDate->id()) issueDate->setFocus();
  issueDate->selectAll();
  return false;
}

void DocumentHeadPanel::tellTarget() {
  session->markChanged();
  if (target) target->tryHandle(this, FXSEL(SEL_CHANGED, message), nullptr);
}

long DocumentHeadPanel::onPartner(FXObject*, FXSelector, void*) {
  if (session->isReadOnly()) return 1;
  Host::Document& document = session->getDocument();
  PartnerPicker picker(getShell(), workplace->getCompany().getDatabase(), workplace->getIcons());
  picker.setCurrentId(document.getPartnerId());
  if (!picker.execute()) return 1;
  document.setPartner(picker.getPartner().id, picker.getPartner().name);
  document.refreshDisplayText();
  showDocument();
  tellTarget();
  return 1;
}

long DocumentHeadPanel::onPartnerKey(FXObject* sender, FXSelector, void* event) {
  const FXint code = static_cast<FXEvent*>(event)->code;
  if (code != KEY_Return && code != KEY_KP_Enter && code != KEY_F4) return 0;
  return onPartner(sender, FXSEL(SEL_COMMAND, ID_PARTNER), nullptr);
}

long DocumentHeadPanel::onPartnerNumber(FXObject*, FXSelector, void*) {
  session->getDocument().setPartnerNumber(partnerNumber->getText());
  tellTarget();
  return 1;
}

/// What is no date yet is told when the document is to be saved.
long DocumentHeadPanel::onIssueDate(FXObject*, FXSelector, void*) {
  FXString date;
  FXString error;
  if (Host::parseIssueDate(issueDate->getText(), date, error)) session->getDocument().setIssueDate(date);
  tellTarget();
  return 1;
}

}  // namespace Quillane::Desktop
