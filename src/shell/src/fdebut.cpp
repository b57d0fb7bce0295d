#include "fdebut.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QRegularExpression>
#include <QWindow>

#include "controls/picture_button.h"
#include "shell/skin.h"
#include "shell/vt.h"

namespace vt {

namespace {

const QColor kCrème(0xF3, 0xE6, 0xC8);
const QColor kAmbre(0xFF, 0xB3, 0x47);

struct BoutonDébut {
  const QString* fenetre;  // nullptr: the help
  int image;               // skin picture at rest
  int surbrillance;        // skin picture under the mouse
  const char* animation;
  StringId légende;
  QPoint place;
  Qt::Key touche;
};

// Rows 0 to 6 follow the start table; row 7 is the help button.
const std::array<BoutonDébut, 8> kBoutons = {{
    {&fen::FAccords, 13, 80, "accord00", StringId{401}, {115, 100}, Qt::Key_F3},
    {&fen::FGammes, 12, 79, "gammes00", StringId{402}, {214, 100}, Qt::Key_F4},
    {&fen::FMultimedia, 15, 82, "pbplay00", StringId{403}, {214, 232}, Qt::Key_F5},
    {&fen::FAccordeur, 16, 83, "accordeur00", StringId{404}, {16, 232}, Qt::Key_F6},
    {&fen::FMetronome, 14, 81, "tictac00", StringId{406}, {115, 232}, Qt::Key_F7},
    {&fen::FTab, 17, 84, "tablature00", StringId{405}, {16, 100}, Qt::Key_F8},
    {&fen::FHarmony, 19, 20, "baguette00", StringId{410}, {313, 100}, Qt::Key_F9},
    {nullptr, 18, 85, "aide00", StringId{407}, {313, 232}, Qt::Key_F1},
}};

constexpr int kCôté = 88;
constexpr int kHauteurLégende = 18;

// The resting picture follows the last frame of its sequence: "accord0017"
// rests after frames 0 to 16.
int dernièreFrame(int imageRepos) {
  static const QRegularExpression chiffres(QStringLiteral("(\\d\\d)$"));
  const auto m = chiffres.match(skinName(imageRepos));
  return m.hasMatch() ? m.captured(1).toInt() - 1 : -1;
}

}  // namespace

FDebut::FDebut(VT& vt) : QDialog(&vt, Qt::Dialog | Qt::FramelessWindowHint), m_vt(vt) {
  setObjectName(QStringLiteral("FDebut"));
  setWindowTitle(vt.loadString(400));
  setFixedSize(417, 435);
  setMouseTracking(true);
  m_fond = QPixmap(vt.skinFile(skin::kFond));
  m_logo = QPixmap(vt.skinFile(skin::kLogo));

  for (std::size_t i = 0; i < kBoutons.size(); ++i) {
    const BoutonDébut& b = kBoutons[i];
    const bool disponible = !b.fenetre || vt.fenetres().estDisponible(*b.fenetre);
    auto* bouton = new VTPictureButton(this);
    bouton->setObjectName(QStringLiteral("btn%1").arg(i));
    bouton->setGeometry(QRect(b.place, QSize(kCôté, kCôté)));
    bouton->setPictureOff(QPixmap(vt.skinFile(b.image)));
    bouton->setPictureOver(QPixmap(vt.skinFile(b.surbrillance)));
    bouton->setPictureOn(QPixmap(vt.skinFile(b.surbrillance)));
    bouton->setAnimationFolder(vt.skinFolder());
    bouton->setAnimatedPicturePrefix(QString::fromUtf8(b.animation));
    bouton->setLastFrame(dernièreFrame(b.image));
    bouton->setAnimated(true);
    bouton->setToolTip(vt.loadString(b.légende) + QStringLiteral(" (") +
                       QKeySequence(b.touche).toString(QKeySequence::NativeText) +
                       QLatin1Char(')'));
    bouton->setEnabled(disponible);

    auto* légende = new VTPictureButton(this);
    légende->setObjectName(QStringLiteral("btnImage%1").arg(i));
    légende->setGeometry(b.place.x(), b.place.y() + 92, kCôté, kHauteurLégende);
    légende->setCaption(vt.loadString(b.légende));
    légende->setForeColor(kCrème);
    légende->setFontBold(true);
    légende->setFontSize(9);
    légende->setFont3D(true);
    légende->setEnabled(disponible);

    const int index = static_cast<int>(i);
    connect(bouton, &VTPictureButton::Click, this, [this, index] { choisit(index); });
    connect(légende, &VTPictureButton::Click, this, [this, index] { choisit(index); });
    m_btn[i] = bouton;
    m_btnImage[i] = légende;
  }

  m_chk = new QCheckBox(vt.loadString(409), this);
  m_chk->setObjectName(QStringLiteral("chkStartup"));
  m_chk->setGeometry(16, 402, 250, 22);
  m_chk->setChecked(vt.settings().setDémarrage != 0);
  QPalette pal = m_chk->palette();
  pal.setColor(QPalette::WindowText, kCrème);
  m_chk->setPalette(pal);

  m_échap = new QLabel(vt.loadString(408), this);
  m_échap->setGeometry(226, 402, 175, 22);
  m_échap->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  QPalette discret = m_échap->palette();
  discret.setColor(QPalette::WindowText, QColor(kCrème.red(), kCrème.green(), kCrème.blue(), 150));
  m_échap->setPalette(discret);
  QFont petit = m_échap->font();
  petit.setPointSizeF(petit.pointSizeF() * 0.9);
  m_échap->setFont(petit);
}

void FDebut::choisit(int i) {
  if (!m_btn.at(static_cast<std::size_t>(i))->isEnabled()) return;
  hide();
  if (i == 7) {
    m_vt.mnuAide_Click(0);
  } else {
    m_vt.mnuFen_Click(i);
  }
  accept();
}

void FDebut::done(int r) {
  m_vt.settings().setDémarrage = m_chk->isChecked() ? 1 : 0;
  QDialog::done(r);
}

void FDebut::showEvent(QShowEvent* e) {
  QDialog::showEvent(e);
  m_curseur.rendre();
}

void FDebut::paintEvent(QPaintEvent*) {
  QPainter p(this);
  if (m_fond.isNull()) {
    p.fillRect(rect(), QColor(0x2A, 0x1C, 0x12));
  } else {
    p.drawPixmap(0, 0, m_fond);
  }
  if (!m_logo.isNull()) p.drawPixmap(58, 12, m_logo);
}

void FDebut::keyPressEvent(QKeyEvent* e) {
  for (std::size_t i = 0; i < kBoutons.size(); ++i) {
    if (e->key() == kBoutons[i].touche && e->modifiers() == Qt::NoModifier) {
      choisit(static_cast<int>(i));
      return;
    }
  }
  // Escape closes the page through the dialog's own handling.
  QDialog::keyPressEvent(e);
}

void FDebut::mousePressEvent(QMouseEvent* e) {
  if (e->button() != Qt::LeftButton) return;
  // The page has no title bar: it is dragged by its surface.
  if (windowHandle() && windowHandle()->startSystemMove()) return;
  m_glisse = true;
  m_prise = e->globalPosition().toPoint() - frameGeometry().topLeft();
}

void FDebut::mouseMoveEvent(QMouseEvent* e) {
  if (m_glisse) {
    move(e->globalPosition().toPoint() - m_prise);
    return;
  }
  // A button gets no word when the mouse leaves it for the page: tell each.
  for (VTPictureButton* b : m_btn)
    b->MouvementSouris(b->mapFrom(this, e->position().toPoint()));
}

void FDebut::mouseReleaseEvent(QMouseEvent*) {
  m_glisse = false;
}

}  // namespace vt
