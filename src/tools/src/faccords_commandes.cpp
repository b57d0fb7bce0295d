// FAccords: the commands of its buttons. Play sounds the shown fingering at
// once and the end timer silences it; Copy and Print give the diagram with the
// construction; To tab puts it at the editor's cursor; Options opens the
// options dialog on its chord page.
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include "faccords_vues.h"
#include "shell/vt.h"
#include "tools/faccords.h"

namespace vt {

namespace {

constexpr int kToutesNotesÉteintes = 123;
constexpr int kEditeurAbsent = 122;

}  // namespace

void FAccords::toutesNotesÉteintes() {
  m_vt.son().midiController(kToutesNotesÉteintes, 0, m_vt.settings().setMIDIchannel);
}

void FAccords::btnPlay_Click() {
  if (!m_booTrouve) return;
  toutesNotesÉteintes();
  const auto& doigté = m_positions[static_cast<std::size_t>(positionCourante())];
  for (int s = 0; s < static_cast<int>(doigté.size()); ++s) {
    const int f = doigté[static_cast<std::size_t>(s)];
    if (f > -1) m_vt.son().midiNoteOnGlobal(hauteurCorde(s) + f);
  }
  m_tmrFinAccord.start();
}

void FAccords::tmrFinAccord_Timer() {
  m_tmrFinAccord.stop();
  toutesNotesÉteintes();
}

QImage FAccords::imageAccord() const {
  QImage image(300, 360, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter g(&image);
  const CouleursFiche c = couleursPapier();
  FicheAccord f = m_picImage->fiche();
  f.légende.clear();
  dessineFiche(g, QRectF(10, 8, 280, 290), f, c);
  dessineConstruction(g, QRectF(10, 304, 280, 48), m_degrés, m_notesConstruction, c);
  return image;
}

void FAccords::btnCopier_Click() {
  if (!m_booTrouve) return;
  QGuiApplication::clipboard()->setImage(imageAccord());
}

void FAccords::imprime(QPrinter& printer) const {
  QPainter g(&printer);
  const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
  // The diagram a third of the page wide, the construction under it.
  const double largeur = page.width() / 3;
  const QRectF zone(page.center().x() - largeur / 2, page.top(), largeur, largeur * 1.2);
  const CouleursFiche c = couleursPapier();
  FicheAccord f = m_picImage->fiche();
  f.légende.clear();
  dessineFiche(g, zone, f, c);
  const QRectF construction(page.left() + page.width() * 0.2, zone.bottom() + largeur * 0.08,
                            page.width() * 0.6, largeur * 0.22);
  dessineConstruction(g, construction, m_degrés, m_notesConstruction, c);
}

void FAccords::btnImprimer_Click() {
  if (!m_booTrouve) return;
  QPrinter& printer = m_vt.printer();
  bool ok = false;
  if (demandeImpression) {
    ok = demandeImpression(printer);
  } else {
    QPrintDialog dialogue(&printer, this);
    ok = dialogue.exec() == QDialog::Accepted;
  }
  if (ok) imprime(printer);
}

void FAccords::btnToTab_Click() {
  if (!m_booTrouve) return;
  auto* éditeur = m_vt.fenetres().interface<FenetreTablature>(fen::FTab);
  if (!éditeur) {
    m_vt.setStatusText(kEditeurAbsent);
    return;
  }
  QString nom;
  std::vector<int> cordes;
  doigtéAffiché(nom, cordes);
  std::vector<byt> cases(cordes.size());
  for (std::size_t i = 0; i < cordes.size(); ++i)
    cases[i] = static_cast<byt>(cordes[i]);
  éditeur->placeAccordAuCurseur(m_strAccordNom, cases);
  // The editor showed its cursor's notes on the fretboard: the chord comes back.
  drawAccord(false);
}

void FAccords::btnOptions_Click() {
  m_vt.montreOptions(QStringLiteral("accords"));
  // The parameters may have changed.
  m_booNouveau = true;
  drawAccord(false);
}

}  // namespace vt
