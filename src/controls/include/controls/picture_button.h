// VTPictureButton: a button drawn only with pictures of the skin. At rest it
// shows PictureOff, under the mouse PictureOver (then, when Animated, the
// frames "<prefix>NN.bmp" of the skin folder in turn), pressed PictureOn. A
// caption may be drawn over the picture, with a shadow when Font3D is set.
#pragma once

#include <QColor>
#include <QHash>
#include <QPixmap>
#include <QString>
#include <QTimer>
#include <QWidget>

namespace vt {

class VTPictureButton : public QWidget {
  Q_OBJECT

 public:
  explicit VTPictureButton(QWidget* parent = nullptr);

  // The tooltip is the widget's own (toolTip, setToolTip).

  const QPixmap& PictureOver() const { return m_over; }
  void setPictureOver(const QPixmap& p);
  const QPixmap& PictureOff() const { return m_off; }
  void setPictureOff(const QPixmap& p);
  const QPixmap& PictureOn() const { return m_on; }
  void setPictureOn(const QPixmap& p);

  // The base name of the frames, such as "accord00"; empty for a still button.
  const QString& AnimatedPicturePrefix() const { return m_prefixe; }
  void setAnimatedPicturePrefix(const QString& prefixe);
  // The folder the frames are read from, ending with "/": the chosen skin's
  // own folder. Frames are never looked for in another skin.
  const QString& animationFolder() const { return m_dossier; }
  void setAnimationFolder(const QString& dossier);
  // The number of the last frame of the sequence; the frames after it are the
  // resting pictures. -1 (the default) runs every frame that exists.
  int lastFrame() const { return m_dernière; }
  void setLastFrame(int frame) { m_dernière = frame; }
  bool Animated() const { return m_animé; }
  void setAnimated(bool animé);
  // Milliseconds between two frames.
  int frameInterval() const { return m_timer.interval(); }
  void setFrameInterval(int ms) { m_timer.setInterval(ms); }

  const QString& Caption() const { return m_caption; }
  void setCaption(const QString& texte);
  QColor ForeColor() const { return m_couleur; }
  void setForeColor(const QColor& c);
  bool FontBold() const { return m_gras; }
  void setFontBold(bool gras);
  int FontSize() const { return m_taille; }
  void setFontSize(int points);
  bool Font3D() const { return m_relief; }
  void setFont3D(bool relief);

  // Called by the owner with the mouse position relative to this button, so
  // that the button drops its highlight when the mouse leaves it for the form.
  void MouvementSouris(const QPoint& position);

  // What the button shows now, and the state of its animation.
  const QPixmap& picMain() const { return m_main; }
  bool isAnimating() const { return m_timer.isActive(); }
  int currentFrame() const { return m_frame; }
  // One tick of the animation, as the timer does it.
  void animationTick();

  QSize sizeHint() const override;

 signals:
  void Click();
  void MouseMove(const QPoint& position);

 protected:
  void paintEvent(QPaintEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void enterEvent(QEnterEvent* e) override;
  void leaveEvent(QEvent* e) override;
  void changeEvent(QEvent* e) override;

 private:
  enum class Etat { Repos, Survol, Appui };
  void montre(Etat etat);
  void entre();
  void sort();
  QString cheminFrame(int frame) const;

  QPixmap m_over, m_off, m_on, m_main;
  QString m_prefixe, m_dossier, m_caption;
  QHash<QString, QPixmap> m_frames;  // frames read so far, by path
  QColor m_couleur = Qt::black;
  int m_taille = 9;
  bool m_gras = false;
  bool m_relief = false;
  bool m_animé = false;
  int m_dernière = -1;
  int m_frame = 0;
  bool m_dedans = false;
  bool m_appuyé = false;
  Etat m_etat = Etat::Repos;
  QTimer m_timer;
};

}  // namespace vt
