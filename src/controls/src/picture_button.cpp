#include "controls/picture_button.h"

#include <QEnterEvent>
#include <QFileInfo>
#include <QMouseEvent>
#include <QPainter>

namespace vt {

namespace {
// The shadow of a caption lies two pixels right of and below the text.
constexpr int kOmbre = 2;
constexpr int kIntervalleParDéfaut = 55;
}  // namespace

VTPictureButton::VTPictureButton(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setCursor(Qt::PointingHandCursor);
  m_timer.setInterval(kIntervalleParDéfaut);
  connect(&m_timer, &QTimer::timeout, this, &VTPictureButton::animationTick);
}

void VTPictureButton::setPictureOver(const QPixmap& p) {
  m_over = p;
  if (m_etat == Etat::Survol && !m_timer.isActive()) montre(Etat::Survol);
  updateGeometry();
}

void VTPictureButton::setPictureOff(const QPixmap& p) {
  m_off = p;
  if (m_etat == Etat::Repos) montre(Etat::Repos);
  updateGeometry();
}

void VTPictureButton::setPictureOn(const QPixmap& p) {
  m_on = p;
  if (m_etat == Etat::Appui) montre(Etat::Appui);
}

void VTPictureButton::setAnimatedPicturePrefix(const QString& prefixe) {
  m_prefixe = prefixe;
  m_frames.clear();
  m_frame = 0;
}

void VTPictureButton::setAnimationFolder(const QString& dossier) {
  m_dossier = dossier;
  m_frames.clear();
  m_frame = 0;
}

void VTPictureButton::setAnimated(bool animé) {
  m_animé = animé;
  if (!animé && m_timer.isActive()) {
    m_timer.stop();
    montre(m_etat);
  }
}

void VTPictureButton::setCaption(const QString& texte) {
  m_caption = texte;
  update();
}

void VTPictureButton::setForeColor(const QColor& c) {
  m_couleur = c;
  update();
}

void VTPictureButton::setFontBold(bool gras) {
  m_gras = gras;
  update();
}

void VTPictureButton::setFontSize(int points) {
  m_taille = points > 0 ? points : 1;
  update();
}

void VTPictureButton::setFont3D(bool relief) {
  m_relief = relief;
  update();
}

QSize VTPictureButton::sizeHint() const {
  if (!m_off.isNull()) return m_off.deviceIndependentSize().toSize();
  return {88, 18};
}

QString VTPictureButton::cheminFrame(int frame) const {
  // "accord00" and frame 5 make "accord0005.bmp".
  const QString numéro = (frame < 10 ? QStringLiteral("0") : QString()) + QString::number(frame);
  return m_dossier + m_prefixe + numéro + QStringLiteral(".bmp");
}

void VTPictureButton::animationTick() {
  if (m_prefixe.isEmpty()) return;
  const QString chemin = cheminFrame(m_frame);
  auto it = m_frames.find(chemin);
  if (it == m_frames.end()) {
    // A skin without frames simply has still buttons.
    if (!QFileInfo::exists(chemin)) return;
    QPixmap image(chemin);
    if (image.isNull()) return;
    it = m_frames.insert(chemin, image);
  }
  m_main = *it;
  update();
  ++m_frame;
  const bool passéLaDernière =
      m_dernière >= 0 ? m_frame > m_dernière : !QFileInfo::exists(cheminFrame(m_frame));
  if (passéLaDernière) m_frame = 0;
}

void VTPictureButton::montre(Etat etat) {
  m_etat = etat;
  switch (etat) {
    case Etat::Repos:
      m_main = m_off;
      break;
    case Etat::Survol:
      m_main = m_over.isNull() ? m_off : m_over;
      break;
    case Etat::Appui:
      m_main = m_on.isNull() ? (m_over.isNull() ? m_off : m_over) : m_on;
      break;
  }
  update();
}

void VTPictureButton::entre() {
  if (!isEnabled()) return;
  if (m_dedans) return;
  m_dedans = true;
  montre(Etat::Survol);
  if (m_animé && !m_prefixe.isEmpty()) m_timer.start();
}

void VTPictureButton::sort() {
  m_timer.stop();
  m_dedans = false;
  m_appuyé = false;
  m_frame = 0;
  montre(Etat::Repos);
  releaseMouse();
}

void VTPictureButton::MouvementSouris(const QPoint& position) {
  if (rect().contains(position)) {
    entre();
  } else if (m_dedans || m_etat != Etat::Repos) {
    sort();
  }
}

void VTPictureButton::mouseMoveEvent(QMouseEvent* e) {
  const QPoint p = e->position().toPoint();
  emit MouseMove(p);
  if (m_appuyé) {
    // While pressed, the button looks pressed only over itself.
    montre(rect().contains(p) ? Etat::Appui : Etat::Repos);
    return;
  }
  MouvementSouris(p);
}

void VTPictureButton::mousePressEvent(QMouseEvent* e) {
  if (e->button() != Qt::LeftButton || !isEnabled()) return;
  m_timer.stop();
  m_appuyé = true;
  montre(Etat::Appui);
}

void VTPictureButton::mouseReleaseEvent(QMouseEvent* e) {
  if (e->button() != Qt::LeftButton || !m_appuyé) return;
  m_appuyé = false;
  if (rect().contains(e->position().toPoint())) {
    montre(Etat::Survol);
    emit Click();
  } else {
    sort();
  }
}

void VTPictureButton::enterEvent(QEnterEvent* e) {
  QWidget::enterEvent(e);
  entre();
}

void VTPictureButton::leaveEvent(QEvent* e) {
  QWidget::leaveEvent(e);
  if (!m_appuyé) sort();
}

void VTPictureButton::changeEvent(QEvent* e) {
  QWidget::changeEvent(e);
  if (e->type() == QEvent::EnabledChange && !isEnabled()) sort();
}

void VTPictureButton::paintEvent(QPaintEvent*) {
  QPainter p(this);
  // A button whose window cannot be opened yet is shown faded.
  if (!isEnabled()) p.setOpacity(0.4);
  if (!m_main.isNull()) p.drawPixmap(0, 0, m_main);
  if (m_caption.isEmpty()) return;
  QFont f = font();
  f.setFamily(QStringLiteral("Arial"));
  f.setPointSize(m_taille);
  f.setBold(m_gras);
  p.setFont(f);
  const int drapeaux = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWordWrap;
  if (m_relief) {
    p.setPen(QColor(0, 0, 0, 200));
    p.drawText(rect().translated(kOmbre, kOmbre), drapeaux, m_caption);
  }
  p.setPen(m_couleur);
  p.drawText(rect(), drapeaux, m_caption);
}

}  // namespace vt
