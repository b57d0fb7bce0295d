#include "tools/fharmony.h"

#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QPainter>

#include "controls/picture_button.h"
#include "habillage_outil.h"
#include "music/gamme.h"
#include "shell/manche.h"
#include "shell/vt.h"
#include "tools/fgammes.h"

namespace vt {

namespace {

constexpr int kImageFond = 0;  // "harmony"
// The switch: first position identification, second harmonisation.
constexpr std::array<int, 2> kBascule = {33, 32};
constexpr BoutonSkin kExit{78, 77, "exit00"};
constexpr std::array<int, 2> kLégendes = {1802, 1803};
constexpr std::array<int, 2> kAides = {1801, 1804};

constexpr int kLargeur = 474;
constexpr int kHauteur = 369;

// The clear button has no picture in the skin: a rim of amber under the mouse.
QPixmap cadreBouton(QSize taille, bool appuyé) {
  QPixmap p(taille);
  p.fill(Qt::transparent);
  QPainter peintre(&p);
  peintre.setRenderHint(QPainter::Antialiasing, true);
  peintre.setPen(QPen(kAmbre, 1.5));
  peintre.setBrush(appuyé ? QColor(0xFF, 0xB3, 0x47, 60) : QColor(0xFF, 0xB3, 0x47, 25));
  peintre.drawRoundedRect(QRectF(p.rect()).adjusted(1, 1, -1, -1), 8, 8);
  return p;
}

}  // namespace

FHarmony::FHarmony(VT& vt) : m_vt(vt) {
  setFixedSize(kLargeur, kHauteur);
  setMouseTracking(true);

  m_btnIdType = créeBoutonSkin(this, {24, 24, 56, 28});
  m_btnIdType->setObjectName(QStringLiteral("optIdType"));
  m_légende = créeBoutonSkin(this, {86, 6, 118, 56});
  m_légende->setObjectName(QStringLiteral("optIdTypeCaption"));
  m_légende->setForeColor(kCrème);
  m_légende->setFontBold(true);
  m_légende->setFontSize(7);
  m_légende->setFont3D(true);
  for (VTPictureButton* b : {m_btnIdType, m_légende})
    connect(b, &VTPictureButton::Click, this, [this] { setOptIdType(1 - m_optIdType); });

  m_txtHowto = new QLabel(this);
  m_txtHowto->setObjectName(QStringLiteral("txtHowto"));
  m_txtHowto->setGeometry(22, 74, 168, 212);
  m_txtHowto->setWordWrap(true);
  m_txtHowto->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  habilleTexte(m_txtHowto);

  m_labRésultats = new QLabel(this);
  m_labRésultats->setGeometry(218, 18, 236, 18);
  habilleTexte(m_labRésultats, true);
  m_lstGammes = new QListWidget(this);
  m_lstGammes->setObjectName(QStringLiteral("lstGammes"));
  m_lstGammes->setGeometry(214, 38, 242, 252);
  habilleListe(m_lstGammes);
  // A double-click on a line, or Return on it.
  connect(m_lstGammes, &QListWidget::itemActivated, this,
          [this](QListWidgetItem* item) { lstGammes_DblClick(m_lstGammes->row(item)); });

  m_btnEffacer = créeBoutonSkin(this, {16, 312, 180, 48});
  m_btnEffacer->setObjectName(QStringLiteral("btnEffacer"));
  m_btnEffacer->setForeColor(kCrème);
  m_btnEffacer->setFontBold(true);
  m_btnEffacer->setFontSize(10);
  m_btnEffacer->setFont3D(true);
  m_btnEffacer->setPictureOver(cadreBouton(m_btnEffacer->size(), false));
  m_btnEffacer->setPictureOn(cadreBouton(m_btnEffacer->size(), true));
  connect(m_btnEffacer, &VTPictureButton::Click, this, &FHarmony::effaceNotes);
  m_btnExit = créeBoutonSkin(this, {410, 312, 48, 48});
  m_btnExit->setObjectName(QStringLiteral("btnExit"));
  connect(m_btnExit, &VTPictureButton::Click, this, &QWidget::close);

  if (QMdiArea* mdi = vt.mdiArea()) {
    // Back in front, the window takes the strip again, so that clicks reach it.
    connect(mdi, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* w) {
      if (w && w->widget() == this && m_vt.mancheContenu() != 3) drawHarmony();
    });
  }

  load_skin();
  load_lang();
  drawHarmony();
  computeHarmony();
}

// ---- Language and skin -----------------------------------------------------------

