// VTUpDn: a spin control drawn with three pictures of the skin. A press on the
// upper half (above Milieu) raises Value by one, a press on the lower half
// lowers it; held down, it repeats. Value always stays within Min and Max.
#pragma once

#include <QPixmap>
#include <QTimer>
#include <QWidget>

namespace vt {

class VTUpDn : public QWidget {
  Q_OBJECT

 public:
  explicit VTUpDn(QWidget* parent = nullptr);

  const QPixmap& PictureOff() const { return m_off; }
  void setPictureOff(const QPixmap& p);
  const QPixmap& PictureDn() const { return m_dn; }
  void setPictureDn(const QPixmap& p);
  const QPixmap& PictureUp() const { return m_up; }
  void setPictureUp(const QPixmap& p);

  // The height in pixels at which the two halves meet.
  int Milieu() const { return m_milieu; }
  void setMilieu(int y) { m_milieu = y; }

  int Min() const { return m_min; }
  void setMin(int v);
  int Max() const { return m_max; }
  void setMax(int v);
  int Value() const { return m_value; }
  // Held to Min..Max; emits Change when the value moves.
  void setValue(int v);

  // The picture shown now.
  const QPixmap& picture() const { return *m_montrée; }

  QSize sizeHint() const override;

 signals:
  void Change(int value);

 protected:
  void paintEvent(QPaintEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void wheelEvent(QWheelEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;

 private:
  void pas();
  void montre(const QPixmap* p);

  QPixmap m_off, m_dn, m_up;
  const QPixmap* m_montrée = &m_off;
  int m_milieu = 0;
  int m_min = 0;
  int m_max = 9;
  int m_value = 0;
  int m_sens = 0;  // +1 while the upper half is held, -1 the lower one
  QTimer m_répétition;
};

}  // namespace vt
