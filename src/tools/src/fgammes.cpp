#include "tools/fgammes.h"

#include <QCloseEvent>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QPrintDialog>
#include <algorithm>

#include "controls/picture_button.h"
#include "document/cp1252.h"
#include "fgammes_copier.h"
#include "habillage_outil.h"
#include "shell/manche.h"
#include "shell/vt.h"

namespace vt {

namespace {

constexpr int kImageFond = 11;  // "gammes"
constexpr int kToucheBlanche = 3;
constexpr int kToucheNoire = 4;
constexpr BoutonSkin kPlay{65, 64, nullptr};
constexpr BoutonSkin kCopier{69, 72, "copier00"};
constexpr BoutonSkin kImprimer{70, 73, "imprimer00"};
constexpr BoutonSkin kOptions{71, 74, "options00"};
constexpr BoutonSkin kExit{78, 77, "exit00"};

// The playing position that starts the silence, and the last one: the last
// note rings on through the ticks in between before everything is cut.
constexpr int kDébutSilence = 220;
constexpr int kFinSilence = 254;

constexpr int kLargeur = 474;
constexpr int kHauteur = 369;

QString versQt(const std::string& cp1252) {
  return QString::fromStdString(cp1252ToUtf8(cp1252));
}

}  // namespace

FGammes::FGammes(VT& vt) : m_vt(vt) {
  setFixedSize(kLargeur, kHauteur);
  setMouseTracking(true);
  m_fichier = FichierGammes::load(
      QFile::encodeName(vt.strAppPath() + QString::fromUtf8(kFichierGammes)).toStdString());

  // The lists sit inside the wells of the background, clear of their rims.
  m_gam = new QListWidget(this);
  m_gam->setObjectName(QStringLiteral("gam"));
  m_gam->setGeometry(18, 18, 276, 162);
  m_ton = new QListWidget(this);
  m_ton->setObjectName(QStringLiteral("ton"));
  m_ton->setGeometry(314, 18, 142, 162);
  // The twelve keys in two columns of six, all in sight.
  m_ton->setFlow(QListView::TopToBottom);
  m_ton->setWrapping(true);
  m_ton->setResizeMode(QListView::Adjust);
  m_ton->setGridSize(QSize(68, 25));
  m_ton->setUniformItemSizes(true);
  m_ton->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  m_ton->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  for (QListWidget* l : {m_gam, m_ton}) {
    habilleListe(l);
    connect(l, &QListWidget::currentRowChanged, this, [this] { updateGamme(); });
  }
  m_txtConst = new QLabel(this);
  m_txtConst->setObjectName(QStringLiteral("txtConst"));
  m_txtConst->setGeometry(20, 196, 434, 28);
  m_txtConst->setTextInteractionFlags(Qt::TextSelectableByMouse);
  habilleTexte(m_txtConst, true);

  m_btnPlay = créeBoutonSkin(this, {16, 312, 48, 48});
  m_btnCopier = créeBoutonSkin(this, {72, 312, 48, 48});
  m_btnImprimer = créeBoutonSkin(this, {128, 312, 48, 48});
  m_btnOptions = créeBoutonSkin(this, {354, 312, 48, 48});
  m_btnExit = créeBoutonSkin(this, {410, 312, 48, 48});
  m_btnOptions->setEnabled(vt.fenetres().estDisponible(fen::FOptions));
  connect(m_btnPlay, &VTPictureButton::Click, this, &FGammes::btnPlay_Click);
  connect(m_btnCopier, &VTPictureButton::Click, this, &FGammes::btnCopier_Click);
  connect(m_btnImprimer, &VTPictureButton::Click, this, &FGammes::btnImprimer_Click);
  connect(m_btnOptions, &VTPictureButton::Click, this, &FGammes::btnOptions_Click);
  connect(m_btnExit, &VTPictureButton::Click, this, &QWidget::close);

  connect(&m_timerGamme, &QTimer::timeout, this, &FGammes::timerGamme_Timer);
  m_dialogueImpression = [this](QPrinter& printer) {
    QPrintDialog dialogue(&printer, this);
    return dialogue.exec() == QDialog::Accepted;
  };
  m_execDialogue = [](QDialog& d) { d.exec(); };
  if (QMdiArea* mdi = vt.mdiArea()) {
    connect(mdi, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* w) {
      if (w && w->widget() == this) suitActivation();
    });
  }

