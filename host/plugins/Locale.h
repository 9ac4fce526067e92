#pragma once

namespace Quillane::Host {

/// Sets the program's locale and language, once at its start and before the toolkit is initialised. Texts are UTF-8
/// everywhere, so the locale has to be as well: C.UTF-8 when the user's is not, or when the system lacks it. Numbers
/// are always written the same way, whatever the user's language.
///
/// The language is the first of those that the user wants (LANGUAGE, then the locale's name) of which there are texts:
/// Hungarian, English or German. Without any of them it is Hungarian, and so it is in the locales C and POSIX, where
/// nothing is translated. What was chosen stands in LANGUAGE from then on.
void chooseLocale();

/// Makes this text domain of the host's the default one of the program, with its catalogues.
void useTextDomain(const char* domain);

}  // namespace Quillane::Host
