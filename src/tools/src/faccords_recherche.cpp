// FAccords: from the lists to a name, the name to its tones and fingerings
// through the player library, and the shown fingering to the window's
// diagram and the fretboard strip.
#include <QComboBox>
#include <QListWidget>
#include <QSlider>
#include <algorithm>

#include "faccords_vues.h"
#include "music/accord_nom.h"
#include "music/accord_types.h"
#include "shell/vt.h"
#include "tools/faccords.h"

namespace vt {

namespace {

// The player library takes the open strings' pitch numbers as one-character
// strings, the lowest string first.
std::array<std::string, 8> cordesPourLaBibliothèque(const tGuitare& g) {
  std::array<std::string, 8> cordes;
  const int n = g.nbrCordes;
  if (n < 4 || n > 7) return cordes;
  for (int i = 0; i < n; ++i)
    cordes[static_cast<std::size_t>(i)] =
        std::string(1, static_cast<char>(hauteurDeNote(g.corde[static_cast<std::size_t>(n - i)])));
  return cordes;
}

}  // namespace

std::array<int, 8> FAccords::accordageCourant() const {
  std::array<int, 8> a{};
  const tGuitare& g = m_vt.guitare();
  a[0] = g.nbrCordes;
  for (int c = 1; c <= std::min<int>(g.nbrCordes, 7); ++c)
    a[static_cast<std::size_t>(c)] = g.corde[static_cast<std::size_t>(c)];
  return a;
}

int FAccords::hauteurCorde(int slot) const {
  return m_accordage[static_cast<std::size_t>(m_nbrCordes - slot)];
}

int FAccords::positionCourante() const {
  return std::clamp(m_sldPositions->value(), 0,
                    std::max(0, static_cast<int>(m_positions.size()) - 1));
}

void FAccords::construireNom() {
  const int tonalité = m_lstTonalite->currentRow();
  if (m_mode == 0) {
    const int type = m_lstAccord0->currentRow();
    // No type chosen: the key alone, as "maj".
    m_strAccordNom = nomAccordStandard(tonalité, type < 0 ? *indexTypeAccord("maj") : type);
    return;
  }
  std::array<int, 7> choix{};
  for (std::size_t i = 0; i < choix.size(); ++i)
    choix[i] = std::max(0, m_lstDegrés[i]->currentIndex());
  m_strAccordNom = nomAccordCréé(tonalité, std::max(0, m_lstAccord0->currentRow()), choix);
}

void FAccords::étapeConstruction() {
  GetAccordConstruction(m_construction, m_strAccordNom);
  m_degrés.clear();
  m_notesConstruction.clear();
  m_fondamentale = -1;
  if (const auto c = lisNomAccord(m_strAccordNom)) {
    m_fondamentale = c->fondamentale;
    // The tones in the order of their degrees, each name under its degree.
    for (const TonAccord& t : c->tons) {
      m_degrés << QString::fromStdString(t.degré);
      m_notesConstruction << nomNote(m_construction[static_cast<std::size_t>(t.demiTons)]);
    }
  }
  m_txtConst->setTons(m_degrés, m_notesConstruction);
}

void FAccords::étapeRecherche() {
  m_accordage = accordageCourant();
  m_nbrCordes = m_accordage[0];
  const std::array<std::string, 8> cordes = cordesPourLaBibliothèque(m_vt.guitare());
  const tAccordParametres& p = m_vt.settings().AccordParametres;
  m_vt.showHourglass(true);
  SetAccordParametres(p.MAXSPAN, p.ADJ_SCORE, p.OPENS_SCORE, p.POSITION_SCORE, p.ROOT_SCORE,
                      p.SPAN_SCORE, p.TSPAN_SCORE);
  GetAccordPositions(m_positions, m_strAccordNom, static_cast<std::uint8_t>(m_nbrCordes), cordes);
  m_vt.showHourglass(false);
  // Every fingering found is shown, the only one of a chord too.
  m_booTrouve = !m_positions.empty();
  m_remplissage = true;
  m_sldPositions->setRange(0, m_booTrouve ? static_cast<int>(m_positions.size()) - 1 : 0);
  m_remplissage = false;
}

void FAccords::accordGetRenversement() {
  m_renversements.clear();
  if (!m_booTrouve) return;
  for (const auto& doigté : m_positions) {
    int basse = 127;
    for (int s = 0; s < static_cast<int>(doigté.size()); ++s)
      if (doigté[static_cast<std::size_t>(s)] > -1)
        basse = std::min(basse, hauteurCorde(s) + doigté[static_cast<std::size_t>(s)]);
    const int h = hauteurDeNote(basse);
    m_renversements << (h == m_fondamentale ? QString() : QLatin1Char('/') + nomNote(h));
  }
}

void FAccords::drawAccord(bool imprimer) {
  m_vt.setMancheContenu(0);
  actualise(!imprimer);
}

void FAccords::optionsAppliquées() {
  m_booNouveau = true;
  // The window's own picture now; the fretboard when the main window asks.
  actualise(false);
}

void FAccords::actualise(bool manche) {
  if (accordageCourant() != m_accordage) m_booNouveau = true;
  if (m_lstTonalite->currentRow() < 0) {
    setWindowTitle(m_vt.loadString(100));
    m_booTrouve = false;
    m_positions.clear();
    m_renversements.clear();
    m_txtConst->setTons({}, {});
    FicheAccord f;
    f.message = m_vt.loadString(118);
    m_picImage->setFiche(f);
    if (manche) m_vt.clearManche();
    return;
  }
  if (m_booNouveau) {
    m_remplissage = true;
    m_sldPositions->setValue(0);
    m_remplissage = false;
    construireNom();
    étapeConstruction();
    étapeRecherche();
    accordGetRenversement();
    m_booNouveau = false;
  }

  const int p = positionCourante();
  QString titre = m_vt.loadString(100);
  m_caseMin = 0;
  if (m_booTrouve) {
    for (int f : m_positions[static_cast<std::size_t>(p)])
      if (f > 0) m_caseMin = m_caseMin == 0 ? f : std::min(m_caseMin, f);
    titre += QStringLiteral(" - ") + QString::fromStdString(m_strAccordNom) +
             m_renversements[static_cast<qsizetype>(p)];
  }
  setWindowTitle(titre);
  montreDiagramme();
  if (manche) dessineManche();
}

void FAccords::montreDiagramme() {
  FicheAccord f;
  f.nbrCordes = m_nbrCordes;
  if (!m_booTrouve) {
    f.titre = nomAffiché();
    f.message = m_vt.loadString(115);
    m_picImage->setFiche(f);
    return;
  }
  const int p = positionCourante();
  const auto& doigté = m_positions[static_cast<std::size_t>(p)];
  f.titre = nomAffiché() + m_renversements[static_cast<qsizetype>(p)];
  const bool noms = m_vt.settings().setAccordConst == 1;
  for (std::size_t s = 0; s < doigté.size() && s < f.cases.size(); ++s) {
    f.cases[s] = doigté[s];
    if (noms && doigté[s] > -1)
      f.notes[s] = nomNote(hauteurDeNote(hauteurCorde(static_cast<int>(s)) + doigté[s]));
  }
  f.légende = m_vt.loadString(119).arg(p + 1).arg(m_positions.size());
  m_picImage->setFiche(f);
}

void FAccords::dessineManche() {
  m_vt.clearManche();
  if (!m_booTrouve) return;
  const auto& doigté = m_positions[static_cast<std::size_t>(positionCourante())];
  const bool noms = m_vt.settings().setAccordConst == 1;
  for (int s = 0; s < static_cast<int>(doigté.size()); ++s) {
    const int f = doigté[static_cast<std::size_t>(s)];
    if (f < 0) continue;
    const int corde = m_nbrCordes - s;
    m_vt.drawRond(f, corde, 3);
    if (noms) m_vt.printManche(f, corde, nomNote(hauteurDeNote(hauteurCorde(s) + f)));
  }
}

void FAccords::drawMancheContenu() {
  drawAccord(false);
}

QString FAccords::nomAffiché() const {
  const int tonalité = m_lstTonalite->currentRow();
  if (tonalité < 0) return {};
  if (m_mode == 1) return QString::fromStdString(m_strAccordNom);
  const int type = m_lstAccord0->currentRow();
  const QString texte =
      type < 0 ? QString()
               : QString::fromLatin1(kTypesAccord[static_cast<std::size_t>(type)].affiché);
  return nomNote(tonalité) + (texte == QLatin1String("maj") ? QString() : texte);
}

bool FAccords::montreAccord(int tonalité, const QString& type) {
  const auto t = indexTypeAccord(type.toStdString());
  if (tonalité < 0 || tonalité > 11 || !t) return false;
  if (m_mode != 0) optListe_Click(0);
  m_remplissage = true;
  m_typeStandard = *t;
  m_lstTonalite->setCurrentRow(tonalité);
  m_lstAccord0->setCurrentRow(*t);
  m_remplissage = false;
  nouveau();
  return true;
}

bool FAccords::doigtéAffiché(QString& nom, std::vector<int>& cordes) const {
  if (!m_booTrouve) return false;
  const auto& doigté = m_positions[static_cast<std::size_t>(positionCourante())];
  nom = QString::fromStdString(m_strAccordNom);
  cordes.assign(static_cast<std::size_t>(m_nbrCordes) + 1, 0);
  for (int c = 1; c <= m_nbrCordes; ++c) {
    const int f = doigté[static_cast<std::size_t>(m_nbrCordes - c)];
    cordes[static_cast<std::size_t>(c)] = f < 0 ? 255 : f;
  }
  return true;
}

}  // namespace vt
