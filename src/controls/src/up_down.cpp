#include "controls/up_down.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

namespace vt {

namespace {
// Held down, the value first waits, then runs.
constexpr int kAttente = 400;
constexpr int kCadence = 90;
}  // namespace

VTUpDn::VTUpDn(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::WheelFocus);
  connect(&m_répétition, &QTimer::timeout, this, [this] {
    m_répétition.setInterval(kCadence);
    pas();
  });
}

void VTUpDn::setPictureOff(const QPixmap& p) {
  m_off = p;
  update();
  updateGeometry();
}

void VTUpDn::setPictureDn(const QPixmap& p) {
  m_dn = p;
  update();
}

void VTUpDn::setPictureUp(const QPixmap& p) {
  m_up = p;
  update();
}

void VTUpDn::setMin(int v) {
  m_min = v;
  if (m_max < m_min) m_max = m_min;
  setValue(m_value);
}

void VTUpDn::setMax(int v) {
  m_max = v;
  if (m_min > m_max) m_min = m_max;
  setValue(m_value);
}

void VTUpDn::setValue(int v) {
  const int borné = std::clamp(v, m_min, m_max);
  if (borné == m_value) return;
  m_value = borné;
  emit Change(m_value);
}

QSize VTUpDn::sizeHint() const {
  if (!m_off.isNull()) return m_off.deviceIndependentSize().toSize();
  return {22, 40};
}

void VTUpDn::montre(const QPixmap* p) {
  m_montrée = p;
  update();
}

void VTUpDn::pas() {
  setValue(m_value + m_sens);
}

void VTUpDn::mousePressEvent(QMouseEvent* e) {
  if (e->button() != Qt::LeftButton) return;
  const bool haut = e->position().y() < m_milieu;
  m_sens = haut ? 1 : -1;
  montre(haut ? &m_up : &m_dn);
  pas();
  m_répétition.start(kAttente);
}

void VTUpDn::mouseReleaseEvent(QMouseEvent* e) {
  if (e->button() != Qt::LeftButton) return;
  m_répétition.stop();
  m_sens = 0;
  montre(&m_off);
}

void VTUpDn::wheelEvent(QWheelEvent* e) {
  const int crans = e->angleDelta().y() / 120;
  if (crans != 0) setValue(m_value + crans);
  e->accept();
}

void VTUpDn::keyPressEvent(QKeyEvent* e) {
  switch (e->key()) {
    case Qt::Key_Up:
      setValue(m_value + 1);
      break;
    case Qt::Key_Down:
      setValue(m_value - 1);
      break;
    default:
      QWidget::keyPressEvent(e);
  }
}

void VTUpDn::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const QPixmap& image = m_montrée->isNull() ? m_off : *m_montrée;
  if (!image.isNull()) p.drawPixmap(0, 0, image);
}

}  // namespace vt
