#include "tools/faccordeur.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "controls/picture_button.h"
#include "document/cp1252.h"
#include "ecoute_accordeur.h"
#include "formats/catalogue.h"
#include "habillage_outil.h"
#include "music/accordage.h"
#include "roue_accordeur.h"
#include "shell/vt.h"

namespace vt {

namespace {

// Skin pictures.
constexpr int kFondAccordeur = 2;
constexpr int kLampeAllumée = 5;
constexpr int kLampeÉteinte = 6;
constexpr int kRoueCorde7 = 23;  // "bouton tone 0007"; string n is 30 - n
constexpr int kExitSurvol = 30, kExitRepos = 31;
constexpr int kBasculeDeux = 32, kBasculeUn = 33;
constexpr int kStopSurvol = 66, kStopRepos = 67;
constexpr int kOptionsRepos = 71, kOptionsSurvol = 74;

// The yellow dot of the fretboard.
constexpr int kJaune = 3;
constexpr int kMancheAccordeur = 2;

const char* const kStyleListe =
    "QComboBox { background: #241A13; color: #F3E6C8; border: 1px solid #6A481C;"
    " border-radius: 4px; padding: 2px 8px; font-weight: bold; }"
    "QComboBox QAbstractItemView { background: #2C1D13; color: #F3E6C8;"
    " selection-background-color: #6A481C; }";

}  // namespace

FAccordeur::FAccordeur(VT& vt, QWidget* parent) : QWidget(parent), m_vt(vt) {
  setFixedSize(320, 400);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);

  m_cmb = new QComboBox(this);
  m_cmb->setObjectName(QStringLiteral("cmbAccordage"));
  m_cmb->setGeometry(12, 12, 296, 36);
  m_cmb->setStyleSheet(QString::fromLatin1(kStyleListe));
  m_cmb->setFocusPolicy(Qt::ClickFocus);
  connect(m_cmb, &QComboBox::activated, this, &FAccordeur::cmbAccordage_Click);

  m_roue = new RoueAccordeur(this);
  m_roue->setObjectName(QStringLiteral("btnRoue"));
  m_roue->move(50, 64);
  connect(m_roue, &RoueAccordeur::cordeCliquee, this, &FAccordeur::choisitCorde);
  connect(m_roue, &RoueAccordeur::tourne, this, [this](int sens) {
    m_corde = std::clamp(m_corde + sens, 1, m_roue->nbrCordes());
    drawRoue();
    playAccordage();
  });
  connect(m_roue, &RoueAccordeur::centreClique, this, [this] {
    if (m_timer1.isActive()) {
      btnStop_Click();
    } else {
      playAccordage();
    }
  });

  m_écoute = new EcouteAccordeur({}, this);
  m_écoute->setObjectName(QStringLiteral("picEcoute"));
  m_écoute->move(50, 64);
  m_écoute->hide();
  connect(m_écoute, &EcouteAccordeur::lectureChangee, this, [this] {
    texteEcoute();
    const int c = m_écoute->lecture().voisée ? m_écoute->lecture().note.corde : -1;
    if (c != m_cordeVue) drawAccordeur();
  });

  m_txt = créeTexte(this, QStringLiteral("txt"), QRect(20, 294, 280, 44), 8, true);
  m_txt->setAlignment(Qt::AlignCenter);
  m_txt->setWordWrap(true);

  m_btnStop = créeBoutonSkin(this, QRect(16, 346, 48, 48));

  m_btnStop->setObjectName(QStringLiteral("btnStop"));
  connect(m_btnStop, &VTPictureButton::Click, this, &FAccordeur::btnStop_Click);
  m_btnOptions = créeBoutonSkin(this, QRect(136, 346, 48, 48));
  m_btnOptions->setObjectName(QStringLiteral("btnOptions"));
  connect(m_btnOptions, &VTPictureButton::Click, this,
          [this] { m_vt.montreOptions(QStringLiteral("KeyDiv")); });
  m_btnExit = créeBoutonSkin(this, QRect(268, 350, 40, 40));
  m_btnExit->setObjectName(QStringLiteral("btnExit"));
  connect(m_btnExit, &VTPictureButton::Click, this, [this] { fermeOutil(this); });
  m_optEcoute = créeBoutonSkin(this, QRect(198, 348, 56, 28));
  m_optEcoute->setObjectName(QStringLiteral("optEcoute"));
  connect(m_optEcoute, &VTPictureButton::Click, this, [this] { montreEcoute(!m_pageEcoute); });
  m_labEcoute = créeTexte(this, QStringLiteral("labEcoute"), QRect(184, 376, 84, 16), 8, true);
  m_labEcoute->setAlignment(Qt::AlignCenter);

