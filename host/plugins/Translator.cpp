// The toolkit's own texts, from catalogues.
#include "host/plugins/Translator.h"

#include <libintl.h>

#include "host/plugins/Catalogues.h"

using namespace FX;

namespace Quillane::Host {

void Translator::install(FXApp& application) {
  // The application would forget the earlier one.
  delete application.getTranslator();
  application.setTranslator(new Translator(&application));
}

Translator::Translator(FXApp* application) : FXTranslator(application) { bindCatalogue(kTextDomain); }

const FXchar* Translator::tr(const FXchar*, const FXchar* message, const FXchar*) const {
  // The empty text is what a catalogue's own header stands under.
  if (!message || message[0] == '\0') return message;
  return dgettext(kTextDomain, message);
}

}  // namespace Quillane::Host
