#include "habillage.h"

#include <QFile>

#include "controls/picture_button.h"
#include "shell/vt.h"

namespace vt::habillage {

QPixmap image(const VT& vt, int index) {
  const QString chemin = vt.skinFile(index);
  return QFile::exists(chemin) ? QPixmap(chemin) : QPixmap();
}

VTPictureButton* bouton(QWidget* parent, const QString& nom, const QRect& boîte) {
  auto* b = new VTPictureButton(parent);
  b->setObjectName(nom);
  b->setGeometry(boîte);
  return b;
}

void habille(VTPictureButton* b, const VT& vt, int repos, int survol, int appui,
             const QString& animation, int dernièreFrame) {
  b->setPictureOff(image(vt, repos));
  b->setPictureOver(image(vt, survol));
  b->setPictureOn(image(vt, appui));
  b->setAnimationFolder(vt.skinFolder());
  b->setAnimatedPicturePrefix(animation);
  b->setLastFrame(dernièreFrame);
  b->setAnimated(!animation.isEmpty());
}

QLabel* étiquette(QWidget* parent, const QString& nom, const QRect& boîte, int points, bool gras) {
  auto* l = new QLabel(parent);
  l->setObjectName(nom);
  l->setGeometry(boîte);
  l->setAttribute(Qt::WA_TranslucentBackground);
  QPalette pal = l->palette();
  pal.setColor(QPalette::WindowText, kCrème);
  l->setPalette(pal);
  QFont f = l->font();
  f.setPointSize(points);
  f.setBold(gras);
  l->setFont(f);
  return l;
}

}  // namespace vt::habillage
