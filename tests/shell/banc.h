// A bench for the main window: a fresh settings file, recorded MIDI calls and
// boot steps, modal windows that do not block, and stand-in tool windows that
// write down what the main window asks of them.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QToolBar>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "shell/fenetres.h"
#include "shell/manche.h"
#include "shell/required_files.h"
#include "shell/son.h"
#include "shell/vt.h"
#include "sound/sortie_journal.h"

// Readable failures.
inline void PrintTo(const QString& s, std::ostream* os) {
  *os << '"' << s.toStdString() << '"';
}

namespace vt::essai {

using Journal = std::vector<QString>;

// The bytes of a logging output, without their times.
inline std::vector<std::string> octets(const SortieJournal& s) {
  std::vector<std::string> l;
  for (const MessageDate& m : s.messages()) {
    const std::string ligne = ligneJournal(m);
    l.push_back(ligne.substr(ligne.find(' ') + 1));
  }
  return l;
}

// A program folder of our own: the build's required files, but for `sauf`.
inline void copieProgramme(const QTemporaryDir& app, const QStringList& sauf = {}) {
  const QString source = QCoreApplication::applicationDirPath() + "/";
  for (const char* nom : kFichiersRequis) {
    const QString n = QString::fromUtf8(nom);
    QDir().mkpath(QFileInfo(app.filePath(n)).absolutePath());
    if (!sauf.contains(n)) {
      ASSERT_TRUE(QFile::copy(source + n, app.filePath(n))) << n.toStdString();
    }
  }
}

class SonEnregistreur : public SonLive {
 public:
  explicit SonEnregistreur(Journal& j) : m_j(j) {}
  void midiOpenOut() override { m_j.push_back("openOut"); }
  void midiOpenIn() override { m_j.push_back("openIn"); }
  void midiCloseOut() override { m_j.push_back("closeOut"); }
  void midiCloseIn() override { m_j.push_back("closeIn"); }
  void midiNoteOnGlobal(int note) override { m_j.push_back(QStringLiteral("on %1").arg(note)); }
  void midiNoteOffGlobal(int note) override { m_j.push_back(QStringLiteral("off %1").arg(note)); }
  void midiController(int c, int v, int canal) override {
    m_j.push_back(QStringLiteral("ctl %1 %2 %3").arg(c).arg(v).arg(canal));
  }

 private:
  Journal& m_j;
};

// A tool window as the later ones will be: it answers the main window's calls.
class FenetreEssai : public QWidget, public FenetreVT {
 public:
  FenetreEssai(VT& vt, QString nom, Journal& j) : m_vt(vt), m_nom(std::move(nom)), m_j(j) {
    resize(200, 120);
    setWindowTitle(m_nom);
  }
  void load_lang() override { m_j.push_back(m_nom + " load_lang"); }
  void changeLanguage() override { m_j.push_back(m_nom + " changeLanguage"); }
  void load_skin() override { m_j.push_back(m_nom + " load_skin"); }
  void drawMancheContenu() override {
    m_j.push_back(m_nom + " drawMancheContenu");
    m_vt.drawRond(5, 3, kRondJauneEssai);
  }
  void receiveNote(int note) override {
    m_j.push_back(m_nom + QStringLiteral(" receiveNote %1").arg(note));
  }
  void optionsAppliquées() override { m_j.push_back(m_nom + " optionsAppliquées"); }

  static constexpr int kRondJauneEssai = 3;

 protected:
  VT& m_vt;
  QString m_nom;
  Journal& m_j;
};

// The editor as the fretboard and the command line reach it.
class EditeurEssai : public FenetreEssai, public FenetreTablature {
 public:
  EditeurEssai(VT& vt, Journal& j) : FenetreEssai(vt, QStringLiteral("FTab"), j) {}
  bool isPlaying() const override { return joue; }
  int CurseurCorde() const override { return corde; }
  void picTab_KeyDown(int key) override {
    corde += key == Qt::Key_Down ? 1 : -1;
    m_j.push_back(key == Qt::Key_Down ? "FTab down" : "FTab up");
  }
  void picTab_KeyUp() override { m_j.push_back("FTab keyUp"); }
  void key_generic_note(int fret) override {
    m_j.push_back(QStringLiteral("FTab note %1").arg(fret));
  }
  void TabMIDINoteOn(int n) override { m_j.push_back(QStringLiteral("FTab on %1").arg(n)); }
  void TabMIDINoteOff(int n) override { m_j.push_back(QStringLiteral("FTab off %1").arg(n)); }
  void refreshPicture() override { m_j.push_back("FTab refresh"); }
  void TimerMIDIStop(bool boutons) override {
    joue = false;
    m_j.push_back(boutons ? "FTab stop" : "FTab stop without buttons");
  }
  void mancheUpdate() override {
    m_j.push_back("FTab mancheUpdate");
    m_vt.clearManche();
  }
  void ouvreLigneDeCommande(const QString& f) override { m_j.push_back("FTab open " + f); }
  void ouvreFichierDéposé(const QString& f) override { m_j.push_back("FTab drop " + f); }

