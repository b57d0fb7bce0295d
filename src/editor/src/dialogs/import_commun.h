// What the two import dialogs share: the text of a file as the widgets show
// it, the reason a file or a conversion was refused, the instrument of the
// tracks made, and the line that follows the steps of a conversion.
#pragma once

#include <QString>
#include <functional>
#include <string>
#include <string_view>

#include "document/records.h"

class QLabel;
class QLayout;
class QProgressBar;
class QWidget;

namespace vt {

class CatalogueGuitares;
class CVantoroTablature;
struct InterchangeResult;
struct Textes;

// Opens a page of the help ("files.html#midiimport"); the editor passes the
// main window's help, tests their own.
using OuvreAide = std::function<void(const QString& page)>;

// Text from outside: UTF-8 when it is well formed, else Windows-1252, the
// code page of older files.
QString texteExterieur(std::string_view octets);

// The message of a refusal: the text of its string, then what it names (the
// byte of an unknown MIDI command follows the text directly).
QString messageRefus(const Textes& t, const InterchangeResult& r);

// The instrument of the new tracks: the current one when it has six strings,
// which every text tablature has, else the catalogue's first six-string
// instrument, else the standard tuning.
tGuitare guitareSixCordes(const CatalogueGuitares& catalogue, const tGuitare& courante,
                          int setLang);

// A track whose tuning differs from `courante` had it restored from the file:
// it takes the name and the fret count of the catalogue's instrument of that
// tuning, or no instrument name when the catalogue has none.
void nommeInstruments(CVantoroTablature& doc, const CatalogueGuitares& catalogue,
                      const tGuitare& courante, int setLang);

// The step being run ("txtKeskispasse") and the progress bar under it, both
// painted at once: the conversion holds the event loop while it runs.
class Avancement {
 public:
  Avancement(QWidget* parent, QLayout* dans);
  void étape(const Textes& t, int id);
  void position(std::size_t valeur, std::size_t total);
  void efface();
  QLabel* texte() const { return m_texte; }
  QProgressBar* barre() const { return m_barre; }

 private:
  QLabel* m_texte;
  QProgressBar* m_barre;
};

}  // namespace vt
