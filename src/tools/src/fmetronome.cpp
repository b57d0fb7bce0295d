#include "tools/fmetronome.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "controls/picture_button.h"
#include "controls/up_down.h"
#include "habillage_outil.h"
#include "player/metronome.h"
#include "shell/vt.h"

namespace vt {

namespace {

// Skin pictures.
constexpr int kFondMétronome = 1;
constexpr int kLampeTaps = 6, kLampeTapsAllumée = 5;
constexpr int kBasculeDeux = 32, kBasculeUn = 33;
constexpr int kBeat01 = 35;
constexpr int kTempoHUp = 51;  // then HDn, MUp, MDn, LUp, LDn
constexpr int kMetroExitOn = 57, kMetroExitOff = 58;
constexpr int kMetroSilencieux = 59, kMetroAudible = 60;
constexpr int kTempoHOff = 61;  // then MOff, LOff
constexpr int kPlaySurvol = 64, kPlayRepos = 65, kStopSurvol = 66, kStopRepos = 67;
constexpr int kOptionsRepos = 71, kOptionsSurvol = 74;
constexpr int kEcran = 75;
constexpr int kMetroac = 76;

// The pendulum stands upright at rest.
constexpr int kFrameRepos = 17;
// Where the pendulum and the beat lamp stand; a skin's pictures may be larger than
// the default ones, so the part repainted is the picture's own size.
constexpr QPoint kPendulePlace(16, 16);
constexpr QPoint kLampePlace(240, 142);
QRect zone(QPoint place, const QPixmap& image, QSize parDéfaut) {
  return QRect(place, image.isNull() ? parDéfaut : image.size().expandedTo(parDéfaut));
}
// Where the three digits stand, and their up-down buttons.
constexpr QPoint kEcranPlace(160, 20);
constexpr std::array<int, 3> kCentresChiffres{28, 72, 117};
constexpr std::array<int, 3> kXBoutons{177, 221, 266};
constexpr int kMilieuUpDn = 20;

// The picture cut to the circle it is drawn in.
QPixmap ronde(const QPixmap& carrée) {
  if (carrée.isNull()) return carrée;
  QPixmap r(carrée.size());
  r.fill(Qt::transparent);
  QPainter p(&r);
  p.setRenderHint(QPainter::Antialiasing);
  p.setBrush(QBrush(carrée));
  p.setPen(Qt::NoPen);
  p.drawEllipse(QRectF(carrée.rect()).adjusted(2.5, 2.5, -2.5, -2.5));
  return r;
}

}  // namespace

FMetronome::FMetronome(VT& vt, QWidget* parent) : QWidget(parent), m_vt(vt) {
  setFixedSize(320, 400);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);

  // The settings, refused when a hand has put them outside the display's limits.
  const Settings& s = vt.settings();
  if (tempoDesChiffres(s.TempoH, s.TempoM, s.TempoL) > 0) {
    m_valeurs = {s.TempoH, s.TempoM, s.TempoL};
  }
  m_temps = (s.Temps >= 1 && s.Temps <= kTempsMax) ? s.Temps : 4;
  m_accent = s.setMétronomeAccent != 0;

  for (int i = 0; i < 3; ++i) {
    auto* ud = new VTUpDn(this);
    ud->setObjectName(QStringList{"btnHigh", "btnMed", "btnLow"}.at(i));
    ud->setGeometry(kXBoutons[static_cast<std::size_t>(i)], 86, 22, 40);
    ud->setMilieu(kMilieuUpDn);
    ud->setMin(0);
    ud->setMax(9);
    ud->setValue(m_valeurs[static_cast<std::size_t>(i)]);
    ud->setFocusPolicy(Qt::NoFocus);
    connect(ud, &VTUpDn::Change, this, [this, i](int v) { chiffreChange(i, v); });
    m_chiffres[static_cast<std::size_t>(i)] = ud;
  }