  load_skin();
  load_lang();
}

FGammes::~FGammes() {
  arrêteLecture();
}

// ---- Language and skin -----------------------------------------------------------

void FGammes::load_lang() {
  m_vt.setStatusText(0);
  const int lang = m_vt.setLang();
  const QSignalBlocker bloqueGam(m_gam);
  const QSignalBlocker bloqueTon(m_ton);
  const int ligneGam = m_gam->currentRow();
  const int ligneTon = m_ton->currentRow();
  m_gam->clear();
  const int n = std::min(m_fichier.count(), kMaxGammesListe);
  for (int g = 1; g <= n; ++g)
    m_gam->addItem(versQt(nomGamme(m_fichier.gamme(g), lang)));
  m_ton->clear();
  for (int t = 1; t <= 12; ++t)
    m_ton->addItem(QString::fromStdString(nomTonalité(t, lang)));
  // The choice survives the change of language.
  if (ligneGam >= 0 && ligneGam < m_gam->count()) m_gam->setCurrentRow(ligneGam);
  if (ligneTon >= 0) m_ton->setCurrentRow(ligneTon);
  m_gam->setToolTip(m_vt.loadString(701));
  m_ton->setToolTip(m_vt.loadString(702));
  m_btnPlay->setToolTip(m_vt.loadString(709));
  m_btnCopier->setToolTip(m_vt.loadString(704));
  m_btnImprimer->setToolTip(m_vt.loadString(703));
  m_btnOptions->setToolTip(m_vt.loadString(710));
  m_btnExit->setToolTip(m_vt.loadString(92));
  setWindowTitle(m_vt.loadString(700));
}

void FGammes::changeLanguage() {
  load_lang();
  updateGamme();
}

void FGammes::load_skin() {
  m_fond = QPixmap(m_vt.skinFile(kImageFond));
  m_toucheBlanche = QPixmap(m_vt.skinFile(kToucheBlanche));
  m_toucheNoire = QPixmap(m_vt.skinFile(kToucheNoire));
  habilleBouton(m_btnPlay, m_vt, kPlay);
  habilleBouton(m_btnCopier, m_vt, kCopier);
  habilleBouton(m_btnImprimer, m_vt, kImprimer);
  habilleBouton(m_btnOptions, m_vt, kOptions);
  habilleBouton(m_btnExit, m_vt, kExit);
  update();
}

void FGammes::drawMancheContenu() {
  // The options may have changed how modes are laid out since the scale was read.
  if (aUneSélection() && m_modeChargé != m_vt.settings().setGAMMode) {
    updateGamme();
    return;
  }
  drawGam();
}

void FGammes::suitActivation() {
  if (aUneSélection() && m_vt.mancheContenu() != 1) {
    m_vt.clearManche();
    drawGam();
  }
}

// ---- The scale ---------------------------------------------------------------------

bool FGammes::aUneSélection() const {
  return m_gam->currentRow() >= 0 && m_ton->currentRow() >= 0;
}

void FGammes::updateGamme() {
  m_vt.showHourglass(true);
  if (!aUneSélection()) {
    m_vt.showHourglass(false);
    return;
  }
  const int lang = m_vt.setLang();
  const QString nomTon = m_ton->currentItem()->text();
  m_titre = QString::fromStdString(
      titreGamme(m_gam->currentItem()->text().toStdString(), nomTon.toStdString(), lang));
  m_notes = {};
  setWindowTitle(m_vt.loadString(700) + QStringLiteral(" - ") + m_titre);
  m_tonalité = 0;
  for (int t = 1; t <= 12; ++t)
    if (nomTon == QString::fromStdString(nomTonalité(t, lang))) m_tonalité = t;
  chargeGamme();
  m_vt.clearManche();
  drawGam();
  m_vt.showHourglass(false);
}

