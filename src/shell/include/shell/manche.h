// The fretboard strip `picManche` at the bottom of the main window, with its
// scroll bar `hsbManche`. The board is drawn once per geometry into a kept
// picture; the dots the tools and the mouse put on it are drawn over a copy of
// that picture, so `clearManche` is a copy and nothing else.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

#include "shell/manche_geometry.h"

class QPainter;
class QScrollBar;

namespace vt {

// What the board looks like.
struct AspectManche {
  int setManche = 0;  // 0 the skin's wood, 1 black, 2 white
  bool gaucher = false;
  int nbrCordes = 6;
  QImage fond;  // the skin picture "manchefond", tiled for look 0
};

// The dot colours of drawRond.
inline constexpr int kRondBleu = 1;
inline constexpr int kRondRouge = 2;
inline constexpr int kRondJaune = 3;

// Draws the board on any painter whose unit is the screen pixel (15 twips),
// over `largeur` pixels; `offset` is the horizontal shift in twips. Tools use
// it to put the board on a picture or, with a scaled painter, on paper.
void drawManche(QPainter& p, int largeur, const AspectManche& a, double offset);

// A dot at a fret and string, in the look's way: a sprite on the wood, a
// circle on black or white.
void drawRond(QPainter& p, const AspectManche& a, const manche::Vue& v, int c, int s, int couleur);

class Manche : public QWidget {
  Q_OBJECT

 public:
  explicit Manche(QWidget* parent = nullptr);

  const AspectManche& aspect() const { return m_aspect; }
  // Takes effect at the next updateManche.
  void setAspect(const AspectManche& a) { m_aspect = a; }
  manche::Vue vue() const;

  // Sizes the strip for the instrument and draws the board again.
  void updateManche();
  // Wipes the dots; the board stays.
  void clearManche();
  void drawRond(int c, int s, int couleur);
  // A short text centred on a fret and string.
  void printManche(int c, int s, const QString& texte);

  QScrollBar* hsbManche() const { return m_hsb; }
  // What the strip shows now: the board and its dots.
  const QImage& image() const { return m_image; }
  // The height of the board in pixels, without the scroll bar.
  int hauteurBoardPixels() const;

 signals:
  // The pointer over the board, at a fret and a string (which may lie off
  // the strings), with the buttons held.
  void survol(int c, int s, Qt::MouseButtons boutons);
  void appui(int c, int s, Qt::MouseButton bouton);
  void relache(Qt::MouseButton bouton);
  void sortie();
  void entree();
  // The strip changed size or was scrolled: its board has been drawn again.
  void redessine();

 protected:
  void paintEvent(QPaintEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void enterEvent(QEnterEvent* e) override;
  void leaveEvent(QEvent* e) override;

 private:
  void dessineFond();
  void placeDéfilement();
  std::pair<int, int> position(const QPointF& p) const;

  AspectManche m_aspect;
  QScrollBar* m_hsb;
  QImage m_fond;   // the board alone
  QImage m_image;  // the board and the dots
};

}  // namespace vt