void FHarmony::load_lang() {
  m_vt.setStatusText(0);
  setWindowTitle(m_vt.loadString(1800));
  m_labRésultats->setText(m_vt.loadString(1805));
  m_btnEffacer->setCaption(m_vt.loadString(1806));
  m_btnExit->setToolTip(m_vt.loadString(92));
  libellésMode();
}

void FHarmony::libellésMode() {
  const auto m = static_cast<std::size_t>(m_optIdType);
  m_légende->setCaption(m_vt.loadString(kLégendes[m]));
  m_btnIdType->setToolTip(m_vt.loadString(kLégendes[1 - m]));
  m_txtHowto->setText(m_vt.loadString(kAides[m]));
  m_btnIdType->setPictureOff(m_bascule[m]);
  m_btnIdType->setPictureOver(m_bascule[m]);
  m_btnIdType->setPictureOn(m_bascule[1 - m]);
}

void FHarmony::changeLanguage() {
  load_lang();
  drawHarmony();
  computeHarmony();
}

void FHarmony::load_skin() {
  m_fond = QPixmap(m_vt.skinFile(kImageFond));
  for (std::size_t i = 0; i < kBascule.size(); ++i)
    m_bascule[i] = QPixmap(m_vt.skinFile(kBascule[i]));
  habilleBouton(m_btnExit, m_vt, kExit);
  libellésMode();
  update();
}

// ---- The notes ---------------------------------------------------------------------

void FHarmony::receiveNote(int note) {
  if (!vt::receiveNote(m_tons, note)) return;
  drawHarmony();
  computeHarmony();
}

void FHarmony::effaceNotes() {
  m_tons = {};
  drawHarmony();
  computeHarmony();
}

void FHarmony::setOptIdType(int mode) {
  m_optIdType = mode == kHarmonisation ? kHarmonisation : kIdentification;
  libellésMode();
  computeHarmony();
}

void FHarmony::drawHarmony() {
  m_vt.setMancheContenu(3);
  m_vt.clearManche();
  for (const auto& [c, s] : casesHarmony(m_tons, m_vt.guitare()))
    m_vt.drawRond(c, s, kRondJaune);
}

void FHarmony::computeHarmony() {
  m_vt.showHourglass(true);
  m_lstGammes->clear();
  m_fichier = FichierGammes::load(
      QFile::encodeName(m_vt.strAppPath() + QString::fromUtf8(kFichierGammes)).toStdString());
  const int lang = m_vt.setLang();
  m_liste = vt::computeHarmony(m_fichier, m_tons, m_optIdType, m_vt.settings().setGAMMode, lang);
  for (const tHarmonie& h : m_liste)
    m_lstGammes->addItem(QString::fromStdString(ligneHarmonie(m_fichier, h, lang)));
  m_vt.showHourglass(false);
}

tHarmonie FHarmony::correspondance(int ligne) const {
  if (ligne < 0 || ligne >= static_cast<int>(m_liste.size())) return {};
  return m_liste[static_cast<std::size_t>(ligne)];
}

void FHarmony::lstGammes_DblClick(int ligne) {
  const tHarmonie h = correspondance(ligne);
  if (h.gamme < 1 || h.gamme > m_fichier.count()) return;
  const tGamme& g = m_fichier.gamme(h.gamme);
  const int tonalité = tonalitéDeTon(h.fondamentale);
  if (estAccord(g, m_vt.setLang())) {
    if (const auto type = typeAccordStandard(g.demitons)) {
      // The chord dictionary, when this build has one.
      if (!m_vt.fenetres().estDisponible(fen::FAccords)) return;
      m_vt.montreFenetre(fen::FAccords);
      if (auto* accords = m_vt.fenetres().interface<FenetreAccords>(fen::FAccords))
        accords->montreAccord(tonalité - 1, QString::fromStdString(*type));
      return;
    }
    // A chord the dictionary's list does not hold: its notes in the scale window.
  }
  if (auto* gammes = qobject_cast<FGammes*>(m_vt.montreFenetre(fen::FGammes)))
    gammes->montreGamme(h.gamme, tonalité);
}

// ---- Events ------------------------------------------------------------------------

void FHarmony::paintEvent(QPaintEvent*) {
  QPainter p(this);
  if (m_fond.isNull()) {
    p.fillRect(rect(), QColor(0x24, 0x1A, 0x13));
  } else {
    p.drawPixmap(0, 0, m_fond);
  }
}

void FHarmony::mouseMoveEvent(QMouseEvent* e) {
  for (VTPictureButton* b : {m_btnIdType, m_légende, m_btnEffacer, m_btnExit})
    b->MouvementSouris(b->mapFrom(this, e->position().toPoint()));
  QWidget::mouseMoveEvent(e);
}

}  // namespace vt
