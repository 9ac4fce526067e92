#pragma once

#include <fx.h>

#include "host/desktop/DocumentSession.h"
#include "host/desktop/Workplace.h"

namespace Quillane::Desktop {

/// The fields of a document itself: partner, date, number and so on. What is entered goes into the session's document
/// at once, and the target gets SEL_CHANGED.
class DocumentHeadPanel : public FX::FXMatrix {
  FXDECLARE(DocumentHeadPanel)
 public:
  enum { ID_PARTNER = FX::FXMatrix::ID_LAST, ID_PARTNER_NUMBER, ID_ISSUE_DATE, ID_LAST };

  /// The session, the workplace and the target are not owned.
  DocumentHeadPanel(FX::FXComposite* parent, DocumentSession& documentSession, Workplace& programWorkplace,
                    FX::FXObject* target, FX::FXSelector selector);

  /// Shows the document's fields anew. Those of a closed document are read-only.
  void showDocument();

  /// Whether the date that was typed is one, or none. If not, the user is told and may go on typing.
  bool requireDate();

  FX::FXTextField* getPartnerField() const { return partner; }
  FX::FXTextField* getPartnerNumberField() const { return partnerNumber; }
  FX::FXTextField* getIssueDateField() const { return issueDate; }

  long onPartner(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onPartnerKey(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onPartnerNumber(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onIssueDate(FX::FXObject* sender, FX::FXSelector selector, void* data);

  DocumentHeadPanel(const DocumentHeadPanel&) = delete;
  DocumentHeadPanel& operator=(const DocumentHeadPanel&) = delete;

 protected:
  DocumentHeadPanel() = default;

 private:
  void createPartner();
  void createStatus();
  void createIssueDate();
  void createNumber();
  void createPartnerNumber();
  void tellTarget();

  DocumentSession* session = nullptr;         // not owned
  Workplace* workplace = nullptr;             // not owned
  FX::FXTextField* partner = nullptr;         // owned by the window tree
  FX::FXButton* partnerButton = nullptr;      // owned by the window tree
  FX::FXLabel* status = nullptr;              // owned by the window tree
  FX::FXTextField* issueDate = nullptr;       // owned by the window tree
  FX::FXLabel* number = nullptr;              // owned by the window tree
  FX::FXLabel* partnerNumberLabel = nullptr;  // owned by the window tree
  FX::FXTextField* partnerNumber = nullptr;   // owned by the window tree
};

}  // namespace Quillane::Desktop
