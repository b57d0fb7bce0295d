// Texts between the widgets (UTF-8) and the document (bytes of Windows-1252).
// A character the code page has no byte for is never replaced silently: the
// dialogs ask for the characters that would be lost and refuse the text.
#pragma once

#include <QString>
#include <string>

namespace vt {

struct Textes;

QString depuisDocument(const std::string& cp1252);
// Only for a text that caracteresRefuses() accepts.
std::string versDocument(const QString& texte);

// The characters of `texte` that Windows-1252 cannot hold, each once, in order
// of appearance; empty when the whole text can be stored.
QString caracteresRefuses(const QString& texte);

// A stored text separates its lines with the two characters "\n"; the widgets
// show real line breaks. Line ends of any kind become one "\n".
QString lignesDepuisDocument(const std::string& cp1252);
std::string lignesVersDocument(const QString& texte);

// Why a text cannot be stored as it is, ready to show; empty when it can.
// `champ` names the field as its label does; `octets` are the bytes that
// would be stored, whose length the document limits.
QString refusTexte(const Textes& t, const QString& champ, const QString& texte,
                   const std::string& octets);

// A label's text as a field's name: without "&" and without the final colon.
QString nomDeChamp(const QString& libellé);

}  // namespace vt