  m_timer1.setInterval(kIntervalleFrappe);
  connect(&m_timer1, &QTimer::timeout, this, &FAccordeur::Timer1_Timer);

  // Back to the tuner after the editor moved to a track with other strings.
  if (QMdiArea* zone = vt.mdiArea()) {
    connect(zone, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* w) {
      if (w && w->widget() == this) synchroniseAccordage();
    });
  }

  load_skin();
  load_lang();
  drawRoue();
}

FAccordeur::~FAccordeur() {
  m_timer1.stop();
  relâche();
  m_écoute->arrete();
}

// ---- Texts and pictures ----------------------------------------------------------------

void FAccordeur::load_lang() {
  m_vt.setStatusText(0);
  setWindowTitle(m_vt.loadString(1600));
  m_btnStop->setToolTip(m_vt.loadString(1602));
  m_btnOptions->setToolTip(m_vt.loadString(1605));
  m_btnExit->setToolTip(m_vt.loadString(92));
  m_roue->setToolTip(m_vt.loadString(1603));
  m_optEcoute->setToolTip(m_vt.loadString(1613));
  m_labEcoute->setText(m_vt.loadString(1606));
  m_cmb->setToolTip(m_vt.loadString(1601));
  synchroniseAccordage();
  if (m_pageEcoute) {
    texteEcoute();
  } else if (m_timer1.isActive()) {
    texteCorde();
  } else {
    texteRepos();
  }
}

void FAccordeur::load_skin() {
  m_fond = QPixmap(m_vt.skinFile(kFondAccordeur));
  std::array<QPixmap, 8> roues;
  for (int n = 1; n <= 7; ++n)
    roues[static_cast<std::size_t>(n)] = QPixmap(m_vt.skinFile(kRoueCorde7 + 7 - n));
  m_roue->setImages(roues, QPixmap(m_vt.skinFile(kLampeÉteinte)),
                    QPixmap(m_vt.skinFile(kLampeAllumée)));
  habilleBouton(m_btnStop, m_vt, {kStopRepos, kStopSurvol, nullptr});
  habilleBouton(m_btnOptions, m_vt, {kOptionsRepos, kOptionsSurvol, "options00"});
  habilleBouton(m_btnExit, m_vt, {kExitRepos, kExitSurvol, nullptr});
  basculeImages();
  update();
}

void FAccordeur::basculeImages() {
  const int image = m_pageEcoute ? kBasculeDeux : kBasculeUn;
  habilleBouton(m_optEcoute, m_vt, {image, image, nullptr});
  QPalette pal = m_labEcoute->palette();
  pal.setColor(QPalette::WindowText, m_pageEcoute ? kAmbre : kCrème);
  m_labEcoute->setPalette(pal);
}

// ---- The tuning --------------------------------------------------------------------------

std::vector<int> FAccordeur::cordesGuitare() const {
  const tGuitare& g = m_vt.guitare();
  std::vector<int> cordes;
  for (int c = 1; c <= std::clamp<int>(g.nbrCordes, 1, 7); ++c)
    cordes.push_back(g.corde[static_cast<std::size_t>(c)]);
  return cordes;
}

