#include "import_commun.h"

#include <QLabel>
#include <QLayout>
#include <QProgressBar>
#include <algorithm>
#include <climits>

#include "document/cp1252.h"
#include "document/tablature.h"
#include "formats/catalogue.h"
#include "formats/interchange_result.h"
#include "formats/midi_reader.h"
#include "textes_dialogue.h"

namespace vt {

namespace {

bool mêmesCordes(const tPiste& p, const tGuitare& g) {
  if (p.bytNbrCordes != g.nbrCordes) return false;
  for (int c = 1; c <= g.nbrCordes; ++c)
    if (p.bytCordes[static_cast<std::size_t>(c)] != g.corde[static_cast<std::size_t>(c)])
      return false;
  return true;
}

}  // namespace

QString texteExterieur(std::string_view octets) {
  if (isValidUtf8(octets))
    return QString::fromUtf8(octets.data(), static_cast<qsizetype>(octets.size()));
  return QString::fromStdString(cp1252ToUtf8(octets));
}

QString messageRefus(const Textes& t, const InterchangeResult& r) {
  const QString texte = t.loadString(r.stringId);
  if (r.détail.empty()) return texte;
  const QString détail = texteExterieur(r.détail);
  return r.stringId == kMsgMidiCommandeInconnue ? texte + détail
                                                : texte + QLatin1Char('\n') + détail;
}

tGuitare guitareSixCordes(const CatalogueGuitares& catalogue, const tGuitare& courante,
                          int setLang) {
  if (courante.nbrCordes == 6) return courante;
  for (int i = 1; i <= std::min(catalogue.nbrGuitares(), 255); ++i) {
    // A missing file's catalogue has one nameless instrument of defaults,
    // not a real one.
    const tGuitare g = catalogue.loadGuitare(i, setLang);
    if (g.nbrCordes == 6 && !g.nom.empty()) return g;
  }
  return tGuitare{};
}

void nommeInstruments(CVantoroTablature& doc, const CatalogueGuitares& catalogue,
                      const tGuitare& courante, int setLang) {
  for (int p = 1; p <= doc.getPisteLast(); ++p) {
    if (mêmesCordes(doc.piste(p), courante)) continue;
    const int i = chercherGuitareAccordage(catalogue, doc.piste(p));
    if (i == 0) {
      doc.setGuitareNom(p, std::string());
      continue;
    }
    const tGuitare g = catalogue.loadGuitare(i, setLang);
    doc.setGuitareNom(p, g.nom);
    doc.setGuitareNbrCases(p, g.nbrCases);
  }
}

Avancement::Avancement(QWidget* parent, QLayout* dans) {
  m_texte = new QLabel(parent);
  m_texte->setObjectName(QStringLiteral("txtKeskispasse"));
  m_barre = new QProgressBar(parent);
  m_barre->setObjectName(QStringLiteral("ProgressBar"));
  m_barre->setRange(0, 1);
  m_barre->setValue(0);
  m_barre->setTextVisible(false);
  dans->addWidget(m_texte);
  dans->addWidget(m_barre);
}

void Avancement::étape(const Textes& t, int id) {
  m_texte->setText(t.loadString(id));
  m_texte->repaint();
}

void Avancement::position(std::size_t valeur, std::size_t total) {
  // The bar counts in ints; a chunk is never near that size, but a file may claim it.
  const auto borne = [](std::size_t v) {
    return static_cast<int>(std::min<std::size_t>(v, INT_MAX));
  };
  m_barre->setRange(0, std::max(borne(total), 1));
  m_barre->setValue(std::min(borne(valeur), m_barre->maximum()));
  m_barre->repaint();
}

void Avancement::efface() {
  m_texte->clear();
  m_barre->setRange(0, 1);
  m_barre->setValue(0);
}

}  // namespace vt