void FGammes::chargeGamme() {
  const int lang = m_vt.setLang();
  const QString nom = m_gam->currentItem()->text();
  // The first record of that name in the language; the list comes from the
  // same records, so there is one.
  for (const tGamme& g : m_fichier.gammes()) {
    if (versQt(nomGamme(g, lang)) == nom) {
      m_gamme = g;
      break;
    }
  }
  m_modeChargé = m_vt.settings().setGAMMode;
  if (m_tonalité < 1) return;
  m_notes = chargeNotesGamme(demitonsAffichés(m_gamme, m_modeChargé), m_tonalité);
}

bool FGammes::montreGamme(int gamme, int tonalité) {
  if (gamme < 1 || gamme > m_gam->count() || tonalité < 1 || tonalité > 12) return false;
  {
    const QSignalBlocker bloqueGam(m_gam);
    const QSignalBlocker bloqueTon(m_ton);
    m_gam->setCurrentRow(gamme - 1);
    m_ton->setCurrentRow(tonalité - 1);
  }
  m_gam->scrollToItem(m_gam->currentItem());
  m_ton->scrollToItem(m_ton->currentItem());
  updateGamme();
  return true;
}

// ---- Playing -----------------------------------------------------------------------

void FGammes::btnPlay_Click() {
  if (!aUneSélection() || m_tonalité < 1) return;
  m_timerGamme.stop();
  m_booEnLecture = false;
  toutesNotesOff(m_vt);
  m_booEnLecture = true;
  m_lecturePos = 0;
  m_derniereNote = -1;
  toutesNotesOff(m_vt);
  m_lecture = listeLecture(m_notes, m_tonalité);
  timerGamme_Timer();
  m_timerGamme.setInterval(std::max<int>(1, m_vt.settings().setGAMTimer));
  m_timerGamme.start();
}

void FGammes::timerGamme_Timer() {
  ++m_lecturePos;
  const int dernier = static_cast<int>(m_lecture.size());
  if (m_lecturePos == dernier + 1) m_lecturePos = kDébutSilence;
  if (m_lecturePos <= dernier) {
    // A note on silences the one before it.
    const int note = m_lecture[static_cast<std::size_t>(m_lecturePos - 1)];
    if (m_derniereNote >= 0) m_vt.son().midiNoteOffGlobal(m_derniereNote);
    m_vt.son().midiNoteOnGlobal(note);
    m_derniereNote = note;
  }
  if (m_lecturePos > kFinSilence) arrêteLecture();
}

void FGammes::arrêteLecture() {
  const bool jouait = m_booEnLecture || m_timerGamme.isActive();
  m_timerGamme.stop();
  m_booEnLecture = false;
  m_derniereNote = -1;
  if (jouait) toutesNotesOff(m_vt);
}

// ---- Buttons -----------------------------------------------------------------------

void FGammes::btnCopier_Click() {
  ouvreCopier(false);
}

void FGammes::btnImprimer_Click() {
  ouvreCopier(true);
}

void FGammes::ouvreCopier(bool imprimer) {
  FGammesCopier dialogue(
      m_vt, *this, imprimer ? FGammesCopier::Action::Imprimer : FGammesCopier::Action::Copier);
  dialogue.setPlage(m_caseMin, m_caseMax);
  m_execDialogue(dialogue);
  if (dialogue.result() != QDialog::Accepted) return;
  m_caseMin = dialogue.sldMin()->value();
  m_caseMax = dialogue.sldMax()->value();
}

void FGammes::btnOptions_Click() {
  m_vt.montreOptions(QStringLiteral("KeyGam"));
  updateGamme();
}

// ---- Events ------------------------------------------------------------------------

void FGammes::mouseMoveEvent(QMouseEvent* e) {
  // A button gets no word when the mouse leaves it for the window: tell each.
  for (VTPictureButton* b : {m_btnPlay, m_btnCopier, m_btnImprimer, m_btnOptions, m_btnExit})
    b->MouvementSouris(b->mapFrom(this, e->position().toPoint()));
  QWidget::mouseMoveEvent(e);
}

void FGammes::keyPressEvent(QKeyEvent* e) {
  // Return plays, from the lists too: they let it through.
  if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) {
    btnPlay_Click();
    return;
  }
  QWidget::keyPressEvent(e);
}

void FGammes::closeEvent(QCloseEvent* e) {
  arrêteLecture();
  QWidget::closeEvent(e);
}

}  // namespace vt
