// A bench for the tuner, the metronome and the media player: the main window
// booted offscreen as in the shell's tests, its MIDI output the logging one
// (through the program's own MVantoro), and the three windows registered.
#pragma once

#include <QClipboard>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPrinter>
#include <QSlider>
#include <QTest>

#include "../shell/banc.h"
#include "controls/picture_button.h"
#include "shell/manche.h"
#include "shell/manche_geometry.h"
#include "son_systeme.h"
#include "sound/midi_out.h"
#include "sound/sortie_journal.h"
#include "tools/faccordeur.h"
#include "tools/fmetronome.h"
#include "tools/fmultimedia.h"

namespace vt::essai {

// The options dialog as the tools open it: the page asked for is written down.
class OptionsEssai : public QDialog, public FenetreVT, public FenetreOptions {
 public:
  explicit OptionsEssai(Journal& j) : m_j(j) { setObjectName(QStringLiteral("FOptions")); }
  void load_lang() override {}
  void selectTab(const QString& clé) override { m_j.push_back("selectTab " + clé); }
  static void enregistre(VT& vt, Journal& j) {
    vt.fenetres().enregistrer(
        fen::FOptions, [&j](VT&) { return new OptionsEssai(j); },
        RegistreFenetres::Genre::Dialogue);
  }

 private:
  Journal& m_j;
};

class Outils : public Banc {
 protected:
  void SetUp() override {
    Banc::SetUp();
    silencieux();
  }

  // Boots the main window (made first by crée() when the test adds windows of its own).
  void ouvre() {
    if (!vt) crée();
    vt->setSon(sonSysteme(
        vt->settings(),
        [this](int, const std::string&) {
          journalMidi = std::make_shared<SortieJournal>();
          return OuvertureSortie{journalMidi, {}};
        },
        [](int) { return OuvertureEntrée{}; }));
    vt->fenetres().enregistrer(fen::FAccordeur, [](VT& v) { return new FAccordeur(v); });
    vt->fenetres().enregistrer(fen::FMetronome, [](VT& v) { return new FMetronome(v); });
    vt->fenetres().enregistrer(fen::FMultimedia, [](VT& v) { return new FMultimedia(v); });
    ASSERT_TRUE(démarre());
    vt->resize(1300, 900);
    QCoreApplication::processEvents();
  }

  template <class T>
  T& fenetre(const QString& nom) {
    auto* w = dynamic_cast<T*>(vt->montreFenetre(nom));
    EXPECT_NE(w, nullptr);
    QCoreApplication::processEvents();
    return *w;
  }

  // The messages sent since the last call, as "90 28 7F".
  std::vector<std::string> midi() {
    const std::vector<std::string> r = octets(*journalMidi);
    journalMidi->efface();
    return r;
  }

  std::shared_ptr<SortieJournal> journalMidi;
};

}  // namespace vt::essai