void FAccordeur::synchroniseAccordage() {
  m_synchronise = true;
  const CatalogueGuitares catalogue = CatalogueGuitares::load(
      QFile::encodeName(m_vt.strAppPath() + QString::fromLatin1(kFichierCatalogue)).toStdString());
  m_cmb->clear();
  int choisi = -1;
  const tGuitare& actuelle = m_vt.guitare();
  for (int i = 1; i <= catalogue.nbrGuitares(); ++i) {
    const tGuitare g = catalogue.loadGuitare(i, m_vt.setLang());
    m_cmb->addItem(QString::fromStdString(cp1252ToUtf8(g.nom)), i);
    const bool mêmesCordes = g.nbrCordes == actuelle.nbrCordes && g.corde == actuelle.corde;
    if (mêmesCordes && (choisi < 0 || i == m_vt.settings().setGuitare)) choisi = i - 1;
  }
  if (choisi < 0) {
    // The editor's track has a tuning of its own.
    QStringList noms;
    for (int note : cordesGuitare())
      noms.prepend(m_vt.strNotes()[static_cast<std::size_t>((note + 3) % 12)]);
    m_cmb->addItem(m_vt.loadString(573) + QStringLiteral(" (") + noms.join(QLatin1Char(' ')) +
                       QLatin1Char(')'),
                   0);
    choisi = m_cmb->count() - 1;
  }
  m_cmb->setCurrentIndex(choisi);
  m_synchronise = false;
  QStringList noms;
  for (int note : cordesGuitare())
    noms << m_vt.strNotes()[static_cast<std::size_t>((note + 3) % 12)];
  m_roue->setNoms(noms);
  m_corde = std::clamp(m_corde, 1, m_roue->nbrCordes());
  m_écoute->setAccordage(cordesGuitare(), m_vt.strNotes());
}

void FAccordeur::cmbAccordage_Click(int index) {
  if (m_synchronise) return;
  const int guitare = m_cmb->itemData(index).toInt();
  if (guitare <= 0) return;  // the custom tuning is the current one already
  m_vt.settings().setGuitare = static_cast<byt>(guitare);
  m_vt.loadGuitare(guitare);
  synchroniseAccordage();
  drawRoue();
  if (m_timer1.isActive()) {
    playAccordage();
  } else {
    drawAccordeur();
  }
}

// ---- The strike --------------------------------------------------------------------------

void FAccordeur::choisitCorde(int corde) {
  if (corde < 1 || corde > m_roue->nbrCordes()) return;
  m_corde = corde;
  drawRoue();
  playAccordage();
}

void FAccordeur::playAccordage() {
  if (m_pageEcoute) montreEcoute(false);
  m_timer1.stop();
  relâche();
  m_note = m_vt.guitare().corde[static_cast<std::size_t>(std::clamp(m_corde, 1, 7))];
  m_roue->setCorde(m_corde);
  m_roue->setAllumée(true);
  m_timer1.start();
  drawAccordeur();
  texteCorde();
  Timer1_Timer();
}

void FAccordeur::Timer1_Timer() {
  if (m_note < 0) return;
  m_vt.son().midiNoteOffGlobal(m_note);
  m_vt.son().midiNoteOnGlobal(m_note);
}

void FAccordeur::btnStop_Click() {
  m_timer1.stop();
  relâche();
  m_roue->setAllumée(false);
  texteRepos();
}

void FAccordeur::relâche() {
  if (m_note < 0) return;
  m_vt.son().midiNoteOffGlobal(m_note);
  m_note = -1;
}

void FAccordeur::drawRoue() {
  m_roue->setCorde(m_corde);
  m_roue->update();
}

void FAccordeur::drawAccordeur() {
  m_vt.setMancheContenu(kMancheAccordeur);
  m_vt.clearManche();
  const LectureAccordeur& l = m_écoute->lecture();
  m_cordeVue = m_pageEcoute ? (l.voisée ? l.note.corde : -1) : m_corde;
  if (m_cordeVue > 0) m_vt.drawRond(0, m_cordeVue, kJaune);
}

// ---- Texts of the box under the wheel ----------------------------------------------------

// French puts a space before the colon, English does not.
QString FAccordeur::deuxPoints() const {
  return m_vt.setLang() == 0 ? QStringLiteral(" : ") : QStringLiteral(": ");
}

void FAccordeur::texteRepos() {
  m_txt->setText(m_vt.loadString(1603));
}

