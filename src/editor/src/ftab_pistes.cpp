// The track commands: the Tracks menu and the tracks toolbar share their
// indices (1 add, 2 delete, 3 properties, 4 a separator, 4 + n track n). A
// document has from 1 to 7 tracks; the limits are counted on the toolbar's
// buttons, which always number 4 + the tracks.
#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <algorithm>

#include "dialogs/ftab_drums.h"
#include "document/cp1252.h"
#include "editor/ftab.h"
#include "ftab_strip.h"
#include "shell/vt.h"

namespace vt {

namespace {
// The buttons the toolbar holds at most (7 tracks) and at least (1 track).
constexpr int kBoutonsMax = 11;
constexpr int kBoutonsMin = 5;

QString nomPiste(int index) {
  return QStringLiteral("mnutabPistes_%1").arg(index);
}
}  // namespace

int FTab::nbBoutonsPistes() const {
  // The three commands and the separator, then one button per track.
  return 4 + static_cast<int>(m_boutonsPistes.size());
}

void FTab::mnutabPistes(int index) {
  TimerMIDIStop(true);
  CVantoroTablature& d = doc();
  switch (index) {
    case 1:
      if (nbBoutonsPistes() >= kBoutonsMax ||
          !d.addPiste(piste(), m_vt.guitare(), m_vt.settings().setMIDIinstru))
        return;
      d.setCurseurPiste(static_cast<byt>(piste() + 1));
      marqueModifié();
      break;
    case 2:
      if (nbBoutonsPistes() <= kBoutonsMin) return;
      if (question(m_vt.loadString(1422), QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return;
      if (!d.deletePiste(piste())) return;
      if (piste() > d.getPisteLast()) d.setCurseurPiste(static_cast<byt>(d.getPisteLast()));
      marqueModifié();
      break;
    case 3:
      cacheCurseur();
      dialogue(DialogueTab::ProprietesPiste);
      break;
    default: {
      const int p = index - 4;
      if (p < 1 || p > d.getPisteLast()) return;
      d.setCurseurPiste(static_cast<byt>(p));
      break;
    }
  }
  // The closing steps of every track command.
  cacheCurseur(false);
  d.setCurseurCorde(
      static_cast<byt>(std::clamp<int>(d.CurseurCorde(), 1, std::max(1, nbCordes()))));
  if (d.CurseurX() >= d.getMesureLargeur(d.CurseurMesure())) d.setCurseurX(0);
  tbPistesUpdate();
  termine(true);
}

void FTab::tbPistesUpdate() {
  const CVantoroTablature& d = doc();
  const int n = d.getPisteLast();
  if (n != static_cast<int>(m_boutonsPistes.size())) {
    // Built again when the count changed. The old ones are taken out now and
    // deleted later: the click that got here may be one of theirs.
    QMenu* menuPistes = m_menus.at(QStringLiteral("mnutabPistes"));
    QToolBar* barrePistes = barre(QStringLiteral("tbPistes"));
    for (std::size_t i = 0; i < m_boutonsPistes.size(); ++i) {
      const int p = static_cast<int>(i) + 1;
      m_entrées.erase(nomPiste(4 + p));
      m_boutons.erase(QStringLiteral("tbPistes/%1").arg(p));
      menuPistes->removeAction(m_entréesPistes[i]);
      barrePistes->removeAction(m_boutonsPistes[i]);
      m_entréesPistes[i]->deleteLater();
      m_boutonsPistes[i]->deleteLater();
    }
    m_entréesPistes.clear();
    m_boutonsPistes.clear();
    // The pictures read 1, 2, 3 from the left whatever was added or deleted.
    for (int p = 1; p <= n; ++p) {
      QAction* e = menuPistes->addAction(QString());
      e->setObjectName(nomPiste(4 + p));
      e->setCheckable(true);
      connect(e, &QAction::triggered, this, [this, p] { mnutabPistes(4 + p); });
      m_entrées[e->objectName()] = e;
      m_entréesPistes.push_back(e);
      QAction* b = ajouteBouton(barrePistes, QString::number(p),
                                QStringLiteral("TB_%1").arg(std::min(p, 7)), true);
      connect(b, &QAction::triggered, this, [this, p] { mnutabPistes(4 + p); });
      m_boutonsPistes.push_back(b);
    }
  }
  // The current track's button is down and its entry checked, all others up.
  for (int p = 1; p <= n; ++p) {
    const bool courante = p == d.CurseurPiste();
    m_entréesPistes[static_cast<std::size_t>(p - 1)]->setChecked(courante);
    m_boutonsPistes[static_cast<std::size_t>(p - 1)]->setChecked(courante);
  }
  tbPistesUpdateTextes();

  // A drum track brings its picker up; a guitar track makes its instrument
  // the current one.
  if (d.getStaffType(piste()) == kStaffBatterie) {
    montreBatterie(true);
  } else {
    montreBatterie(false);
    updateGlobalGuitar();
  }
  disponibilitésPistes();
  Update_FloatingToolBar(QStringLiteral("tbPistes"));
}

void FTab::tbPistesUpdateTextes() {
  const CVantoroTablature& d = doc();
  for (int p = 1; p <= d.getPisteLast(); ++p) {
    QString texte = m_vt.loadString(5130) + QString::number(p);
    const std::string nom = d.getPisteNom(p);
    if (!nom.empty()) texte += QStringLiteral(" : ") + QString::fromStdString(cp1252ToUtf8(nom));
    if (QAction* e = entrée(nomPiste(4 + p))) e->setText(texte);
    if (QAction* b = bouton(QStringLiteral("tbPistes"), QString::number(p))) b->setToolTip(texte);
  }
}

void FTab::disponibilitésPistes() {
  const int n = 4 + doc().getPisteLast();
  const auto active = [this](int index, bool oui) {
    if (QAction* a = entrée(nomPiste(index))) a->setEnabled(oui);
  };
  active(1, n < kBoutonsMax);
  active(2, n > kBoutonsMin);
  active(3, dialogueDisponible(DialogueTab::ProprietesPiste));
  for (int p = 1; p <= doc().getPisteLast(); ++p)
    active(4 + p, true);
}

fTabDrums* FTab::batterie() const {
  return m_batterie;
}

void FTab::montreBatterie(bool oui) {
  if (!oui) {
    if (m_batterie != nullptr) m_batterie->hide();
    return;
  }
  if (m_batterie == nullptr) {
    // A tool window of the main window, standing above it.
    m_batterie = new fTabDrums(Textes{m_vt.setLang()}, window());
    connect(m_batterie, &fTabDrums::drumChoisi, this, [this](int note) {
      if (!m_joue) key_generic_note(note);
      m_picTab->setFocus();
    });
  }
  if (!m_batterie->isVisible()) {
    m_batterie->show();
    m_batterie->raise();
  }
}

}  // namespace vt
