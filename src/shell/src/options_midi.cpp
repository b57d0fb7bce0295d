// The options' MIDI page: the output, its channel, instrument and volume, and
// the bends. The two test buttons sound what the page shows, through the
// output it shows, before anything is applied.
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

#include "options_pages.h"
#include "shell/vt.h"
#include "sound/message_son.h"
#include "sound/midi_handles.h"
#include "sound/midi_out.h"

namespace vt {

namespace {

constexpr int kNoteEssai = 57;   // the A below middle C
constexpr int kPasDuTiré = 10;   // steps of the test bend
constexpr int kDuréePas = 30;    // ms between two of them
constexpr int kRoueCentre = 64;  // the wheel's high byte at rest
constexpr std::array<int, 3> kPasParDemiTon = {8, 16, 32};

QComboBox* liste(QWidget* parent, const char* nom) {
  auto* c = new QComboBox(parent);
  c->setObjectName(QString::fromUtf8(nom));
  return c;
}

}  // namespace

int PageMidi::pasParDemiTon(int position) {
  return kPasParDemiTon[static_cast<std::size_t>(std::clamp(position, 0, 2))];
}

int PageMidi::positionPas(int pas) {
  // The nearest of 8, 16 and 32; halfway goes to the finer one.
  if (pas <= 12) return 0;
  if (pas <= 24) return 1;
  return 2;
}

PageMidi::PageMidi(VT& vt, QWidget* parent) : QWidget(parent), m_vt(vt) {
  setObjectName(QStringLiteral("KeyMidi"));
  cmbMIDIdevice = liste(this, "cmbMIDIdevice");
  cmbMIDIchannel = liste(this, "cmbMIDIchannel");
  for (int c = 1; c <= 16; ++c)
    cmbMIDIchannel->addItem(QString::number(c));
  cmbMIDIinstru = liste(this, "cmbMIDIinstru");
  for (int p = 0; p < 128; ++p)
    cmbMIDIinstru->addItem(QString());
  cmbMIDIinstru->setMaxVisibleItems(20);
  m_labDevice = new QLabel(this);
  m_labChannel = new QLabel(this);
  m_labInstru = new QLabel(this);
  m_labDevice->setBuddy(cmbMIDIdevice);
  m_labChannel->setBuddy(cmbMIDIchannel);
  m_labInstru->setBuddy(cmbMIDIinstru);
  // Another output: the one the tests opened goes.
  connect(cmbMIDIdevice, &QComboBox::currentIndexChanged, this, [this] { arrêteEssais(); });

  auto* grille = new QGridLayout;
  grille->addWidget(m_labDevice, 0, 0);
  grille->addWidget(cmbMIDIdevice, 0, 1, 1, 2);
  grille->addWidget(m_labChannel, 1, 0);
  grille->addWidget(cmbMIDIchannel, 1, 1, 1, 2, Qt::AlignLeft);
  grille->addWidget(m_labInstru, 2, 0);
  grille->addWidget(cmbMIDIinstru, 2, 1, 1, 2);
  sldMIDIvolume = ajouteCurseur(this, grille, 3, "sldMIDIvolume", 0, 127);
  grille->setColumnStretch(1, 1);

  btnMIDItest = new QPushButton(this);
  btnMIDItest->setObjectName(QStringLiteral("btnMIDItest"));
  connect(btnMIDItest, &QPushButton::pressed, this, [this] { btnMIDItest_MouseDown(); });
  connect(btnMIDItest, &QPushButton::released, this, [this] { btnMIDItest_MouseUp(); });
  auto* ligneTest = new QHBoxLayout;
  ligneTest->addStretch(1);
  ligneTest->addWidget(btnMIDItest);

  m_fraEffets = new QGroupBox(this);
  auto* grilleEffets = new QGridLayout(m_fraEffets);
  chkMIDIEffets1Ton = new QCheckBox(m_fraEffets);
  chkMIDIEffets1Ton->setObjectName(QStringLiteral("chkMIDIEffets1Ton"));
  udPitchBendRange = new QSpinBox(m_fraEffets);
  udPitchBendRange->setObjectName(QStringLiteral("udPitchBendRange"));
  udPitchBendRange->setRange(1, 24);
  m_labBendRange = new QLabel(m_fraEffets);
  m_labBendRange->setBuddy(udPitchBendRange);
  // Within one tone the range is two semitones, whatever the box says.
  connect(chkMIDIEffets1Ton, &QCheckBox::toggled, udPitchBendRange,
          [this](bool oui) { udPitchBendRange->setEnabled(!oui); });
  grilleEffets->addWidget(chkMIDIEffets1Ton, 0, 0, 1, 3);
  grilleEffets->addWidget(m_labBendRange, 1, 0);
  grilleEffets->addWidget(udPitchBendRange, 1, 1, Qt::AlignLeft);
  sldMIDIEffets = ajouteCurseur(m_fraEffets, grilleEffets, 2, "sldMIDIEffets", 0, 2);
  sldMIDIEffets.sld->setTickPosition(QSlider::TicksBelow);
  sldMIDIEffets.sld->setPageStep(1);
  // The slider shows the steps per semitone its position stands for.
  QLabel* pas = sldMIDIEffets.valeur;
  connect(sldMIDIEffets.sld, &QSlider::valueChanged, pas,
          [pas](int v) { pas->setText(QString::number(pasParDemiTon(v))); });
  pas->setText(QString::number(pasParDemiTon(sldMIDIEffets.sld->value())));
  btnMIDIEffet = new QPushButton(m_fraEffets);
  btnMIDIEffet->setObjectName(QStringLiteral("btnMIDIEffet"));
  connect(btnMIDIEffet, &QPushButton::pressed, this, [this] { btnMIDIEffet_MouseDown(); });
  connect(btnMIDIEffet, &QPushButton::released, this, [this] { btnMIDIEffet_MouseUp(); });
  grilleEffets->addWidget(btnMIDIEffet, 3, 1, 1, 2, Qt::AlignRight);
  grilleEffets->setColumnStretch(1, 1);

  tmrTiré.setInterval(kDuréePas);
  connect(&tmrTiré, &QTimer::timeout, this, [this] { pasTiré(); });

  auto* pile = new QVBoxLayout(this);
  pile->addLayout(grille);
  pile->addLayout(ligneTest);
  pile->addWidget(m_fraEffets);
  pile->addStretch(1);
}

PageMidi::~PageMidi() {
  arrêteEssais();
}

void PageMidi::load_lang() {
  m_labDevice->setText(m_vt.loadString(1159));
  m_labChannel->setText(m_vt.loadString(1160));
  m_labInstru->setText(m_vt.loadString(1161));
  sldMIDIvolume.libellé->setText(m_vt.loadString(1162));
  btnMIDItest->setText(m_vt.loadString(1168));
  m_fraEffets->setTitle(m_vt.loadString(1181));
  chkMIDIEffets1Ton->setText(m_vt.loadString(1192));
  m_labBendRange->setText(m_vt.loadString(1169));
  sldMIDIEffets.libellé->setText(m_vt.loadString(1182));
  btnMIDIEffet->setText(m_vt.loadString(1183));
  for (int p = 0; p < cmbMIDIinstru->count(); ++p)
    cmbMIDIinstru->setItemText(p, m_vt.loadString(4000 + p));
  // The two entries that are ours; the system names its ports itself.
  if (cmbMIDIdevice->count() > 0) cmbMIDIdevice->setItemText(0, m_vt.loadString(1164));
  if (cmbMIDIdevice->count() > 1)
    cmbMIDIdevice->setItemText(1, m_vt.loadString(son::kSynthétiseurIntégré));
}

void PageMidi::remplitSorties() {
  const QSignalBlocker bloque(cmbMIDIdevice);
  cmbMIDIdevice->clear();
  cmbMIDIdevice->addItem(m_vt.loadString(1164));
  cmbMIDIdevice->addItems(m_vt.son().sortiesMidi());
  arrêteEssais();
}

int PageMidi::appareil() const {
  return cmbMIDIdevice->currentIndex() - 1;
}

// ---- The test buttons ------------------------------------------------------------

MidiOut* PageMidi::sortie() {
  const int a = appareil();
  if (!m_sortie || a != m_appareilEssai) {
    m_sortie = m_vt.son().sortieEssai(a);
    m_appareilEssai = a;
  }
  return m_sortie.get();
}

int PageMidi::canal() const {
  return std::clamp(cmbMIDIchannel->currentIndex(), 0, 15);
}

void PageMidi::envoie(int statut, int d1, int d2) {
  envoieSur(canal(), statut, d1, d2);
}

void PageMidi::envoieSur(int canal0, int statut, int d1, int d2) {
  if (m_sortie)
    m_sortie->shortMsg(midiPack(static_cast<std::uint8_t>(statut | canal0),
                                static_cast<std::uint8_t>(std::clamp(d1, 0, 127)),
                                static_cast<std::uint8_t>(std::clamp(d2, 0, 127))));
}

void PageMidi::noteEssai() {
  envoie(0xC0, std::max(0, cmbMIDIinstru->currentIndex()), 0);
  envoie(0x90, kNoteEssai, sldMIDIvolume.sld->value());
  m_noteEssai = kNoteEssai;
}

void PageMidi::silence() {
  tmrTiré.stop();
  if (m_noteEssai < 0 || !m_sortie) return;
  envoie(0x90, m_noteEssai, 0);
  if (m_pasTiré > 0) envoie(0xE0, 0, kRoueCentre);
  m_noteEssai = -1;
  m_pasTiré = 0;
  // The session's own output gets its program back: nothing is applied yet.
  const Settings& s = m_vt.settings();
  if (m_sortie == midiHandleSortie(m_vt.son().midiOutHandle()))
    envoieSur(std::clamp<int>(s.setMIDIchannel, 1, 16) - 1, 0xC0, s.setMIDIinstru, 0);
}

void PageMidi::btnMIDItest_MouseDown() {
  silence();
  if (!sortie()) return;
  noteEssai();
}

void PageMidi::btnMIDItest_MouseUp() {
  silence();
}

void PageMidi::btnMIDIEffet_MouseDown() {
  silence();
  if (!sortie()) return;
  // The bend range the piece would set (RPN 0), then the note bent up a tone.
  const int étendue = chkMIDIEffets1Ton->isChecked() ? 2 : udPitchBendRange->value();
  envoie(0xB0, 0x65, 0);
  envoie(0xB0, 0x64, 0);
  envoie(0xB0, 0x06, étendue);
  envoie(0xB0, 0x26, 0);
  noteEssai();
  m_pasTiré = 0;
  tmrTiré.start();
}

void PageMidi::btnMIDIEffet_MouseUp() {
  silence();
}

bool PageMidi::pasTiré() {
  if (m_noteEssai < 0 || m_pasTiré >= kPasDuTiré) {
    tmrTiré.stop();
    return false;
  }
  ++m_pasTiré;
  const int ton = 2 * pasParDemiTon(sldMIDIEffets.sld->value());
  envoie(0xE0, 0, kRoueCentre + ton * m_pasTiré / kPasDuTiré);
  if (m_pasTiré < kPasDuTiré) return true;
  tmrTiré.stop();
  return false;
}

void PageMidi::arrêteEssais() {
  silence();
  m_sortie.reset();
}

}  // namespace vt