  m_btnBeat = créeBoutonSkin(this, QRect(164, 146, 48, 48));

  m_btnBeat->setObjectName(QStringLiteral("btnBeat"));
  connect(m_btnBeat, &VTPictureButton::Click, this, [this] { setTemps(m_temps % kTempsMax + 1); });
  m_optMetro = créeBoutonSkin(this, QRect(164, 214, 56, 28));
  m_optMetro->setObjectName(QStringLiteral("optMetro"));
  connect(m_optMetro, &VTPictureButton::Click, this, [this] { setAudible(!audible()); });
  m_btnPlay = créeBoutonSkin(this, QRect(160, 262, 48, 48));
  m_btnPlay->setObjectName(QStringLiteral("btnPlay"));
  connect(m_btnPlay, &VTPictureButton::Click, this, &FMetronome::metronomeStart);
  m_btnStop = créeBoutonSkin(this, QRect(216, 262, 48, 48));
  m_btnStop->setObjectName(QStringLiteral("btnStop"));
  connect(m_btnStop, &VTPictureButton::Click, this, &FMetronome::metronomeStop);
  m_btnExit = créeBoutonSkin(this, QRect(272, 266, 40, 40));
  m_btnExit->setObjectName(QStringLiteral("btnExit"));
  connect(m_btnExit, &VTPictureButton::Click, this, [this] { fermeOutil(this); });
  m_btnOptions = créeBoutonSkin(this, QRect(160, 330, 48, 48));
  m_btnOptions->setObjectName(QStringLiteral("btnOptions"));
  connect(m_btnOptions, &VTPictureButton::Click, this,
          [this] { m_vt.montreOptions(QString::fromUtf8("KeyMét")); });
  m_btnTap = créeBoutonSkin(this, QRect(236, 322, 64, 64));
  m_btnTap->setObjectName(QStringLiteral("btnTap"));
  m_btnTap->setForeColor(kCrème);
  m_btnTap->setFontBold(true);
  m_btnTap->setFontSize(11);
  m_btnTap->setFont3D(true);
  connect(m_btnTap, &VTPictureButton::Click, this, &FMetronome::tapeMaintenant);

  // Under the pendulum: the beats to the bar, the accent's switch, a word on tapping.
  m_labBeat = créeTexte(this, QStringLiteral("labBeat"), QRect(10, 256, 142, 22), 8, true);
  m_labBeat->setAlignment(Qt::AlignCenter);
  m_optAccent = créeBoutonSkin(this, QRect(16, 290, 56, 28));
  m_optAccent->setObjectName(QStringLiteral("optAccent"));
  connect(m_optAccent, &VTPictureButton::Click, this, [this] { setAccent(!m_accent); });
  m_labAccent = créeTexte(this, QStringLiteral("labAccent"), QRect(78, 290, 70, 28), 8, true);
  m_labAccent->setWordWrap(true);
  m_labTap = créeTexte(this, QStringLiteral("labTap"), QRect(16, 330, 130, 52), 8);
  m_labTap->setWordWrap(true);
  m_labTap->setAlignment(Qt::AlignLeft | Qt::AlignTop);

  m_timerGFX.setTimerType(Qt::PreciseTimer);
  connect(&m_timerGFX, &QTimer::timeout, this, &FMetronome::timerGFX_Timer);
  m_horlogeTap.start();
  m_frame = kFrameRepos;

  load_skin();
  load_lang();
}

FMetronome::~FMetronome() {
  if (m_enMarche) StopMetronome();
}

// ---- Texts and pictures ----------------------------------------------------------------

