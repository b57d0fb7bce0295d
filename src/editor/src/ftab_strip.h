// picTab, the editor's drawing surface: a widget that shows the strip's
// picture and hands its keys, mouse and size to the editor.
#pragma once

#include <QScrollArea>
#include <QWidget>

namespace vt {

class FTab;
class PainterSurface;

class PicTab : public QWidget {
  Q_OBJECT

 public:
  PicTab(FTab& ftab, const PainterSurface& surface, QWidget* parent);
  // Room for the rulers, the tablature and the staff of the default layout, and
  // five bars of eighths.
  QSize sizeHint() const override { return {1060, 470}; }
  QSize minimumSizeHint() const override { return {120, 80}; }

 protected:
  void paintEvent(QPaintEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void keyReleaseEvent(QKeyEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;

 private:
  FTab& m_ftab;
  const PainterSurface& m_surface;
};

// The area the strip scrolls up and down in when the window is too short for
// it. It asks for the strip's own size: a scroll area would ask for less.
class ZoneBande : public QScrollArea {
 public:
  using QScrollArea::QScrollArea;
  QSize sizeHint() const override {
    return widget() != nullptr ? widget()->sizeHint() : QScrollArea::sizeHint();
  }
};

}  // namespace vt
