#pragma once

#include <fx.h>

#include <FXTranslator.h>

namespace Quillane::Host {

/// Gives the toolkit's widgets their own texts (names of months, "Yes" and "No", the file dialog) in the user's
/// language. The toolkit asks it for every text that it shows by itself.
class Translator : public FX::FXTranslator {
 public:
  /// The text domain of the catalogues with the toolkit's texts.
  static constexpr char kTextDomain[] = "quillane-toolkit";

  /// Gives the application a translator in place of the one that it has; it belongs to the application. To be called
  /// before any window is made.
  static void install(FX::FXApp& application);

  /// Binds the catalogues.
  explicit Translator(FX::FXApp* application);

  /// The message in the user's language, or the message itself when no catalogue has it. Context and hint, the name of
  /// the widget's class and a remark, make no difference.
  const FX::FXchar* tr(const FX::FXchar* context, const FX::FXchar* message,
                       const FX::FXchar* hint = nullptr) const override;
};

}  // namespace Quillane::Host