void FMetronome::load_lang() {
  m_vt.setStatusText(0);
  setWindowTitle(m_vt.loadString(1500));
  for (VTUpDn* ud : m_chiffres)
    ud->setToolTip(m_vt.loadString(1501));
  m_btnBeat->setToolTip(m_vt.loadString(1513));
  m_optMetro->setToolTip(m_vt.loadString(1505));
  m_btnPlay->setToolTip(m_vt.loadString(1503));
  m_btnStop->setToolTip(m_vt.loadString(1504));
  m_btnExit->setToolTip(m_vt.loadString(92));
  m_btnOptions->setToolTip(m_vt.loadString(1506));
  m_btnTap->setToolTip(m_vt.loadString(1509));
  m_btnTap->setCaption(m_vt.loadString(1510));
  m_optAccent->setToolTip(m_vt.loadString(1508));
  m_labAccent->setText(m_vt.loadString(1514));
  m_labTap->setText(m_vt.loadString(1515));
  texteBeat();
}

void FMetronome::load_skin() {
  m_fond = QPixmap(m_vt.skinFile(kFondMétronome));
  m_ecran = QPixmap(m_vt.skinFile(kEcran));
  for (int f = 0; f < kFrames; ++f)
    m_ticTac[static_cast<std::size_t>(f)] = QPixmap(m_vt.skinTicTac(f));
  for (int n = 1; n <= kTempsMax; ++n)
    m_lampes[static_cast<std::size_t>(n)] = QPixmap(m_vt.skinFile(kBeat01 + n - 1));
  for (int i = 0; i < 3; ++i) {
    VTUpDn* ud = m_chiffres[static_cast<std::size_t>(i)];
    ud->setPictureOff(QPixmap(m_vt.skinFile(kTempoHOff + i)));
    ud->setPictureUp(QPixmap(m_vt.skinFile(kTempoHUp + 2 * i)));
    ud->setPictureDn(QPixmap(m_vt.skinFile(kTempoHUp + 2 * i + 1)));
  }
  habilleBouton(m_btnBeat, m_vt, {kMetroac, kMetroac, nullptr});
  habilleBouton(m_btnPlay, m_vt, {kPlayRepos, kPlaySurvol, nullptr});
  habilleBouton(m_btnStop, m_vt, {kStopRepos, kStopSurvol, nullptr});
  habilleBouton(m_btnExit, m_vt, {kMetroExitOff, kMetroExitOn, nullptr});
  habilleBouton(m_btnOptions, m_vt, {kOptionsRepos, kOptionsSurvol, "options00"});
  habilleBouton(m_btnTap, m_vt, {kLampeTaps, kLampeTapsAllumée, nullptr});
  // The lamp's square lies on the wood here, not in a well: only its round shows.
  for (auto [image, pose] : {std::pair{kLampeTaps, &VTPictureButton::setPictureOff},
                             std::pair{kLampeTapsAllumée, &VTPictureButton::setPictureOver},
                             std::pair{kLampeTapsAllumée, &VTPictureButton::setPictureOn}})
    (m_btnTap->*pose)(ronde(QPixmap(m_vt.skinFile(image))));
  basculeImages();
  update();
}

void FMetronome::optionsAppliquées() {
  basculeImages();
  changeEnMarche();
}

void FMetronome::basculeImages() {
  const int accent = m_accent ? kBasculeDeux : kBasculeUn;
  habilleBouton(m_optAccent, m_vt, {accent, accent, nullptr});
  const int son = audible() ? kMetroAudible : kMetroSilencieux;
  habilleBouton(m_optMetro, m_vt, {son, son, nullptr});
}

void FMetronome::texteBeat() {
  m_labBeat->setText(m_vt.loadString(1511).arg(m_temps));
}

// ---- Tempo, beats, accent ------------------------------------------------------------

int FMetronome::tempo() const {
  return tempoDesChiffres(m_valeurs[0], m_valeurs[1], m_valeurs[2]);
}

bool FMetronome::setTempo(int t) {
  if (t < kTempoMin || t > kTempoMax) {
    m_vt.setStatusText(1512);
    return false;
  }
  m_valeurs = chiffresDuTempo(t);
  m_retour = true;
  for (std::size_t i = 0; i < 3; ++i)
    m_chiffres[i]->setValue(m_valeurs[i]);
  m_retour = false;
  enregistre();
  update();
  return true;
}

