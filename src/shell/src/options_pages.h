// The seven pages of the options dialog, one file each. A page builds its
// controls, names them as the settings' rules know them, and sets its texts;
// which setting a control stands for is the rules' business
// (options_regles.cpp), not the page's.
#pragma once

#include <QButtonGroup>
#include <QColor>
#include <QFont>
#include <QRadioButton>
#include <QTimer>
#include <QWidget>
#include <array>
#include <memory>

#include "document/types.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;
class QSlider;
class QSpinBox;

namespace vt {

class FOptions;
class MidiOut;
class VT;

// A colour as the settings hold it (red in the low byte, then green, then
// blue) and back; a value past the 24 bits of a colour keeps its low bytes.
QColor couleurRéglage(lng valeur);
lng valeurCouleur(const QColor& c);

// A slider with its caption on the left and its value on the right.
struct Curseur {
  QLabel* libellé = nullptr;
  QSlider* sld = nullptr;
  QLabel* valeur = nullptr;
};
// Adds one to row `rangée` of `grille`, named `nom`, from `min` to `max`; the
// value label follows the slider as it moves.
Curseur ajouteCurseur(QWidget* parent, QGridLayout* grille, int rangée, const char* nom, int min,
                      int max);
// Options of one group, named `nom0`, `nom1`, ...; their ids in the group are
// their indices.
template <std::size_t N>
std::array<QRadioButton*, N> groupeOptions(QWidget* parent, QButtonGroup*& groupe, const char* nom,
                                           int premierId = 0) {
  groupe = new QButtonGroup(parent);
  std::array<QRadioButton*, N> r{};
  for (std::size_t i = 0; i < N; ++i) {
    r[i] = new QRadioButton(parent);
    const int id = premierId + static_cast<int>(i);
    r[i]->setObjectName(QString::fromUtf8(nom) + QString::number(id));
    groupe->addButton(r[i], id);
  }
  return r;
}
// The index of the option set, or -1.
int indexCoché(const QButtonGroup* groupe);
// Sets option `index`, held to the group's ids: a value out of range that
// was written by hand opens on the nearest option.
void coche(QButtonGroup* groupe, int index);

// "KeyDiv": start, bars, start windows, fretboard look and hand, skin.
class PageDiv : public QWidget {
 public:
  PageDiv(VT& vt, QWidget* parent);
  void load_lang();
  // The folders found under "skins", by name.
  void remplitSkins();
  // The skin's name as the list shows it; empty when none is selected.
  QString skin() const;
  // Selects `nom`, or "default" when the list lacks it, or the first one.
  void choisitSkin(const QString& nom);

  QCheckBox* chkDémarrage;
  QCheckBox* chkBarreOutils;
  QCheckBox* chkBarreEtat;
  QCheckBox* chkTipOfDay;
  std::array<QCheckBox*, 7> chkStarWith{};
  std::array<QRadioButton*, 3> optManche{};
  QButtonGroup* grpManche = nullptr;
  std::array<QRadioButton*, 2> optMancheHand{};
  QButtonGroup* grpMancheHand = nullptr;
  QListWidget* lstSkin;

 private:
  VT& m_vt;
  QGroupBox* m_fraDémarrage;
  QGroupBox* m_fraManche;
  QGroupBox* m_fraMain;
  QLabel* m_labSkin;
};

// "KeyTab": the editor's colours and digits, the folder, the staff's place,
// the screen layout and the width of the ASCII export.
class PageTab : public QWidget {
 public:
  PageTab(FOptions& options, QWidget* parent);
  void load_lang();
  // The colour a button shows (its back colour).
  QColor couleur(int i) const { return m_couleurs[static_cast<std::size_t>(i)]; }
  void setCouleur(int i, const QColor& c);
  // The font of the fret numbers, shown by labFont in itself.
  const QFont& police() const { return m_police; }
  void setPolice(const QFont& f);
  // The colour dialog for btnTab(i), the font dialog for cmdFont.
  void btnTab_Click(int i);
  void cmdFont_Click();
  void btnTabRestore_Click();

  std::array<QPushButton*, 3> btnTab{};
  QPushButton* cmdFont;
  QLabel* labFont;
  QCheckBox* chkTabTransparent;
  QCheckBox* chkTabFolder;
  QCheckBox* chkTabStaffOnTab;
  Curseur sldTabMARGIN_LEFT;
  Curseur sldTabMARGIN_TOP;
  Curseur sldTabINTER_STRINGS;
  Curseur sldTabINTER_NOTE;
  Curseur sldTabINTER_MESURE;
  Curseur sldTabExp;  // its value label is labTabExp
  QPushButton* btnTabRestore;

 private:
  FOptions& m_options;
  std::array<QColor, 3> m_couleurs;
  QFont m_police;
  QGroupBox* m_fraCouleurs;
  QGroupBox* m_fraDisposition;
  QLabel* m_labPolice;
};

// "KeyGam": the scale window's labels, keyboard, modes and playing speed.
class PageGam : public QWidget {
 public:
  PageGam(VT& vt, QWidget* parent);
  void load_lang();
  // The modes' options are numbered 1 and 2, as their setting.
  QRadioButton* optGamMode(int i) const { return m_optGamMode[static_cast<std::size_t>(i - 1)]; }

