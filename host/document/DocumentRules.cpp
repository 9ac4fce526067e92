// The moves between statuses and the ways from one document to the next, as tables.
#include "host/document/DocumentRules.h"

#include <algorithm>
#include <set>

namespace Quillane::Host {

namespace {

struct Way {
  int from;
  int to;
};

constexpr Way kMoves[] = {
    {DocumentRules::OUTGOING_DRAFT, DocumentRules::OUTGOING_CLOSED},
    {DocumentRules::INCOMING_DRAFT, DocumentRules::INCOMING_CLOSED},
    {DocumentRules::DELIVERY_NOTE_DRAFT, DocumentRules::DELIVERY_NOTE_CLOSED},
    {DocumentRules::OUTGOING_PRO_FORMA, DocumentRules::OUTGOING_DRAFT},
    {DocumentRules::INCOMING_PRO_FORMA, DocumentRules::INCOMING_DRAFT},
};

constexpr Way kDerivations[] = {
    {DocumentRules::OUTGOING_PRO_FORMA, DocumentRules::OUTGOING_DRAFT},
    {DocumentRules::ORDER, DocumentRules::OUTGOING_DRAFT},
    {DocumentRules::DELIVERY_NOTE_DRAFT, DocumentRules::OUTGOING_DRAFT},
    {DocumentRules::DELIVERY_NOTE_CLOSED, DocumentRules::OUTGOING_DRAFT},
    {DocumentRules::OUTGOING_CLOSED, DocumentRules::OUTGOING_DRAFT},
    {DocumentRules::ORDER, DocumentRules::DELIVERY_NOTE_DRAFT},
    {DocumentRules::INCOMING_PRO_FORMA, DocumentRules::INCOMING_DRAFT},
    {DocumentRules::INCOMING_CLOSED, DocumentRules::INCOMING_DRAFT},
};

constexpr DocumentRules::Family kFamilies[] = {
    {DocumentRules::OUTGOING_DRAFT, DocumentRules::OUTGOING_CLOSED, DocumentRules::OUTGOING_CANCELLING},
    {DocumentRules::INCOMING_DRAFT, DocumentRules::INCOMING_CLOSED, DocumentRules::INCOMING_CANCELLING},
    {DocumentRules::DELIVERY_NOTE_DRAFT, DocumentRules::DELIVERY_NOTE_CLOSED, DocumentRules::DELIVERY_NOTE_CANCELLING},
};

template <class Ways>
bool contains(const Ways& ways, int from, int to) {
  return std::any_of(std::begin(ways), std::end(ways),
                     [from, to](const Way& way) { return way.from == from && way.to == to; });
}

template <class Ways>
std::set<int> endsOf(const Ways& ways, int from) {
  std::set<int> ends;
  for (const Way& way : ways)
    if (way.from == from) ends.insert(way.to);
  return ends;
}

std::string join(const std::set<int>& codes) {
  std::string list;
  for (const int code : codes) list += (list.empty() ? "" : ", ") + std::to_string(code);
  return list;
}

const DocumentRules::Family* findFamily(int DocumentRules::Family::*member, int status) {
  const auto found = std::find_if(std::begin(kFamilies), std::end(kFamilies),
                                  [=](const DocumentRules::Family& family) { return family.*member == status; });
  return found == std::end(kFamilies) ? nullptr : found;
}

}  // namespace

bool DocumentRules::mayMove(int from, int to) { return contains(kMoves, from, to); }

bool DocumentRules::mayDerive(int source, int draft) { return contains(kDerivations, source, draft); }

bool DocumentRules::mayCancel(int closed, int cancelling) {
  const Family* family = findFamilyOfCancelling(cancelling);
  return family && family->closed == closed;
}

const DocumentRules::Family* DocumentRules::findFamilyOfDraft(int status) { return findFamily(&Family::draft, status); }

const DocumentRules::Family* DocumentRules::findFamilyOfClosed(int status) {
  return findFamily(&Family::closed, status);
}

const DocumentRules::Family* DocumentRules::findFamilyOfCancelling(int status) {
  return findFamily(&Family::cancelling, status);
}

std::string DocumentRules::listMoves(int from) { return join(endsOf(kMoves, from)); }

std::string DocumentRules::listMakeable(int source) {
  std::set<int> codes = endsOf(kDerivations, source);
  if (const Family* family = findFamilyOfClosed(source)) codes.insert(family->cancelling);
  return join(codes);
}

}  // namespace Quillane::Host
