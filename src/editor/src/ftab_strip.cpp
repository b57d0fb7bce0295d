#include "ftab_strip.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>

#include "editor/ftab.h"
#include "render_qt/painter_surface.h"
#include "touche_placee.h"

namespace vt {

PicTab::PicTab(FTab& ftab, const PainterSurface& surface, QWidget* parent)
    : QWidget(parent), m_ftab(ftab), m_surface(surface) {
  setObjectName(QStringLiteral("picTab"));
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(false);
}

void PicTab::paintEvent(QPaintEvent* e) {
  // The picture is kept in pixels of the strip, one to one with the widget.
  QPainter p(this);
  p.drawImage(e->rect(), m_surface.image(), e->rect());
}

void PicTab::resizeEvent(QResizeEvent* e) {
  QWidget::resizeEvent(e);
  m_ftab.Form_Resize(e->size().width(), e->size().height());
}

void PicTab::keyPressEvent(QKeyEvent* e) {
  m_ftab.picTab_KeyDown(toucheDeLaPlace(e->key(), e->nativeScanCode()), e->modifiers(),
                        e->isAutoRepeat());
  e->accept();
}

void PicTab::keyReleaseEvent(QKeyEvent* e) {
  if (!e->isAutoRepeat())
    m_ftab.picTab_KeyUp(toucheDeLaPlace(e->key(), e->nativeScanCode()), e->modifiers());
  e->accept();
}

void PicTab::mousePressEvent(QMouseEvent* e) {
  setFocus(Qt::MouseFocusReason);
  m_ftab.picTab_MouseDown(e->position().x(), e->position().y(), e->button());
}

void PicTab::mouseMoveEvent(QMouseEvent* e) {
  m_ftab.picTab_MouseMove(e->position().x(), e->position().y(), e->buttons());
}

void PicTab::mouseReleaseEvent(QMouseEvent* e) {
  m_ftab.picTab_MouseUp(e->position().x(), e->position().y(), e->button());
}

}  // namespace vt