void FAccordeur::texteCorde() {
  const int note = m_vt.guitare().corde[static_cast<std::size_t>(std::clamp(m_corde, 1, 7))];
  const QLocale langue(m_vt.setLang() == 0 ? QLocale::French : QLocale::English);
  m_txt->setText(m_vt.loadString(1604) + QString::number(m_corde) + deuxPoints() +
                 m_écoute->nomNote(note) + QStringLiteral(" — ") +
                 langue.toString(hzDeMidi(note), 'f', 2) + QStringLiteral(" Hz"));
}

void FAccordeur::texteEcoute() {
  if (!m_pageEcoute) return;
  const LectureAccordeur& l = m_écoute->lecture();
  if (!l.voisée || l.note.corde <= 0) {
    switch (m_écoute->entree().etat()) {
      case EntreeAudio::Etat::SansPeripherique:
        m_txt->setText(m_vt.loadString(1608));
        break;
      case EntreeAudio::Etat::EnErreur:
        m_txt->setText(m_vt.loadString(1609) + m_écoute->entree().erreur());
        break;
      default:
        m_txt->setText(m_vt.loadString(1607));
        break;
    }
    return;
  }
  const QLocale langue(m_vt.setLang() == 0 ? QLocale::French : QLocale::English);
  const double c = l.note.centsCorde;
  const QString cents = (c > 0 ? QStringLiteral("+") : QString()) + langue.toString(c, 'f', 1);
  m_txt->setText(m_vt.loadString(1604) + QString::number(l.note.corde) + deuxPoints() + cents +
                 QStringLiteral(" cents — ") + langue.toString(l.hz, 'f', 2) +
                 QStringLiteral(" Hz (") + m_écoute->nomNote(l.note.midi) + QLatin1Char(')'));
}

// ---- The Listen page ---------------------------------------------------------------------

void FAccordeur::montreEcoute(bool écoute) {
  if (écoute == m_pageEcoute) return;
  m_pageEcoute = écoute;
  if (écoute) {
    // The microphone would hear the reference note.
    m_timer1.stop();
    relâche();
    m_roue->setAllumée(false);
    m_roue->hide();
    m_écoute->show();
    m_écoute->demarre();
    texteEcoute();
  } else {
    m_écoute->arrete();
    m_écoute->hide();
    m_roue->show();
    texteRepos();
  }
  basculeImages();
  drawAccordeur();
}

// ---- Events ------------------------------------------------------------------------------

void FAccordeur::paintEvent(QPaintEvent*) {
  QPainter p(this);
  if (m_fond.isNull()) {
    p.fillRect(rect(), kSiège);
  } else {
    p.drawPixmap(0, 0, m_fond);
  }
}

void FAccordeur::keyPressEvent(QKeyEvent* e) {
  const int k = e->key();
  if (k >= Qt::Key_1 && k <= Qt::Key_7) {
    choisitCorde(k - Qt::Key_0);
  } else if (k == Qt::Key_Up || k == Qt::Key_Down) {
    const int c = std::clamp(m_corde + (k == Qt::Key_Down ? 1 : -1), 1, m_roue->nbrCordes());
    if (c != m_corde || !m_timer1.isActive()) choisitCorde(c);
  } else if (k == Qt::Key_Space) {
    if (m_timer1.isActive()) {
      btnStop_Click();
    } else {
      playAccordage();
    }
  } else if (k == Qt::Key_Escape) {
    btnStop_Click();
  } else if (k == Qt::Key_L) {
    montreEcoute(!m_pageEcoute);
  } else {
    QWidget::keyPressEvent(e);
  }
}

void FAccordeur::mouseMoveEvent(QMouseEvent* e) {
  for (VTPictureButton* b : {m_btnStop, m_btnOptions, m_btnExit, m_optEcoute})
    b->MouvementSouris(b->mapFrom(this, e->position().toPoint()));
  QWidget::mouseMoveEvent(e);
}

void FAccordeur::closeEvent(QCloseEvent* e) {
  m_timer1.stop();
  relâche();
  m_écoute->arrete();
  e->accept();
}

}  // namespace vt