void FMetronome::chiffreChange(int rang, int valeur) {
  if (m_retour) return;
  std::array<int, 3> v = m_valeurs;
  v[static_cast<std::size_t>(rang)] = valeur;
  if (tempoDesChiffres(v[0], v[1], v[2]) < 0) {
    // 000 is no tempo: the digit goes back.
    m_retour = true;
    m_chiffres[static_cast<std::size_t>(rang)]->setValue(m_valeurs[static_cast<std::size_t>(rang)]);
    m_retour = false;
    m_vt.setStatusText(1512);
    return;
  }
  m_valeurs = v;
  enregistre();
  update();
  changeEnMarche();
}

void FMetronome::setTemps(int temps) {
  m_temps = std::clamp(temps, 1, kTempsMax);
  enregistre();
  texteBeat();
  changeEnMarche();
  update();
}

void FMetronome::setAccent(bool accent) {
  m_accent = accent;
  enregistre();
  basculeImages();
  changeEnMarche();
}

bool FMetronome::audible() const {
  return m_vt.settings().setMétro != 0;
}

void FMetronome::setAudible(bool a) {
  m_vt.settings().setMétro = a ? 1 : 0;
  basculeImages();
  changeEnMarche();
}

void FMetronome::enregistre() {
  Settings& s = m_vt.settings();
  s.TempoH = static_cast<byt>(m_valeurs[0]);
  s.TempoM = static_cast<byt>(m_valeurs[1]);
  s.TempoL = static_cast<byt>(m_valeurs[2]);
  s.Temps = static_cast<byt>(m_temps);
  s.setMétronomeAccent = toVbool(m_accent);
}

// A change heard at once: the clock starts again with it, from the first beat.
void FMetronome::changeEnMarche() {
  if (m_enMarche) metronomeStart();
}

void FMetronome::tape(double ms) {
  const int t = m_tap.tape(ms);
  if (t > 0 && setTempo(t)) changeEnMarche();
}

void FMetronome::tapeMaintenant() {
  tape(static_cast<double>(m_horlogeTap.nsecsElapsed()) / 1e6);
}

// ---- The clock -----------------------------------------------------------------------

void FMetronome::metronomeStart() {
  if (m_enMarche) metronomeStop();
  const int t = tempo();
  if (t < kTempoMin) return;
  const Settings& s = m_vt.settings();
  OptionsMétronome o;
  o.setMétronomeMIDICanal10 = s.setMétronomeMIDICanal10;
  o.setMIDIinstru = s.setMIDIinstru;
  o.setMIDIchannel = s.setMIDIchannel;
  o.setMétronomeMIDINote1 = s.setMétronomeMIDINote1;
  o.setMétronomeMIDINote2 = s.setMétronomeMIDINote2;
  o.setMIDIvolume = s.setMIDIvolume;
  o.setMétro = s.setMétro;
  o.accent = m_accent;
  const tMetronomeParams p = métronomeParams(t, m_temps, o, m_vt.son().midiOutHandle());
  m_msTemps = 60000.0 / t;
  m_timerGFX.setInterval(std::max<int>(p.lngPériode, 1));
  m_timerGFX.start();
  m_enMarche = true;
  m_battement = 1;
  m_frame = 0;
  m_départ.start();
  StartMetronome(p, t);
  update();
}

void FMetronome::metronomeStop() {
  StopMetronome();
  m_timerGFX.stop();
  m_enMarche = false;
  m_battement = 0;
  m_frame = kFrameRepos;
  update();
}

