// What the options pages share: sliders with their value, groups of options.
#include <QGridLayout>
#include <QLabel>
#include <QSlider>
#include <algorithm>
#include <cstdint>

#include "options_pages.h"

namespace vt {

QColor couleurRéglage(lng valeur) {
  const auto v = static_cast<std::uint32_t>(valeur);
  return QColor(static_cast<int>(v & 0xFF), static_cast<int>((v >> 8) & 0xFF),
                static_cast<int>((v >> 16) & 0xFF));
}

lng valeurCouleur(const QColor& c) {
  return static_cast<lng>(c.red() | (c.green() << 8) | (c.blue() << 16));
}

Curseur ajouteCurseur(QWidget* parent, QGridLayout* grille, int rangée, const char* nom, int min,
                      int max) {
  Curseur c;
  c.libellé = new QLabel(parent);
  c.sld = new QSlider(Qt::Horizontal, parent);
  c.sld->setObjectName(QString::fromUtf8(nom));
  c.sld->setRange(min, max);
  c.sld->setMinimumWidth(180);
  c.valeur = new QLabel(parent);
  // Wide enough for the largest value, so that the slider does not jump.
  c.valeur->setMinimumWidth(c.valeur->fontMetrics().horizontalAdvance(QString::number(max)) + 6);
  c.valeur->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  c.libellé->setBuddy(c.sld);
  QLabel* valeur = c.valeur;
  QObject::connect(c.sld, &QSlider::valueChanged, valeur,
                   [valeur](int v) { valeur->setText(QString::number(v)); });
  valeur->setText(QString::number(c.sld->value()));
  grille->addWidget(c.libellé, rangée, 0);
  grille->addWidget(c.sld, rangée, 1);
  grille->addWidget(c.valeur, rangée, 2);
  return c;
}

int indexCoché(const QButtonGroup* groupe) {
  return groupe->checkedId();
}

void coche(QButtonGroup* groupe, int index) {
  const QList<QAbstractButton*> boutons = groupe->buttons();
  if (boutons.isEmpty()) return;
  int bas = groupe->id(boutons.front());
  int haut = bas;
  for (QAbstractButton* b : boutons) {
    bas = std::min(bas, groupe->id(b));
    haut = std::max(haut, groupe->id(b));
  }
  if (QAbstractButton* b = groupe->button(std::clamp(index, bas, haut))) b->setChecked(true);
}

}  // namespace vt
