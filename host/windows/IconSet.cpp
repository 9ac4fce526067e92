// The host's pictures, compiled into the library.
#include "host/windows/IconSet.h"

#include "host/windows/icons/host_icons.h"

using namespace FX;

namespace Quillane::Host {

namespace {

struct Picture {
  Icon icon;
  const unsigned char* bytes;
};

const Picture kPictures[] = {
    {Icon::ADD, host_icon_add},
    {Icon::REMOVE, host_icon_remove},
    {Icon::EDIT, host_icon_edit},
    {Icon::MOVE_UP, host_icon_move_up},
    {Icon::MOVE_DOWN, host_icon_move_down},
    {Icon::NEW_DOCUMENT, host_icon_new_document},
    {Icon::OPEN, host_icon_open},
    {Icon::SAVE, host_icon_save},
    {Icon::CHECK, host_icon_check},
    {Icon::NEXT_PROBLEM, host_icon_next_problem},
    {Icon::ERROR, host_icon_error},
    {Icon::NOTICE, host_icon_notice},
    {Icon::CLOSE_DOCUMENT, host_icon_close_document},
    {Icon::DERIVE, host_icon_derive},
    {Icon::CANCEL_DOCUMENT, host_icon_cancel_document},
    {Icon::EXPORT, host_icon_export},
    {Icon::SEARCH, host_icon_search},
    {Icon::PARTNERS, host_icon_partners},
    {Icon::ARTICLES, host_icon_articles},
    {Icon::APPLICATION, host_icon_application},
    {Icon::APPLICATION_32, host_icon_application_32},
};
static_assert(ARRAYNUMBER(kPictures) == static_cast<std::size_t>(Icon::COUNT), "a picture for every icon");

}  // namespace

IconSet::IconSet(FXApp* application) {
  for (const Picture& picture : kPictures)
    icons[static_cast<std::size_t>(picture.icon)] = std::make_unique<FXGIFIcon>(application, picture.bytes);
}

IconSet::~IconSet() = default;

void IconSet::create() const {
  for (const std::unique_ptr<FXIcon>& icon : icons) icon->create();
}

}  // namespace Quillane::Host
