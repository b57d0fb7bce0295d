#include "pic_accord.h"

#include <QMouseEvent>
#include <QPainter>

namespace vt {

PicAccord::PicAccord(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("picAccord"));
  setMinimumSize(sizeHint());
  setCursor(Qt::PointingHandCursor);
}

void PicAccord::setDiagramme(const Diagramme& d, int premiereCase) {
  m_d = d;
  m_premiereCase = premiereCase;
  update();
}

QRectF PicAccord::zone() const {
  return QRectF(rect()).adjusted(8, 8, -8, -8);
}

QPoint PicAccord::point(int corde, int rang) const {
  const GeometrieDiagramme geo(zone(), m_d.nbrCordes);
  return QPointF(geo.xCorde(corde), geo.yRang(rang)).toPoint();
}

void PicAccord::paintEvent(QPaintEvent*) {
  QPainter g(this);
  g.fillRect(rect(), Qt::white);
  g.setPen(palette().mid().color());
  g.drawRect(rect().adjusted(0, 0, -1, -1));
  dessineDiagramme(g, zone(), m_d, m_premiereCase);
}

void PicAccord::mousePressEvent(QMouseEvent* e) {
  int corde = 0;
  int rang = 0;
  if (e->button() == Qt::LeftButton &&
      GeometrieDiagramme(zone(), m_d.nbrCordes).touche(e->position(), corde, rang))
    emit caseCliquee(corde, rang);
}

}  // namespace vt
