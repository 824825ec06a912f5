#pragma once

// The toolkit's own windows (file dialogs, the print dialog, page set-up, the buttons of its
// boxes) in Spanish, and Spanish conventions wherever the toolkit formats for the locale.
namespace idioma {

// Installs the toolkit's Spanish translations into the application and makes Spain's locale
// the default. False when the translations are not on this machine: the program goes on, its
// own texts are Spanish anyway.
bool instalarEspanol();

}  // namespace idioma
