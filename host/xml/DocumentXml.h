#pragma once

#include <fx.h>

#include "host/document/Document.h"
#include "host/document/EntityHooks.h"

namespace Quillane::Host {

/// The document as XML text in UTF-8: the element "invoice" in "urn:quillane:invoice" with one "item" for every item,
/// and in it whatever the modules add. data/invoice.xsd describes it. Fields that are empty are left out.
FX::FXString documentToXml(const Document& document, const EntityHooks& hooks);

/// What the modules attached to item, as XML text: two texts differ when what is attached does.
FX::FXString attachedDataToXml(InvoiceItem& item, const EntityHooks& hooks);

}  // namespace Quillane::Host
