#pragma once

#include <string>

namespace Quillane::Host {

/// What may become of a document: which statuses it may move to, and which documents may be made from it.
class DocumentRules {
 public:
  /// The status codes of the company's documents.
  enum Status {
    OUTGOING_DRAFT = 101,
    OUTGOING_PRO_FORMA = 102,
    OUTGOING_CLOSED = 151,
    OUTGOING_CANCELLING = 152,
    INCOMING_DRAFT = 201,
    INCOMING_PRO_FORMA = 202,
    INCOMING_CLOSED = 251,
    INCOMING_CANCELLING = 252,
    DELIVERY_NOTE_DRAFT = 401,
    DELIVERY_NOTE_CLOSED = 451,
    DELIVERY_NOTE_CANCELLING = 452,
    ORDER = 801
  };

  /// A draft, what it is closed to, and what cancels it then.
  struct Family {
    int draft;
    int closed;
    int cancelling;
  };

  /// Whether a document of one status may become one of the other, as long as its status gate is open.
  static bool mayMove(int from, int to);

  /// Whether a draft of the second status may be made from a document of the first.
  static bool mayDerive(int source, int draft);

  /// Whether a document of the second status is what cancels one of the first.
  static bool mayCancel(int closed, int cancelling);

  /// The family in which this status is the draft, the closed document or the cancelling one; null when there is none.
  static const Family* findFamilyOfDraft(int status);
  static const Family* findFamilyOfClosed(int status);
  static const Family* findFamilyOfCancelling(int status);

  /// The codes that a document of this status may move to, and those of the documents that may be made from it, in
  /// ascending order and as text ("101, 401"); empty when there are none.
  static std::string listMoves(int from);
  static std::string listMakeable(int source);
};

}  // namespace Quillane::Host
