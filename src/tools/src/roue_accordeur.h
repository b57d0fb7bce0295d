// btnRoue, the tuner's wheel: the skin's picture of the wheel with the chosen
// string's lamp lit, the centre lamp lit while a string sounds, and the note
// of each open string written beside its lamp. A click on a string's lamp
// chooses it, a click on the centre lamp starts or stops the sound, and a
// drag turns the wheel: every 100 twips of vertical travel from the last
// anchor is one string, down for the higher numbers.
#pragma once

#include <QPixmap>
#include <QPointF>
#include <QStringList>
#include <QWidget>
#include <array>

namespace vt {

class RoueAccordeur : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kCôté = 220;
  // 100 twips at 15 twips to the pixel.
  static constexpr double kPasGlisse = 100.0 / 15.0;

  explicit RoueAccordeur(QWidget* parent = nullptr);

  // The wheel for string 1 to 7 (skin pictures 29 down to 23) and the centre
  // lamp at rest and lit (6 and 5).
  void setImages(const std::array<QPixmap, 8>& roues, const QPixmap& lampeÉteinte,
                 const QPixmap& lampeAllumée);
  // The open strings' names, string 1 first; their count is the number of
  // strings that can be chosen.
  void setNoms(const QStringList& noms);
  int nbrCordes() const { return static_cast<int>(m_noms.size()); }
  void setCorde(int corde);
  int corde() const { return m_corde; }
  void setAllumée(bool allumée);
  bool allumée() const { return m_allumé; }

  // Where the lamp of string `n` and its label stand in the wheel.
  static QPointF centreLampe(int n);
  static QPointF placeNom(int n);

 signals:
  // A string chosen by a click on its lamp.
  void cordeCliquee(int corde);
  // The centre lamp clicked.
  void centreClique();
  // One step of a drag: +1 for the next string (the pointer went down), -1.
  void tourne(int sens);

 protected:
  void paintEvent(QPaintEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;

 private:
  int lampeSous(const QPointF& p) const;

  std::array<QPixmap, 8> m_roues;  // 1..7
  QPixmap m_lampeÉteinte, m_lampeAllumée;
  QStringList m_noms;
  int m_corde = 1;
  bool m_allumé = false;
  double m_ancre = 0;
  bool m_tourné = false;
  bool m_appui = false;
};

}  // namespace vt
