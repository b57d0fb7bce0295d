// A bench for the editor: the main window booted offscreen as in the shell's
// tests, with the real FTab registered, a strip of known size, and the live notes written down.
#pragma once

#include <QApplication>
#include <QCoreApplication>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QTest>
#include <array>
#include <initializer_list>
#include <utility>
#include <vector>

#include "../document/test_support.h"
#include "../shell/banc.h"
#include "editor/ftab.h"

namespace vt::essai {

// The shell's recorder, with the editor's own notes on a track's channel.
class SonEditeur : public SonEnregistreur {
 public:
  explicit SonEditeur(Journal& j) : SonEnregistreur(j), m_journal(j) {}
  void midiProgram(int canal, int patch) override {
    m_journal.push_back(QStringLiteral("program %1 %2").arg(canal).arg(patch));
  }
  void midiNoteOn(int note, int canal, int v) override {
    m_journal.push_back(QStringLiteral("noteOn %1 %2 %3").arg(note).arg(canal).arg(v));
  }
  void midiNoteOff(int note, int canal) override {
    m_journal.push_back(QStringLiteral("noteOff %1 %2").arg(note).arg(canal));
  }
  void midiWheel(int canal, int haut) override {
    m_journal.push_back(QStringLiteral("wheel %1 %2").arg(canal).arg(haut));
  }

 private:
  Journal& m_journal;
};

class Editeur : public BancSilencieux {
 protected:
  // The main window with the editor open on a fresh document, its strip about 1100 x 520 pixels.
  FTab& ouvre() {
    crée();
    vt->setSon(std::make_unique<SonEditeur>(sons));
    vt->fenetres().enregistrer(fen::FTab, [](VT& v) { return new FTab(v); });
    EXPECT_TRUE(démarre());
    vt->resize(1300, 900);
    ftab = dynamic_cast<FTab*>(vt->montreFenetre(fen::FTab));
    EXPECT_NE(ftab, nullptr);
    if (auto* cadre = qobject_cast<QMdiSubWindow*>(ftab->parentWidget())) cadre->resize(1120, 640);
    QCoreApplication::processEvents();
    // The document's dialogs are modal: a test puts its own when it wants them.
    dialoguesDuProgramme = ftab->entrée("mnuTabEdit_13")->isEnabled();
    ftab->setOuvreDialogue({}, {});
    // Nothing modal in a test: a question or a file dialog the test did not
    // expect fails it, and is cancelled.
    ftab->question = [](const QString& texte, QMessageBox::StandardButtons) {
      ADD_FAILURE() << "unexpected question: " << texte.toStdString();
      return QMessageBox::Cancel;
    };
    ftab->dialogueImport = [](bool, const QString&) {
      ADD_FAILURE() << "unexpected import dialog";
      return false;
    };
    ftab->demandeMesures = [](int, PositionsMesures&) {
      ADD_FAILURE() << "unexpected bar range dialog";
      return false;
    };
    ftab->choisitFichier = [](bool, const QString&, const QString&, const QString&) {
      ADD_FAILURE() << "unexpected file dialog";
      return QString();
    };
    sons.clear();
    return *ftab;
  }

  CVantoroTablature& doc() { return vt->document(); }

  void touche(int key, Qt::KeyboardModifiers mods = Qt::NoModifier) {
    QTest::keyClick(ftab->picTab(), static_cast<Qt::Key>(key), mods);
  }
  // Types each character: digits, letters (as their keys), nothing else.
  void tape(const QString& texte) {
    for (const QChar ch : texte)
      touche(Qt::Key_0 + (ch.unicode() - '0'));
  }
  // The piece grown to `n` bars, the strip drawn again.
  void mesures(int n) {
    while (doc().getMesureLast() < n)
      doc().addMesure();
    ftab->refreshPicture();
  }
  // Several keys, each with its modifiers.
  void touches(std::initializer_list<std::pair<int, Qt::KeyboardModifiers>> l) {
    for (const auto& [key, mods] : l)
      touche(key, mods);
  }
  // The cursor's bar, tick and string.
  using Place = std::array<int, 3>;
  Place place() { return {doc().CurseurMesure(), doc().CurseurX(), doc().CurseurCorde()}; }
  // The selection's start and stop: bar, tick, string each.
  std::array<int, 6> sélection() {
    const CVantoroTablature& d = doc();
    return {d.intSelStartMesure, d.intSelStartX, d.bytSelStartCorde,
            d.intSelStopMesure,  d.intSelStopX,  d.bytSelStopCorde};
  }
  void curseur(int mesure, int x, int corde) {
    doc().setCurseurMesure(static_cast<i16>(mesure));
    doc().setCurseurX(static_cast<i16>(x));
    doc().setCurseurCorde(static_cast<byt>(corde));
    ftab->refreshPicture();
  }
  // The fret at a place of track 1, -1 when no note stands there.
  int fret(int mesure, int corde, int x) {
    const int n = doc().searchNote(1, mesure, corde, x);
    return n == 0 ? -1 : doc().getNoteCase(1, mesure, corde, n);
  }
  // The notes of a string of track 1 in a bar: (tick, fret) each, in order.
  using Frets = std::vector<std::pair<int, int>>;
  Frets frets(int mesure, int corde) {
    Frets l;
    for (int n = 1; n <= doc().getNoteLast(1, mesure, corde); ++n)
      l.emplace_back(doc().getNoteX(1, mesure, corde, n), doc().getNoteCase(1, mesure, corde, n));
    return l;
  }
  const tNote* note(int mesure, int corde, int x) {
    return doc().getNote(1, mesure, corde, doc().searchNote(1, mesure, corde, x));
  }
  // A note placed directly in the document, as a file would bring it.
  void pose(int mesure, int corde, int x, int f, int durée = 24) {
    const int n = doc().setNoteWhole(1, mesure, corde, x, f, durée);
    doc().setNoteVolume(1, mesure, corde, n, 127);
  }
  // The mouse on the strip. The centre of a column's note head and of a string
  // with bar 1 shown first, from the default layout: the first bar's inner
  // origin at 35 + 20, a 4/4 bar 200 pixels wide at an eighth per column,
  // columns 20 pixels apart, strings 13 pixels apart from y 140.
  static QPointF cellule(int mesure, int colonne, int corde) {
    return {55.0 + (mesure - 1) * 200 + colonne * 20 + 20, 140.0 + (corde - 1) * 13};
  }
  void envoie(QEvent::Type type, QPointF p, Qt::MouseButton bouton, Qt::MouseButtons tenus) {
    QWidget* w = ftab->picTab();
    QMouseEvent e(type, p, w->mapToGlobal(p), bouton, tenus, Qt::NoModifier);
    QApplication::sendEvent(w, &e);
  }
  void clic(QPointF p, Qt::MouseButton b = Qt::LeftButton) {
    envoie(QEvent::MouseButtonPress, p, b, b);
    envoie(QEvent::MouseButtonRelease, p, b, Qt::NoButton);
  }
  void glisse(QPointF de, QPointF à) {
    envoie(QEvent::MouseButtonPress, de, Qt::LeftButton, Qt::LeftButton);
    envoie(QEvent::MouseMove, à, Qt::NoButton, Qt::LeftButton);
    envoie(QEvent::MouseButtonRelease, à, Qt::LeftButton, Qt::NoButton);
  }
  void insertion(bool oui) {
    if (vt->booInsert() != oui) vt->toggleInsert();
  }

  FTab* ftab = nullptr;
  bool dialoguesDuProgramme = false;
};

}  // namespace vt::essai
