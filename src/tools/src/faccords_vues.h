// The two pictures of the chord dictionary's window: the diagram of the shown
// fingering and the construction under it.
#pragma once

#include <QPainter>
#include <QWidget>

#include "faccords_dessin.h"

namespace vt {

class DiagrammeFAccords : public QWidget {
 public:
  explicit DiagrammeFAccords(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
  }
  void setFiche(const FicheAccord& f) {
    m_fiche = f;
    update();
  }
  const FicheAccord& fiche() const { return m_fiche; }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter g(this);
    dessineFiche(g, QRectF(rect()).adjusted(4, 2, -4, -2), m_fiche, couleursÉcran());
  }

 private:
  FicheAccord m_fiche;
};

class ConstructionFAccords : public QWidget {
 public:
  explicit ConstructionFAccords(QWidget* parent) : QWidget(parent) {}
  void setTons(const QStringList& degrés, const QStringList& notes) {
    m_degrés = degrés;
    m_notes = notes;
    update();
  }
  const QStringList& degrés() const { return m_degrés; }
  const QStringList& notes() const { return m_notes; }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter g(this);
    dessineConstruction(g, QRectF(rect()), m_degrés, m_notes, couleursÉcran());
  }

 private:
  QStringList m_degrés;
  QStringList m_notes;
};

}  // namespace vt