void FMetronome::timerGFX_Timer() {
  if (!m_enMarche) return;
  const int compteur = std::clamp(static_cast<int>(GetCompteur() & 0xFFFF), 0, kFrames - 1);
  // Which beat the counter belongs to, from the time since the start: a
  // counter read at every step could miss the turn of a beat when the screen
  // is slow, and the lamp would then fall behind the clicks.
  const double ms = static_cast<double>(m_départ.nsecsElapsed()) / 1e6;
  const long n = std::max(0L, std::lround((ms - compteur * m_msTemps / kFrames) / m_msTemps));
  const int battement = static_cast<int>(n % m_temps) + 1;
  // The pendulum swings one way on a beat and back on the next.
  const int frame = n % 2 == 0 ? compteur : kFrames - 1 - compteur;
  if (frame != m_frame) {
    m_frame = frame;
    update(zone(kPendulePlace, m_ticTac[0], QSize(130, 230)));
  }
  if (battement != m_battement) drawBeat(battement);
}

void FMetronome::drawBeat(int n) {
  m_battement = n;
  update(zone(kLampePlace, m_lampes[1], QSize(56, 56)));
}

// ---- Events ------------------------------------------------------------------------------

void FMetronome::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::TextAntialiasing);
  if (m_fond.isNull()) {
    p.fillRect(rect(), kSiège);
  } else {
    p.drawPixmap(0, 0, m_fond);
  }
  const QPixmap& pendule = m_ticTac[static_cast<std::size_t>(std::clamp(m_frame, 0, kFrames - 1))];
  if (!pendule.isNull()) p.drawPixmap(kPendulePlace, pendule);
  if (!m_ecran.isNull()) p.drawPixmap(kEcranPlace, m_ecran);
  QFont chiffres = font();
  chiffres.setPixelSize(40);
  chiffres.setBold(true);
  p.setFont(chiffres);
  p.setPen(kAmbre);
  for (std::size_t i = 0; i < 3; ++i) {
    const QRect boîte(kEcranPlace.x() + kCentresChiffres[i] - 20, kEcranPlace.y() + 6, 40, 48);
    p.drawText(boîte, Qt::AlignCenter, QString::number(m_valeurs[i]));
  }
  const int lampe = m_enMarche ? m_battement : m_temps;
  const QPixmap& image = m_lampes[static_cast<std::size_t>(std::clamp(lampe, 1, kTempsMax))];
  if (!image.isNull()) p.drawPixmap(kLampePlace, image);
}

void FMetronome::keyPressEvent(QKeyEvent* e) {
  const int k = e->key();
  const int t = tempo();
  switch (k) {
    case Qt::Key_Space:
      if (m_enMarche) {
        metronomeStop();
      } else {
        metronomeStart();
      }
      break;
    case Qt::Key_Escape:
      metronomeStop();
      break;
    case Qt::Key_T:
      tapeMaintenant();
      break;
    case Qt::Key_A:
      setAccent(!m_accent);
      break;
    case Qt::Key_B:
      setTemps(e->modifiers() & Qt::ShiftModifier ? (m_temps + kTempsMax - 2) % kTempsMax + 1
                                                  : m_temps % kTempsMax + 1);
      break;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: {
      const int pas = (k == Qt::Key_PageUp || k == Qt::Key_PageDown) ? 10 : 1;
      const int sens = (k == Qt::Key_Up || k == Qt::Key_PageUp) ? 1 : -1;
      if (setTempo(t + sens * pas)) changeEnMarche();
      break;
    }
    default:
      QWidget::keyPressEvent(e);
  }
}

void FMetronome::mouseMoveEvent(QMouseEvent* e) {
  for (VTPictureButton* b : {m_btnPlay, m_btnStop, m_btnExit, m_btnOptions, m_btnBeat, m_btnTap,
                             m_optMetro, m_optAccent})
    b->MouvementSouris(b->mapFrom(this, e->position().toPoint()));
  QWidget::mouseMoveEvent(e);
}

void FMetronome::closeEvent(QCloseEvent* e) {
  if (m_enMarche) metronomeStop();
  e->accept();
}

}  // namespace vt