  bool joue = false;
  int corde = 1;
};

class Banc : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(dir.isValid());
    qputenv("VANTORO_SETTINGS", réglages().toUtf8());
  }
  void TearDown() override {
    if (vt) {
      vt->setObservateur({});
      vt->hide();
      vt.reset();
    }
    qunsetenv("VANTORO_SETTINGS");
  }

  QString réglages() const { return dir.filePath("settings.ini"); }
  void règle(const QString& clé, const QString& valeur) {
    QSettings s(réglages(), QSettings::IniFormat);
    s.setValue(clé, valeur);
  }
  // A quiet start: English, no start page, no tip, no quick-access window.
  void silencieux() {
    règle("Options/setLang", "10000");
    règle("Options/setD\u00e9marrage", "0");
    règle("Options/Show Tips at Startup", "0");
    règle("Options/setLoadHelpAccessWndAtStartup", "False");
  }

  VT& crée() {
    vt = std::make_unique<VT>();
    vt->setObservateur([this](const QString& e) { étapes.push_back(e); });
    vt->setSon(std::make_unique<SonEnregistreur>(sons));
    VT::Interactions i;
    i.getLang = [this]() -> i16 { return langueChoisie; };
    i.exec = [this](QDialog& d) {
      modales.push_back(d.objectName());
      if (pendantModale) pendantModale(d);
    };
    i.critique = [this](const QString& texte, const QString& titre) {
      critiques.push_back(titre + " | " + texte);
    };
    i.information = [this](const QString& texte) { informations.push_back(texte); };
    vt->setInteractions(i);
    return *vt;
  }

  // Warnings written down instead of shown in a message box.
  void notesAvertissements() {
    VT::Interactions i;
    i.avertissement = [this](const QString& t) { avertissements << t; };
    vt->setInteractions(i);
  }

  // Registers stand-in windows under these names (FTab as an editor).
  void enregistre(const std::vector<QString>& noms) {
    for (const QString& nom : noms) {
      if (nom == fen::FTab) {
        vt->fenetres().enregistrer(nom, [this](VT& v) { return new EditeurEssai(v, journal); });
      } else {
        vt->fenetres().enregistrer(
            nom, [this, nom](VT& v) { return new FenetreEssai(v, nom, journal); });
      }
    }
  }

  bool démarre(VT::Démarrage d = {}) {
    if (!vt) crée();
    d.dossierDonnéesUtilisateur = dir.filePath("data");
    d.rafraîchirBureau = false;
    return vt->MDIForm_Load(d);
  }

  // The centre of a fret and a string on a right-handed board, in pixels, and
  // the mouse over the fretboard.
  static QPoint droitier(int c, int s) { return {32 * c + 19, 24 * s - 16}; }
  void souris(QEvent::Type type, QPoint p, Qt::MouseButton bouton, Qt::MouseButtons tenus) {
    QMouseEvent e(type, QPointF(p), vt->manche().mapToGlobal(QPointF(p)), bouton, tenus,
                  Qt::NoModifier);
    QApplication::sendEvent(&vt->manche(), &e);
  }
  void clic(QPoint p, Qt::MouseButton b = Qt::LeftButton) {
    souris(QEvent::MouseButtonPress, p, b, b);
    souris(QEvent::MouseButtonRelease, p, b, Qt::NoButton);
  }

  static bool contient(const Journal& j, const QString& ligne) {
    return std::find(j.begin(), j.end(), ligne) != j.end();
  }
  // The lines of the journal that end with `fin`, in their order.
  static Journal finissant(const Journal& j, const QString& fin) {
    Journal l;
    std::copy_if(j.begin(), j.end(), std::back_inserter(l),
                 [&fin](const QString& e) { return e.endsWith(fin); });
    return l;
  }
  // Each of `attendues` (separated by '|') in the journal, each after the one before.
  static void dansLOrdre(const Journal& j, const QString& attendues) {
    auto it = j.begin();
    for (const QString& e : attendues.split('|')) {
      it = std::find(it, j.end(), e);
      ASSERT_NE(it, j.end()) << "missing or out of order: " << e.toStdString();
    }
  }

  QTemporaryDir dir;
  std::unique_ptr<VT> vt;
  Journal étapes, sons, journal, critiques, informations;
  QStringList avertissements;
  std::vector<QString> modales;
  std::function<void(QDialog&)> pendantModale;
  i16 langueChoisie = 10000;
};

// The bench after a quiet start's settings.
class BancSilencieux : public Banc {
 protected:
  void SetUp() override {
    Banc::SetUp();
    silencieux();
  }
};

}  // namespace vt::essai