  std::array<QRadioButton*, 4> optGamConst{};
  QButtonGroup* grpGamConst = nullptr;
  std::array<QRadioButton*, 2> optGamPiano{};
  QButtonGroup* grpGamPiano = nullptr;
  QButtonGroup* grpGamMode = nullptr;  // ids 1 and 2
  Curseur sldGamTime;                  // its value label is labGamTime

 private:
  VT& m_vt;
  std::array<QRadioButton*, 2> m_optGamMode{};
  QGroupBox* m_fraConst;
  QGroupBox* m_fraPiano;
  QGroupBox* m_fraMode;
};

// "accords": the chord window's labels and the fingering search.
class PageAccords : public QWidget {
 public:
  PageAccords(VT& vt, QWidget* parent);
  void load_lang();
  void btnAccordRestore_Click();

  std::array<QRadioButton*, 2> optAccordConst{};
  QButtonGroup* grpAccordConst = nullptr;
  // ADJ_SCORE, MAXSPAN, OPENS_SCORE, POSITION_SCORE, ROOT_SCORE, SPAN_SCORE, TSPAN_SCORE.
  std::array<Curseur, 7> sldAccordCalcul{};
  QPushButton* btnAccordRestore;

 private:
  VT& m_vt;
  QGroupBox* m_fraConst;
  QGroupBox* m_fraCalcul;
};

// "KeyMét": the metronome's click.
class PageMet : public QWidget {
 public:
  PageMet(VT& vt, QWidget* parent);
  void load_lang();

  std::array<QRadioButton*, 2> optMétro{};  // 0 audible, 1 silent
  QButtonGroup* grpMétro = nullptr;
  QCheckBox* chkMétronomeMIDICanal10;
  QSpinBox* udMétronomeMIDINote1;
  QSpinBox* udMétronomeMIDINote2;

 private:
  VT& m_vt;
  QLabel* m_labNote1;
  QLabel* m_labNote2;
};

// "KeyMidi": the output, its channel, instrument and volume, the bends; the
// two test buttons sound the settings shown, before OK.
class PageMidi : public QWidget {
 public:
  PageMidi(VT& vt, QWidget* parent);
  ~PageMidi() override;
  void load_lang();
  // The outputs: entry 0 the system's default, then the session's devices.
  void remplitSorties();
  // The device an entry of cmbMIDIdevice stands for: its index less one.
  int appareil() const;

  // Held down: the note on the settings shown; released: silence.
  void btnMIDItest_MouseDown();
  void btnMIDItest_MouseUp();
  // The same with a bend of a whole tone, at the precision shown.
  void btnMIDIEffet_MouseDown();
  void btnMIDIEffet_MouseUp();
  // One step of the test bend, as its timer does it; false once it is up.
  bool pasTiré();
  // Silence, and the output opened for the tests goes.
  void arrêteEssais();

  // The bend steps per semitone a position of sldMIDIEffets stands for.
  static int pasParDemiTon(int position);
  // The position nearest to a number of steps.
  static int positionPas(int pas);

  QComboBox* cmbMIDIdevice;
  QComboBox* cmbMIDIchannel;
  QComboBox* cmbMIDIinstru;
  Curseur sldMIDIvolume;
  QPushButton* btnMIDItest;
  QCheckBox* chkMIDIEffets1Ton;
  QSpinBox* udPitchBendRange;
  Curseur sldMIDIEffets;
  QPushButton* btnMIDIEffet;
  QTimer tmrTiré;

 private:
  // The output for the device shown, opened once for as long as it stays chosen.
  MidiOut* sortie();
  int canal() const;
  // A message on the page's channel, or on a 0-based one.
  void envoie(int statut, int d1, int d2);
  void envoieSur(int canal0, int statut, int d1, int d2);
  void noteEssai();
  void silence();

  VT& m_vt;
  QLabel* m_labDevice;
  QLabel* m_labChannel;
  QLabel* m_labInstru;
  QLabel* m_labBendRange;
  QGroupBox* m_fraEffets;
  std::shared_ptr<MidiOut> m_sortie;
  int m_appareilEssai = 0;
  int m_noteEssai = -1;  // the test note sounding, or -1
  int m_pasTiré = 0;
};

// "KeyMidiIn": the input device and its basic channel.
class PageMidiIn : public QWidget {
 public:
  PageMidiIn(VT& vt, QWidget* parent);
  void load_lang();
  // The inputs from 0; with none, one entry that says so, and the list is off.
  void remplitEntrées();
  bool aucuneEntrée() const { return m_aucune; }

  QComboBox* cmbMIDIINDevice;
  QComboBox* cmbMIDIINBasicChannel;

 private:
  VT& m_vt;
  QLabel* m_labDevice;
  QLabel* m_labChannel;
  bool m_aucune = false;
};

}  // namespace vt
