// FAccords: the window, its controls on the skin, its texts and its events.
// The search and the drawing are in faccords_recherche.cpp, the commands in
// faccords_commandes.cpp.
#include "tools/faccords.h"

#include "habillage_outil.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPainter>
#include <QRegularExpression>
#include <QSlider>

#include "controls/picture_button.h"
#include "faccords_vues.h"
#include "habillage_outil.h"
#include "music/accord_types.h"
#include "shell/icones.h"
#include "shell/skin.h"
#include "shell/vt.h"

namespace vt {

namespace {

const QColor kCrème(0xF3, 0xE6, 0xC8);

// The background and the two positions of the mode switch.
constexpr int kImageFond = 7;
constexpr int kBasculeUsuels = 33;
constexpr int kBasculeCréer = 32;

struct BoutonFAccords {
  const char* nom;
  int repos;  // skin picture at rest, -1: drawn from the toolbar's pictures
  int survol;
  const char* animation;
  QRect place;
  int bulle;  // tooltip
};

const std::array<BoutonFAccords, 6> kBoutons = {{
    {"btnPlay", 65, 64, "", {16, 312, 48, 48}, 105},
    {"btnCopier", 69, 72, "copier00", {72, 312, 48, 48}, 104},
    {"btnImprimer", 70, 73, "imprimer00", {128, 312, 48, 48}, 103},
    {"btnToTab", -1, -1, "", {184, 312, 48, 48}, 106},
    {"btnOptions", 71, 74, "options00", {354, 312, 48, 48}, 107},
    {"btnExit", 78, 77, "exit00", {410, 312, 48, 48}, 108},
}};

// The resting picture follows the last frame of its sequence: "copier0017"
// rests after frames 0 to 16.
int dernièreFrame(int imageRepos) {
  static const QRegularExpression chiffres(QStringLiteral("(\\d\\d)$"));
  const auto m = chiffres.match(skinName(imageRepos));
  return m.hasMatch() ? m.captured(1).toInt() - 1 : -1;
}

// The tablature's picture from the toolbar, centred on a button's square.
QPixmap imageVersTab(bool survol) {
  QPixmap p(48, 48);
  p.fill(Qt::transparent);
  QPainter g(&p);
  g.setRenderHint(QPainter::SmoothPixmapTransform);
  const QIcon icône = icôneBouton(QStringLiteral("TABLATURE"), false);
  g.drawPixmap(QRect(6, 6, 36, 36),
               icône.pixmap(QSize(36, 36), 2.0, survol ? QIcon::Active : QIcon::Normal));
  return p;
}

// Lists and menus on the dark wells of the background.
const char* kStyle = R"(
QListWidget, QComboBox { background: rgba(0, 0, 0, 110); color: #F3E6C8; border: 1px solid #5a4636;
  font-size: 12px; }
QListWidget::item { padding: 0px 4px; }
QListWidget::item:selected, QComboBox QAbstractItemView::item:selected {
  background: #FFB347; color: #241A13; }
QComboBox QAbstractItemView { background: #2a1c12; color: #F3E6C8; }
QComboBox:disabled, QListWidget:disabled { color: #7d6f5c; }
QLabel { color: #F3E6C8; font-size: 11px; }
QSlider::groove:horizontal { height: 4px; background: #5a4636; border-radius: 2px; }
QSlider::handle:horizontal { width: 14px; margin: -6px 0; background: #FFB347; border-radius: 7px; }
)";

}  // namespace

FAccords::FAccords(VT& vt, QWidget* parent) : QWidget(parent), m_vt(vt) {
  setObjectName(QStringLiteral("FAccords"));
  setFixedSize(474, 369);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setStyleSheet(QString::fromLatin1(kStyle));
  m_tmrFinAccord.setSingleShot(true);
  m_tmrFinAccord.setInterval(2500);
  connect(&m_tmrFinAccord, &QTimer::timeout, this, &FAccords::tmrFinAccord_Timer);
  créeControles();
  // Another tool may change the instrument while this window waits behind
  // it: brought forward, the window searches again for the new one.
  if (QMdiArea* zone = vt.mdiArea()) {
    connect(zone, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* w) {
      if (w && w->widget() == this && accordageCourant() != m_accordage) drawAccord(false);
    });
  }
  load_skin();
  load_lang();
  drawAccord(false);
}

FAccords::~FAccords() = default;

void FAccords::créeControles() {
  m_lstTonalite = new QListWidget(this);
  m_lstTonalite->setObjectName(QStringLiteral("lstTonalite"));
  m_lstTonalite->setGeometry(12, 12, 80, 284);
  m_lstAccord0 = new QListWidget(this);
  m_lstAccord0->setObjectName(QStringLiteral("lstAccord0"));
  m_libelléBase = new QLabel(this);
  m_libelléBase->setGeometry(100, 10, 136, 16);
  m_libelléDegrés = new QLabel(this);
  m_libelléDegrés->setGeometry(100, 150, 136, 16);
  // The degree lists two by two; an unused one shows its degree in brackets.
  for (std::size_t i = 0; i < m_lstDegrés.size(); ++i) {
    const int x = 100 + static_cast<int>(i % 2) * 69;
    const int y = 170 + static_cast<int>(i / 2) * 31;
    m_lstDegrés[i] = new QComboBox(this);
    m_lstDegrés[i]->setObjectName(QStringLiteral("lstAccord%1").arg(i + 1));
    m_lstDegrés[i]->setGeometry(x, y, 67, 24);
    connect(m_lstDegrés[i], &QComboBox::currentIndexChanged, this, [this] { nouveau(); });
  }
  m_picImage = new DiagrammeFAccords(this);
  m_picImage->setObjectName(QStringLiteral("picImage"));
  m_picImage->setGeometry(244, 12, 218, 210);
  m_sldPositions = new QSlider(Qt::Horizontal, this);
  m_sldPositions->setObjectName(QStringLiteral("sldPositions"));
  m_sldPositions->setGeometry(248, 230, 210, 22);
  m_sldPositions->setRange(0, 0);
  m_sldPositions->setPageStep(1);
  m_txtConst = new ConstructionFAccords(this);
  m_txtConst->setObjectName(QStringLiteral("txtConst"));
  m_txtConst->setGeometry(244, 256, 218, 40);

  for (const BoutonFAccords& b : kBoutons) {
    auto* bouton = new VTPictureButton(this);
    bouton->setObjectName(QString::fromLatin1(b.nom));
    bouton->setGeometry(b.place);
    m_boutons.push_back(bouton);
  }
  m_optListe = new VTPictureButton(this);
  m_optListe->setObjectName(QStringLiteral("optListe"));
  m_optListe->setGeometry(254, 322, 56, 28);
  m_libelléMode = new QLabel(this);
  m_libelléMode->setGeometry(232, 351, 100, 14);
  m_libelléMode->setAlignment(Qt::AlignCenter);

  connect(m_lstTonalite, &QListWidget::currentRowChanged, this, [this] { nouveau(); });
  connect(m_lstAccord0, &QListWidget::currentRowChanged, this, [this](int row) {
    if (m_remplissage) return;
    (m_mode == 0 ? m_typeStandard : m_baseCréée) = row;
    if (m_mode == 1) {
      for (QComboBox* c : m_lstDegrés)
        c->setEnabled(!baseSansDegrés(row));
    }
    nouveau();
  });
  connect(m_sldPositions, &QSlider::valueChanged, this, [this] {
    if (!m_remplissage) drawAccord(false);
  });
  connect(m_optListe, &VTPictureButton::Click, this, [this] { optListe_Click(1 - m_mode); });
  const std::array<void (FAccords::*)(), 6> commandes = {
      &FAccords::btnPlay_Click,  &FAccords::btnCopier_Click,  &FAccords::btnImprimer_Click,
      &FAccords::btnToTab_Click, &FAccords::btnOptions_Click, nullptr};
  for (std::size_t i = 0; i < kBoutons.size(); ++i) {
    if (commandes[i]) {
      connect(m_boutons[i], &VTPictureButton::Click, this, commandes[i]);
    } else {
      connect(m_boutons[i], &VTPictureButton::Click, this, [this] { fermeOutil(this); });
    }
  }
}

VTPictureButton* FAccords::bouton(const QString& nom) const {
  for (VTPictureButton* b : m_boutons)
    if (b->objectName() == nom) return b;
  return nom == QLatin1String("optListe") ? m_optListe : nullptr;
}

// ---- Texts and pictures ---------------------------------------------------------

void FAccords::load_lang() {
  m_vt.setStatusText(0);
  setWindowTitle(m_vt.loadString(100));
  m_lstTonalite->setToolTip(m_vt.loadString(101));
  m_lstAccord0->setToolTip(m_vt.loadString(m_mode == 0 ? 102 : 113));
  m_libelléBase->setText(m_vt.loadString(113));
  m_libelléDegrés->setText(m_vt.loadString(114));
  m_sldPositions->setToolTip(m_vt.loadString(109));
  m_txtConst->setToolTip(m_vt.loadString(110));
  for (std::size_t i = 0; i < kBoutons.size(); ++i)
    m_boutons[i]->setToolTip(m_vt.loadString(kBoutons[i].bulle));
  m_optListe->setToolTip(m_vt.loadString(m_mode == 0 ? 112 : 111));
  m_libelléMode->setText(m_vt.loadString(m_mode == 0 ? 111 : 112));
  remplitListes();
}

void FAccords::changeLanguage() {
  load_lang();
  m_booNouveau = true;
  drawAccord(false);
}

void FAccords::remplitListes() {
  m_remplissage = true;
  const int tonalité = m_lstTonalite->currentRow();
  m_lstTonalite->clear();
  for (int h = 0; h < 12; ++h)
    m_lstTonalite->addItem(nomNote(h));
  m_lstTonalite->setCurrentRow(tonalité);

  m_lstAccord0->clear();
  if (m_mode == 0) {
    for (const TypeAccord& t : kTypesAccord)
      m_lstAccord0->addItem(QString::fromLatin1(t.affiché));
    m_lstAccord0->setGeometry(100, 12, 136, 284);
    m_lstAccord0->setCurrentRow(m_typeStandard);
  } else {
    for (const char* b : kBasesAccord)
      m_lstAccord0->addItem(QString::fromLatin1(b));
    m_lstAccord0->setGeometry(100, 28, 136, 118);
    m_lstAccord0->setCurrentRow(m_baseCréée);
  }
  for (std::size_t i = 0; i < m_lstDegrés.size(); ++i) {
    QComboBox* c = m_lstDegrés[i];
    const int choix = std::max(0, c->currentIndex());
    c->clear();
    for (int k = 0; k < static_cast<int>(kChoixDegré.size()); ++k)
      c->addItem(k == 0 ? QStringLiteral("(%1)").arg(kDegrésAccord[i])
                        : QString::fromStdString(entréeDegré(kDegrésAccord[i], k)));
    c->setCurrentIndex(choix);
    c->setToolTip(m_vt.loadString(114) + QStringLiteral(" : ") + QString::number(kDegrésAccord[i]));
    c->setVisible(m_mode == 1);
    c->setEnabled(!baseSansDegrés(m_baseCréée));
  }
  m_libelléBase->setVisible(m_mode == 1);
  m_libelléDegrés->setVisible(m_mode == 1);
  m_remplissage = false;
}

void FAccords::load_skin() {
  m_fond = QPixmap(m_vt.skinFile(kImageFond));
  for (std::size_t i = 0; i < kBoutons.size(); ++i) {
    const BoutonFAccords& b = kBoutons[i];
    VTPictureButton* bouton = m_boutons[i];
    if (b.repos < 0) {
      bouton->setPictureOff(imageVersTab(false));
      bouton->setPictureOver(imageVersTab(true));
      bouton->setPictureOn(imageVersTab(true));
      continue;
    }
    bouton->setPictureOff(QPixmap(m_vt.skinFile(b.repos)));
    bouton->setPictureOver(QPixmap(m_vt.skinFile(b.survol)));
    bouton->setPictureOn(QPixmap(m_vt.skinFile(b.survol)));
    bouton->setAnimationFolder(m_vt.skinFolder());
    bouton->setAnimatedPicturePrefix(QString::fromLatin1(b.animation));
    bouton->setLastFrame(dernièreFrame(b.repos));
    bouton->setAnimated(b.animation[0] != '\0');
  }
  const QPixmap bascule(m_vt.skinFile(m_mode == 0 ? kBasculeUsuels : kBasculeCréer));
  m_optListe->setPictureOff(bascule);
  m_optListe->setPictureOver(bascule);
  m_optListe->setPictureOn(bascule);
  update();
}

// ---- Events -------------------------------------------------------------------

void FAccords::paintEvent(QPaintEvent*) {
  QPainter p(this);
  if (m_fond.isNull()) {
    p.fillRect(rect(), QColor(0x2A, 0x1C, 0x12));
  } else {
    p.drawPixmap(0, 0, m_fond);
  }
}

void FAccords::keyPressEvent(QKeyEvent* e) {
  if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) {
    btnPlay_Click();
    return;
  }
  QWidget::keyPressEvent(e);
}

void FAccords::mouseMoveEvent(QMouseEvent* e) {
  // A button gets no word when the mouse leaves it for the window: tell each.
  for (VTPictureButton* b : m_boutons)
    b->MouvementSouris(b->mapFrom(this, e->position().toPoint()));
  QWidget::mouseMoveEvent(e);
}

void FAccords::closeEvent(QCloseEvent* e) {
  if (m_tmrFinAccord.isActive()) tmrFinAccord_Timer();
  QWidget::closeEvent(e);
}

void FAccords::optListe_Click(int mode) {
  if (mode != 0 && mode != 1) return;
  m_mode = mode;
  load_skin();
  load_lang();
  nouveau();
}

void FAccords::nouveau() {
  if (m_remplissage) return;
  m_booNouveau = true;
  drawAccord(false);
}

QString FAccords::nomNote(int hauteur) const {
  return m_vt.loadString(2010 + ((hauteur % 12) + 12) % 12);
}

}  // namespace vt
