// The editable chord diagram of FTabAccord: it draws the working diagram and
// tells which string and row a click fell on.
#pragma once

#include <QWidget>

#include "diagramme_accord.h"

namespace vt {

class PicAccord : public QWidget {
  Q_OBJECT

 public:
  explicit PicAccord(QWidget* parent = nullptr);

  void setDiagramme(const Diagramme& d, int premiereCase);
  // The diagram's drawing area inside the widget.
  QRectF zone() const;
  // Where a string's row lies on screen (row 0 above the nut).
  QPoint point(int corde, int rang) const;

  QSize sizeHint() const override { return {220, 260}; }

 signals:
  void caseCliquee(int corde, int rang);

 protected:
  void paintEvent(QPaintEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;

 private:
  Diagramme m_d;
  int m_premiereCase = 1;
};

}  // namespace vt
